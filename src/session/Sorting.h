#pragma once

#include <cstddef>
#include <functional>
#include <memory>
#include <vector>

#include "base/Cancel.h"
#include "classify/Classifier.h"
#include "classify/TemplatePlan.h"
#include "mail/MailMessage.h"
#include "mail/MailStore.h"
#include "session/Decide.h"
#include "session/SortingPort.h"
#include "stores/RuleIndex.h"

namespace brindlet {

class Clock;
class Power;

/// The part of a scan that needs no mail folder: from messages that have been read to verdicts. The
/// model reads a few of each cluster of like subjects and the others inherit; where those few
/// disagree, it reads the others too. Blocking code, run once, on the scan's thread; it owns all
/// its data.
class Sorting {
  public:
    struct Tools {
        Clock& clock;
        Power& power;
        std::shared_ptr<const Classifier> classifier;
        std::shared_ptr<const RuleIndex> rules;
        std::shared_ptr<const DecisionGround> ground;
    };

    /// One body for each row. The port must outlive the sorting.
    Sorting(Tools tools, std::vector<MailMessage> rows, std::vector<MailStore::Parsed> bodies,
            SortingPort& port);
    ~Sorting();

    /// A cancelled sorting finishes with what it has found. False when the port said that nobody is
    /// left.
    bool run(const CancelToken& token);

  private:
    using Indices = std::vector<std::size_t>;
    struct Outcome;

    bool classifyPass(const Indices& list, const VerdictList& before,
                      const std::shared_ptr<VerdictLog>& log, const CancelToken& token);
    std::function<Outcome()> classifyOne(std::size_t index, const CancelToken& abandoned);
    void inherit(const TemplatePlan::Cluster& cluster, std::vector<Verdict>& verdicts,
                 Indices& rest);
    bool waitWhilePaused(const CancelToken& token);

    const Tools tools_;
    std::vector<MailMessage> rows_;
    std::vector<MailStore::Parsed> bodies_;
    SortingPort& port_;
    std::vector<const Verdict*> found_;  // by message, into the logs of the two passes
    Date started_;
};

}  // namespace brindlet
