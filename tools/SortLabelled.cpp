#include "SortLabelled.h"

#include <cstddef>
#include <cstdint>
#include <string>
#include <utility>

#include "base/Cancel.h"
#include "base/Graphemes.h"
#include "platform/Clock.h"
#include "platform/Power.h"
#include "session/Sorting.h"

namespace brindlet::tools {
namespace {

/// Nothing here waits or tells the time.
class NoClock : public Clock {
  public:
    Date now() const override { return {}; }
    bool sleep(double, const CancelToken&) override { return true; }
};

class Mains : public Power {
  public:
    bool onBattery() const override { return false; }
    std::unique_ptr<Activity> keepAwake(const std::string&) override { return nullptr; }
};

/// Keeps the verdicts, by the row id that is a message's number.
class Collector : public SortingPort {
  public:
    explicit Collector(std::size_t messages) : answers(messages) {}

    bool setStage(const std::string&) override { return true; }
    bool publish(const Progress&) override { return true; }
    bool pausesOnBattery() override { return false; }
    bool finish(const VerdictList& verdicts, Date) override {
        for (const auto& verdict : verdicts)
            answers[static_cast<std::size_t>(verdict.id)] = {verdict.category, verdict.isJunk,
                                                             verdict.vetoed};
        return true;
    }

    std::vector<Answer> answers;
};

/// A scan reads so much of a body and no more.
std::string visiblePart(const std::string& body) {
    constexpr int characters = 700;
    std::string_view rest = body;
    for (int i = 0; i < characters && !rest.empty(); ++i) rest.remove_prefix(graphemeLength(rest));
    return body.substr(0, body.size() - rest.size());
}

}  // namespace

std::vector<Answer> sortLabelled(const std::vector<LabelledMail>& mails,
                                 std::shared_ptr<const Classifier> classifier,
                                 DecisionGround ground) {
    std::vector<MailMessage> rows;
    std::vector<MailStore::Parsed> bodies;
    for (std::size_t i = 0; i < mails.size(); ++i) {
        rows.push_back({static_cast<std::int64_t>(i), mails[i].sender, mails[i].subject, 0});
        bodies.push_back({visiblePart(mails[i].body), mails[i].id});
    }
    NoClock clock;
    Mains power;
    Collector collector(mails.size());
    Sorting({clock, power, std::move(classifier),
             std::make_shared<const RuleIndex>(std::vector<Rule>{}),
             std::make_shared<const DecisionGround>(std::move(ground))},
            std::move(rows), std::move(bodies), collector)
        .run(CancelToken());
    return std::move(collector.answers);
}

std::vector<Answer> askEach(const std::vector<LabelledMail>& mails, const Classifier& classifier) {
    std::vector<Answer> answers;
    for (const auto& mail : mails) {
        const auto category =
            classifier.classify(mail.sender, mail.subject, visiblePart(mail.body));
        answers.push_back({category, isDefaultJunk(category), false});
    }
    return answers;
}

}  // namespace brindlet::tools
