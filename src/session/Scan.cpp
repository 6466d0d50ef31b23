#include "session/Scan.h"

#include <algorithm>
#include <iterator>
#include <utility>

#include "mail/MessageReaders.h"
#include "platform/Clock.h"
#include "session/Decide.h"
#include "session/Sorting.h"
#include "stores/RuleIndex.h"

namespace brindlet {
namespace {

constexpr std::size_t readingRun = 256;
constexpr std::int64_t bodyCharacters = 700;

}  // namespace

struct Scan::Work {
    Tools tools;
    Target target;
    ScanPort& port;

    std::vector<MailMessage> rows;
    std::vector<MailStore::Parsed> bodies;  // of the first rows, as far as reading came
    std::shared_ptr<const RuleIndex> rules;
    std::shared_ptr<const DecisionGround> ground;

    void run(const CancelToken& token);
    bool learn();
    bool read(const MessagePaths& paths, const CancelToken& token);
    std::int64_t dropDecided(const ScanPort::Decided& decided);
};

Scan::Scan(Tools tools, Target target, ScanPort& port)
    : work_(new Work{std::move(tools), std::move(target), port, {}, {}, {}, {}}) {}

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
    Sorting({tools.clock, tools.power, tools.classifier, std::move(rules), std::move(ground)},
            std::move(rows), std::move(bodies), port)
        .run(token);
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

}  // namespace brindlet
