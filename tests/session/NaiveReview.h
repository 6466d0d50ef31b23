#pragma once

#include <cstdint>
#include <map>
#include <optional>
#include <set>
#include <string>
#include <vector>

#include "classify/Classifier.h"
#include "classify/Verdict.h"
#include "session/Review.h"
#include "stores/Calibration.h"
#include "stores/Rule.h"

namespace brindlet {

/// What review does, once more and as plainly as can be: every list is walked from end to end at
/// every step. Knows no dates, no files and no search for kin.
class NaiveReview {
  public:
    NaiveReview(std::vector<Verdict> verdicts, bool inJunk, std::set<std::int64_t> ticked);

    void toggle(std::int64_t id);
    void applyOffer(bool learn, SweepChoice choice);
    void setCategory(Category category, bool tick);
    void setMessages(const std::vector<std::int64_t>& ids, bool tick, bool learn);
    void undo();

    std::set<std::int64_t> ticked;
    std::optional<PendingRule> offer;
    std::optional<Sweep> lastSweep;
    std::vector<Rule> lasting;
    std::vector<Rule> ofSession;
    std::map<std::string, Calibration::Tally> tallies;
    std::vector<std::int64_t> touched;
    std::int64_t learned = 0;

  private:
    const Verdict* find(std::int64_t id) const;
    std::optional<Rule> learn(const Verdict& verdict, bool keep, Rule::Scope scope,
                              const Classifier::Words& words);
    void count(const Verdict& verdict, bool keep);
    void sweep(const std::string& what, const std::vector<std::int64_t>& ids, bool tick,
               const std::optional<Rule>& rule);

    const std::vector<Verdict> verdicts_;
    const bool inJunk_;
    std::map<std::int64_t, Classifier::Words> templates_;
};

}  // namespace brindlet
