#include <time.h>

#include <cstdio>
#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "Rounds.h"
#include "doubles/Doubles.h"
#include "platform/linux/FileUserDefaults.h"
#include "session/AppState.h"

// What a person waits for while reviewing a long list. There is no floor to hold a tick against, so
// the limits are absolute.

namespace brindlet::bench {
namespace {

constexpr std::size_t messages = 50'000;
constexpr int ticks = 400;

VerdictList found(std::size_t senders) {
    const char* const shapes[] = {" has commented on your picture", " is now following you",
                                  ": your weekly report is ready", " invited you to an event"};
    std::vector<Verdict> verdicts(messages);
    for (std::size_t i = 0; i < messages; ++i) {
        Verdict& verdict = verdicts[i];
        verdict.id = static_cast<std::int64_t>(1 + i * 2);
        verdict.messageID = std::to_string(i) + ".0123456789@mail.example.com";
        verdict.sender =
            "A sender of letters <news@shop" + std::to_string(i * 31 % senders) + ".example>";
        verdict.subject = "Number " + std::to_string(i) + shapes[i / senders % 4];
        verdict.category = Category::newsletterOrDigest;
        verdict.isJunk = true;
    }
    return VerdictList(std::move(verdicts));
}

/// A session that shows a recorded scan, with all of it ticked.
struct Session {
    doubles::World world;
    std::shared_ptr<AppState> state;

