#include "session/Scan.h"

#include <algorithm>
#include <iterator>
#include <utility>

#include "base/Task.h"
#include "classify/TemplatePlan.h"
#include "mail/MessageReaders.h"
#include "platform/Clock.h"
#include "platform/Power.h"
#include "session/Decide.h"
#include "session/ScanStages.h"
#include "stores/RuleIndex.h"

namespace brindlet {
namespace {

constexpr std::size_t readingRun = 256;
constexpr std::int64_t bodyCharacters = 700;
constexpr int classificationWidth = 4;
constexpr std::size_t publishEvery = 8;
constexpr double batteryPollSeconds = 3;

using Indices = std::vector<std::size_t>;

/// A child's answer: which message, and what became of it.
struct Outcome {
    std::size_t index = 0;
    Verdict verdict;
};

double perSecond(std::size_t done, double seconds) {
    return seconds > 0 ? static_cast<double>(done) / seconds : 0;
}

}  // namespace

struct Scan::Work {
    Tools tools;
    Target target;
    ScanPort& port;

    std::vector<MailMessage> rows;
    std::vector<MailStore::Parsed> bodies;  // of the first rows, as far as reading came
    std::shared_ptr<const RuleIndex> rules;
    std::shared_ptr<const DecisionGround> ground;
    std::vector<const Verdict*> found;  // by message, into the logs of the two passes
    Date started;

