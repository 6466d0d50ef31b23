#include "session/Sorting.h"

#include <algorithm>
#include <utility>

#include "base/Task.h"
#include "platform/Clock.h"
#include "platform/Power.h"
#include "session/ScanStages.h"

namespace brindlet {
namespace {

constexpr int classificationWidth = 4;
constexpr std::size_t publishEvery = 8;
constexpr double batteryPollSeconds = 3;

double perSecond(std::size_t done, double seconds) {
    return seconds > 0 ? static_cast<double>(done) / seconds : 0;
}

}  // namespace

/// A child's answer: which message, and what became of it.
struct Sorting::Outcome {
    std::size_t index = 0;
    Verdict verdict;
};

Sorting::Sorting(Tools tools, std::vector<MailMessage> rows, std::vector<MailStore::Parsed> bodies,
                 SortingPort& port)
    : tools_(std::move(tools)), rows_(std::move(rows)), bodies_(std::move(bodies)), port_(port) {}

Sorting::~Sorting() = default;

bool Sorting::run(const CancelToken& token) {
    started_ = tools_.clock.now();
    if (!port_.setStage(stages::sorting)) return false;
    TemplatePlan::Plan plan;
    {
        std::vector<TemplatePlan::Message> messages;
        messages.reserve(rows_.size());
        for (const auto& row : rows_) messages.push_back({row.sender, row.subject});
        plan = TemplatePlan::make(messages);
    }
    found_.resize(rows_.size());
    const auto firstLog = std::make_shared<VerdictLog>();
    if (!classifyPass(plan.probes, {}, firstLog, token)) return false;

    std::vector<Verdict> verdicts;
    for (const auto index : plan.probes)
        if (found_[index]) verdicts.push_back(*found_[index]);
    Indices rest;
    for (const auto& cluster : plan.clusters) {
        if (token.cancelled()) break;
        inherit(cluster, verdicts, rest);
    }
    VerdictList settled(std::move(verdicts));
    if (!settled.empty()) {
        const auto seconds = tools_.clock.now() - started_;
        if (!port_.publish({static_cast<std::int64_t>(settled.size()),
                            perSecond(settled.size(), seconds), std::nullopt, settled}))
            return false;
    }
    if (rest.empty() || token.cancelled()) return port_.finish(settled, started_);

    const auto secondLog = std::make_shared<VerdictLog>();
    if (!classifyPass(rest, settled, secondLog, token)) return false;
    std::vector<Verdict> all(settled.begin(), settled.end());
    for (const auto index : rest)
        if (found_[index]) all.push_back(*found_[index]);
    return port_.finish(VerdictList(std::move(all)), started_);
}

void Sorting::inherit(const TemplatePlan::Cluster& cluster, std::vector<Verdict>& verdicts,
                      Indices& rest) {
    const auto agree = [&] {
        if (cluster.probes.empty() || !found_[cluster.probes.front()]) return false;
        const bool junk = found_[cluster.probes.front()]->isJunk;
        return std::all_of(cluster.probes.begin(), cluster.probes.end(), [&](std::size_t probe) {
            return found_[probe] && found_[probe]->isJunk == junk;
        });
    };
    if (!agree()) {
        rest.insert(rest.end(), cluster.members.begin(), cluster.members.end());
        return;
    }
    const auto category = found_[cluster.probes.front()]->category;
    for (const auto index : cluster.members) {
        auto& row = rows_[index];
        const auto decision = decide(category, row.sender, row.subject,
                                     tools_.rules->covering(row.sender), *tools_.ground);
        verdicts.push_back({row.id, std::move(bodies_[index].messageID), std::move(row.sender),
                            std::move(row.subject), category, decision.isJunk, decision.vetoed,
                            decision.byRule});
        bodies_[index] = {};
    }
}

bool Sorting::classifyPass(const Indices& list, const VerdictList& before,
                           const std::shared_ptr<VerdictLog>& log, const CancelToken& token) {
    TaskGroup<Outcome> group(classificationWidth);
    std::size_t next = 0;
    const auto startNext = [&] { group.add(classifyOne(list[next++], group.abandoned())); };
    while (next < list.size() && next < classificationWidth) startNext();
    while (auto outcome = group.next()) {
        const auto index = outcome->index;
        log->append(std::move(outcome->verdict));
        found_[index] = &log->last();
        if (token.cancelled()) return true;
        if (!waitWhilePaused(token)) return false;
        if (next < list.size()) startNext();

        const auto count = log->size();
        if (count % publishEvery != 0 && next < list.size()) continue;
        const auto done = before.size() + count;
        const auto rate = perSecond(done, tools_.clock.now() - started_);
        SortingPort::Progress progress{static_cast<std::int64_t>(done), rate, std::nullopt,
                                       VerdictList(before, log)};
        if (rate > 0) progress.eta = static_cast<double>(rows_.size() - done) / rate;
        if (!port_.publish(progress)) return false;
    }
    return true;
}

std::function<Sorting::Outcome()> Sorting::classifyOne(std::size_t index,
                                                       const CancelToken& abandoned) {
    auto& row = rows_[index];
    auto& parsed = bodies_[index];
    auto covering = tools_.rules->covering(row.sender);
    const auto blanket = RuleIndex::blanketVerdict(covering);
    Verdict verdict;
    verdict.id = row.id;
    verdict.messageID = std::move(parsed.messageID);
    verdict.sender = std::move(row.sender);
    verdict.subject = std::move(row.subject);
    // The child owns all it touches: an abandoned one may outlive the scan.
    return [index, abandoned, blanket, verdict = std::move(verdict), body = std::move(parsed.body),
            covering = std::move(covering), holdRules = tools_.rules, ground = tools_.ground,
            classifier = tools_.classifier]() mutable -> Outcome {
        Decision decision;
        if (blanket) {
            const auto decided = decideByBlanket(*blanket);
            verdict.category = decided.category;
            decision = decided.decision;
        } else {
            verdict.category =
                classifier->classify(verdict.sender, verdict.subject, body, abandoned);
            decision = decide(verdict.category, verdict.sender, verdict.subject, covering, *ground);
        }
        verdict.isJunk = decision.isJunk;
        verdict.vetoed = decision.vetoed;
        verdict.byRule = decision.byRule;
        return {index, std::move(verdict)};
    };
}

bool Sorting::waitWhilePaused(const CancelToken& token) {
    if (token.cancelled()) return true;
    bool told = false;
    bool paused = false;
    while (true) {
        if (!port_.pausesOnBattery() || !tools_.power.onBattery()) break;
        if (!std::exchange(told, true) && !port_.setStage(stages::pausedOnBattery)) return false;
        if (!tools_.clock.sleep(batteryPollSeconds, token)) break;
        paused = true;
    }
    return !paused || port_.setStage(stages::sorting);
}

}  // namespace brindlet