    explicit Session(std::size_t senders) {
        world.model.setScript([](const auto&) { return std::nullopt; });
        state = AppState::make(world.services());
        const auto verdicts = found(senders);
        ScanRecord record;
        record.started = world.clock.now();
        record.account = "ann@example.org";
        record.folder = "INBOX";
        std::vector<ScanRecord::Saved> saved;
        for (const auto& verdict : verdicts)
            saved.push_back({verdict.id, verdict.messageID, verdict.sender, verdict.subject,
                             std::string(rawValue(verdict.category)), true, false, true});
        state->history.add(record);
        state->history.writeScan(saved, record.started);
        state->accounts.set({{"A1", "ann@example.org", "Ann", {}}});
        state->openRecord(record);
        state->tickedCount(Category::newsletterOrDigest);
    }
    ~Session() {
        settle();
        state->persistTask()->cancel();
        state->persistTask()->wait();
        state->drainWrites();
    }
    std::int64_t idAt(std::size_t i) const { return (*state->verdicts)[i % messages].id; }
    /// Lets the search that the last tick began end.
    void settle() {
        if (const auto task = state->kindTask())
            world.mainQueue.pumpUntil([&] { return task->finished(); });
    }
};

/// Milliseconds of one call: by the wall, and what this thread worked of them. On the wall the disk
/// and whatever else runs count as well.
struct Cost {
    double wall = 0;
    double own = 0;
};

double ownMilliseconds() {
    timespec time{};
    ::clock_gettime(CLOCK_THREAD_CPUTIME_ID, &time);
    return 1e3 * static_cast<double>(time.tv_sec) + 1e-6 * static_cast<double>(time.tv_nsec);
}

/// The median of single calls; `work` is told which call it is.
Cost typical(
    int calls, const std::function<void(std::size_t)>& work,
    const std::function<void()>& after = [] {}) {
    std::vector<double> wall, own;
    for (int i = 0; i < calls; ++i) {
        const double before = ownMilliseconds();
        wall.push_back(wallMilliseconds([&] { work(static_cast<std::size_t>(i)); }));
        own.push_back(ownMilliseconds() - before);
        after();
    }
    return {median(std::move(wall)), median(std::move(own))};
}

/// Only the thread's own time is held to the limit.
bool report(const std::string& what, Cost cost, std::optional<double> limit = std::nullopt) {
    const bool kept = !limit || cost.own <= *limit * (strictness().quick ? 2 : 1);
    std::printf("%-44s %9.4f ms  wall %9.4f ms", what.c_str(), cost.own, cost.wall);
    if (limit) std::printf("  at most %.1f%s", *limit, kept ? "" : "  TOO SLOW");
    std::printf("\n");
    std::fflush(stdout);
    return kept;
}

Cost ticking(Session& session, std::size_t first) {
    return typical(
        ticks, [&](std::size_t i) { session.state->toggleMessage(session.idAt(first + i * 7)); },
        [&] { session.settle(); });
}

bool manySenders() {
    Session session(5000);
    auto& state = *session.state;
    // Five thousand places on is the same sender's next message.
    bool good = report("tick, the first of its sender", ticking(session, 0), 1);
    good &= report("tick, the sender known", ticking(session, 5000), 1);
    const auto category = Category::newsletterOrDigest;
    std::int64_t sum = 0;
    good &= report("ticked messages of the category, counted",
                   typical(ticks, [&](std::size_t) { sum += state.tickedCount(category); }), 0.1);
    good &= report("a save put off", typical(ticks, [&](std::size_t) { state.persistSoon(); }), 1);
    good &=
        report("the category ticked as a whole",
               typical(9, [&](std::size_t i) { state.setCategoryTicked(category, i % 2); }), 50);
    good &= report("undone",
                   typical(
                       9, [&](std::size_t) { state.undoSweep(); },
                       [&] { state.setCategoryTicked(category, true); }),
                   50);
    report("index of the list", typical(9, [&](std::size_t) {
               sum += static_cast<std::int64_t>(VerdictIndex(*state.verdicts).ids().size());
           }));
    report("parted by what was moved", typical(9, [&](std::size_t) {
               sum += VerdictSplit(*state.verdicts, *state.movedAlready).junk;
           }));
    const auto record = *state.currentRecord;
    good &= report("a past scan put back on screen",
                   typical(9, [&](std::size_t) { state.openRecord(record); }), 150);
    report("the same, its file alone", typical(9, [&](std::size_t) {
               sum += std::ssize(*state.history.readScan(record.started));
           }));
    std::printf("checked: %lld\n", static_cast<long long>(sum));
    return good;
}

bool oneSender() {
    Session session(1);
    report("tick, one sender, its first",
           typical(1, [&](std::size_t) { session.state->toggleMessage(session.idAt(0)); }));
    session.settle();
    return report("tick, one sender", ticking(session, 0), 50);
}

/// What each lesson costs beside: both files are written whole.
void lessons() {
    doubles::World world;
    const auto state = AppState::make(world.services());
    for (const int count : {100, 1000, 10'000}) {
        std::vector<Rule> rules(static_cast<std::size_t>(count));
        for (std::size_t i = 0; i < rules.size(); ++i) {
            rules[i].sender = "shop" + std::to_string(i) + ".example";
            rules[i].category = "newsletterOrDigest";
            rules[i].example = "A subject that is about as long as most of them are";
            rules[i].templateWords = {"your", "weekly", "report"};
            rules[i].hits = 1;
            rules[i].created = world.clock.now();
        }
        state->rules.all.set(std::move(rules));
        report("a rule learned, " + std::to_string(count) + " rules",
               typical(50, [&](std::size_t i) {
                   state->rules.add("a@shop.example", Category::newsletterOrDigest,
                                    i % 2 ? Rule::Verdict::junk : Rule::Verdict::keep,
                                    Rule::Scope::session, "A subject", {});
               }));
    }
    for (int i = 0; i < 1000; ++i)
        state->calibration.byCategory.mutate([&](auto& tallies) {
            tallies["newsletterOrDigest"].keepSenders.push_back("shop" + std::to_string(i) +
                                                                ".example");
        });
    report("a correction counted, 1,000 senders", typical(50, [&](std::size_t) {
               state->calibration.record(Category::newsletterOrDigest, Rule::Verdict::keep,
                                         "shop.example");
           }));

    FileUserDefaults defaults(world.directories.root() + "/defaults.json");
    std::vector<std::string> touched;
    for (int i = 0; i < 2000; ++i) touched.push_back(std::to_string(100'000 + i));
    for (const int scans : {1, 20, 100}) {
        for (int i = 0; i < scans; ++i)
            defaults.setStrings("touched-17000000" + std::to_string(100 + i) + ".5INBOX", touched);
        report("2,000 handled messages stored, " + std::to_string(scans) + " scans",
               typical(20, [&](std::size_t) {
                   defaults.setStrings("touched-17000000100.5INBOX", touched);
               }));
    }
}

}  // namespace
}  // namespace brindlet::bench

int main() {
    using namespace brindlet::bench;
    const bool many = manySenders();
    const bool one = oneSender();
    lessons();
    return many && one ? 0 : 1;
}