    void run(const CancelToken& token);
    bool learn();
    bool read(const MessagePaths& paths, const CancelToken& token);
    std::int64_t dropDecided(const ScanPort::Decided& decided);
    bool sort(const CancelToken& token);
    bool classifyPass(const Indices& list, const VerdictList& before,
                      const std::shared_ptr<VerdictLog>& log, const CancelToken& token);
    std::function<Outcome()> classifyOne(std::size_t index, const CancelToken& abandoned);
    void inherit(const TemplatePlan::Cluster& cluster, std::vector<Verdict>& verdicts,
                 Indices& rest);
    bool waitWhilePaused(const CancelToken& token);
};

Scan::Scan(Tools tools, Target target, ScanPort& port)
    : work_(new Work{std::move(tools), std::move(target), port, {}, {}, {}, {}, {}, {}}) {}

Scan::~Scan() = default;

void Scan::run(const CancelToken& token) {
    work_->run(token);
}

void Scan::Work::run(const CancelToken& token) {
    const auto bounds = port.bounds();
    if (!bounds) return;
    rows = tools.mail->messages(target.folder.id, bounds->limit,
                                reachCutoff(bounds->reach, tools.clock.now()));
    if (!port.located(static_cast<std::int64_t>(rows.size()))) return;
    auto paths = tools.mail->locateMessageFiles(target.account.id);
    auto decided = port.decided();
    if (!decided || !learn()) return;
    if (!read(std::exchange(paths, {}), token)) return;

    const auto readable = std::count_if(
        bodies.begin(), bodies.end(), [](const auto& body) { return body.messageID.has_value(); });
    if (static_cast<std::int64_t>(rows.size()) > 2 * readable) {
        port.failUnreadable(readable, static_cast<std::int64_t>(rows.size()));
        return;
    }
    const auto skipped = dropDecided(*decided);
    decided.reset();  // while it lives, a change of the seen list costs a copy of it
    if (!port.willSort(skipped, static_cast<std::int64_t>(rows.size()))) return;
    if (rows.empty() || token.cancelled()) {
        port.endWithoutSorting();
        return;
    }
    sort(token);
}

bool Scan::Work::read(const MessagePaths& paths, const CancelToken& token) {
    MessageReaders readers(tools.readers);
    std::vector<std::int64_t> ids;
    bodies.reserve(rows.size());
    while (bodies.size() < rows.size() && !token.cancelled()) {
        ids.clear();
        for (auto i = bodies.size(); i < rows.size() && ids.size() < readingRun; ++i)
            ids.push_back(rows[i].id);
        auto run = readers.parse(ids, paths, bodyCharacters);
        std::move(run.begin(), run.end(), std::back_inserter(bodies));
        if (!port.reading(static_cast<std::int64_t>(bodies.size()),
                          static_cast<std::int64_t>(rows.size())))
            return false;
    }
    return true;
}

bool Scan::Work::learn() {
    auto learned = port.learned();
    if (!learned) return false;
    const auto correspondents = tools.mail->correspondents();
    if (!port.setCorrespondentCount(static_cast<std::int64_t>(correspondents.size()))) return false;
    rules = std::make_shared<const RuleIndex>(std::move(learned->rules));
    ground = std::make_shared<const DecisionGround>(DecisionGround{
        AddressSet(target.ownAddresses), AddressSet({correspondents.begin(), correspondents.end()}),
        std::move(learned->overrides)});
    return true;
}

std::int64_t Scan::Work::dropDecided(const ScanPort::Decided& decided) {
    const bool dropFiled = target.folder.role == MailFolder::Role::junk;
    // A cancelled reading leaves rows without a body; they are kept like any without an id.
    bodies.resize(rows.size());
    std::size_t kept = 0;
    for (std::size_t i = 0; i < rows.size(); ++i) {
        const auto& id = bodies[i].messageID;
        if (id && ((decided.skipSeen && decided.keys->contains(*id)) ||
                   (dropFiled && decided.keys->containsJunk(*id))))
            continue;
        if (kept != i) {
            rows[kept] = std::move(rows[i]);
            bodies[kept] = std::move(bodies[i]);
        }
        ++kept;
    }
    const auto dropped = static_cast<std::int64_t>(rows.size() - kept);
    rows.resize(kept);
    bodies.resize(kept);
    return dropped;
}

bool Scan::Work::sort(const CancelToken& token) {
    started = tools.clock.now();
    if (!port.setStage(stages::sorting)) return false;
    TemplatePlan::Plan plan;
    {
        std::vector<TemplatePlan::Message> messages;
        messages.reserve(rows.size());
        for (const auto& row : rows) messages.push_back({row.sender, row.subject});
        plan = TemplatePlan::make(messages);
    }
    found.resize(rows.size());
    const auto firstLog = std::make_shared<VerdictLog>();
    if (!classifyPass(plan.probes, {}, firstLog, token)) return false;

    std::vector<Verdict> verdicts;
    for (const auto index : plan.probes)
        if (found[index]) verdicts.push_back(*found[index]);
    Indices rest;
    for (const auto& cluster : plan.clusters) {
        if (token.cancelled()) break;
        inherit(cluster, verdicts, rest);
    }
    VerdictList settled(std::move(verdicts));
    if (!settled.empty()) {
        const auto seconds = tools.clock.now() - started;
        if (!port.publish({static_cast<std::int64_t>(settled.size()),
                           perSecond(settled.size(), seconds), std::nullopt, settled}))
            return false;
    }
    if (rest.empty() || token.cancelled()) return port.finish(settled, started);

    const auto secondLog = std::make_shared<VerdictLog>();
    if (!classifyPass(rest, settled, secondLog, token)) return false;
    std::vector<Verdict> all(settled.begin(), settled.end());
    for (const auto index : rest)
        if (found[index]) all.push_back(*found[index]);
    return port.finish(VerdictList(std::move(all)), started);
}

void Scan::Work::inherit(const TemplatePlan::Cluster& cluster, std::vector<Verdict>& verdicts,
                         Indices& rest) {
    const auto agree = [&] {
        if (cluster.probes.empty() || !found[cluster.probes.front()]) return false;
        const bool junk = found[cluster.probes.front()]->isJunk;
        return std::all_of(cluster.probes.begin(), cluster.probes.end(), [&](std::size_t probe) {
            return found[probe] && found[probe]->isJunk == junk;
        });
    };
    if (!agree()) {
        rest.insert(rest.end(), cluster.members.begin(), cluster.members.end());
        return;
    }
    const auto category = found[cluster.probes.front()]->category;
    for (const auto index : cluster.members) {
        auto& row = rows[index];
        const auto decision =
            decide(category, row.sender, row.subject, rules->covering(row.sender), *ground);
        verdicts.push_back({row.id, std::move(bodies[index].messageID), std::move(row.sender),
                            std::move(row.subject), category, decision.isJunk, decision.vetoed,
                            decision.byRule});
        bodies[index] = {};
    }
}

bool Scan::Work::classifyPass(const Indices& list, const VerdictList& before,
                              const std::shared_ptr<VerdictLog>& log, const CancelToken& token) {
    TaskGroup<Outcome> group(classificationWidth);
    std::size_t next = 0;
    const auto startNext = [&] { group.add(classifyOne(list[next++], group.abandoned())); };
    while (next < list.size() && next < classificationWidth) startNext();
    while (auto outcome = group.next()) {
        const auto index = outcome->index;
        log->append(std::move(outcome->verdict));
        found[index] = &log->last();
        if (token.cancelled()) return true;
        if (!waitWhilePaused(token)) return false;
        if (next < list.size()) startNext();

        const auto count = log->size();
        if (count % publishEvery != 0 && next < list.size()) continue;
        const auto done = before.size() + count;
        const auto rate = perSecond(done, tools.clock.now() - started);
        ScanPort::Progress progress{static_cast<std::int64_t>(done), rate, std::nullopt,
                                    VerdictList(before, log)};
        if (rate > 0) progress.eta = static_cast<double>(rows.size() - done) / rate;
        if (!port.publish(progress)) return false;
    }
    return true;
}

std::function<Outcome()> Scan::Work::classifyOne(std::size_t index, const CancelToken& abandoned) {
    auto& row = rows[index];
    auto& parsed = bodies[index];
    auto covering = rules->covering(row.sender);
    const auto blanket = RuleIndex::blanketVerdict(covering);
    Verdict verdict;
    verdict.id = row.id;
    verdict.messageID = std::move(parsed.messageID);
    verdict.sender = std::move(row.sender);
    verdict.subject = std::move(row.subject);
    // The child owns all it touches: an abandoned one may outlive the scan.
    return [index, abandoned, blanket, verdict = std::move(verdict), body = std::move(parsed.body),
            covering = std::move(covering), holdRules = rules, ground = ground,
            classifier = tools.classifier]() mutable -> Outcome {
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

bool Scan::Work::waitWhilePaused(const CancelToken& token) {
    if (token.cancelled()) return true;
    bool told = false;
    bool paused = false;
    while (true) {
        if (!port.pausesOnBattery() || !tools.power.onBattery()) break;
        if (!std::exchange(told, true) && !port.setStage(stages::pausedOnBattery)) return false;
        if (!tools.clock.sleep(batteryPollSeconds, token)) break;
        paused = true;
    }
    return !paused || port.setStage(stages::sorting);
}

}  // namespace brindlet
