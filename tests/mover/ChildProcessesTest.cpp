#include <gtest/gtest.h>
#include <signal.h>
#include <sys/stat.h>
#include <sys/wait.h>

#include <chrono>
#include <cstdlib>
#include <thread>

#include "base/Task.h"
#include "mover/MoverWorld.h"
#include "mover/Resources.h"
#include "platform/posix/PosixProcessRunner.h"

namespace brindlet {
namespace {

using IDs = std::set<std::string>;
using Steady = std::chrono::steady_clock;
using enum Mover::Phase;

/// A sleep that only lets others have their turn.
class YieldingClock : public Clock {
  public:
    Date now() const override { return {}; }
    bool sleep(double, const CancelToken&) override {
        std::this_thread::yield();
        return true;
    }
};

/// Movers over real processes: the script host is a shell script of the test's.
struct ShellWorld : doubles::World {
    YieldingClock yielding;
    PosixProcessRunner runner;
    Services real{yielding,
                  directories,
                  mainQueue,
                  defaults,
                  model,
                  power,
                  desktop,
                  locale,
                  runner,
                  runningApps,
                  keys,
                  tls,
                  directories.root() + "/host"};
    Mover mover{real};
    Mover::Request request{{{11, "a@x"}, {12, "b@x"}, {13, "c@x"}},
                           {"A1", "ann@home.example", "Home", {}},
                           "INBOX",
                           "Junk"};

    /// The host finds the paths of a bulk move's files in $ids, $progress and $done, a folder for
    /// what it wants to tell in $seen, and a pipe to wait at in $gate.
    explicit ShellWorld(const std::string& host) {
        files::write(real.scriptHost, "#!/bin/sh\nids=$5 progress=$6 done=$7 seen=" +
                                          directories.home() + " gate=" + gate() + "\n" + host);
        ::chmod(real.scriptHost.c_str(), 0700);
        ::mkfifo(gate().c_str(), 0600);
    }
    std::string seen(const std::string& name) const { return directories.home() + "/" + name; }
    std::string gate() const { return directories.root() + "/gate"; }
    /// Lets a host go on that reads the gate. Blocks until it does.
    void openGate() const { files::write(gate(), "go\n"); }

    MoveOutcome move() {
        return mover.moveMessages(request, false, [](auto&&...) {});
    }
};

std::size_t openDescriptors() {
    return files::list("/proc/self/fd")->size();
}

bool hasChildren() {
    siginfo_t found{};
    return ::waitid(P_ALL, 0, &found, WEXITED | WNOHANG | WNOWAIT) == 0;
}

TEST(MoverChild, GetsTheScriptAndTheFilesAndIsHeard) {
    ShellWorld world(
        "cat > \"$seen/script\"; cp \"$ids\" \"$seen/ids\"\n"
        "printf 'a@x\\nb@x\\n' >> \"$done\"\n"
        "printf 'move|2|3' > \"$progress\"\n"
        "read go < \"$gate\"\n"
        "echo '2|7|false|false'\n");
    bool told = false;
    const auto outcome =
        world.mover.moveMessages(world.request, false, [&](auto phase, auto done, auto total) {
            if (phase != move || told) return;
            told = true;
            EXPECT_EQ(done, 2);
            EXPECT_EQ(total, 3);
            world.openGate();
        });
    EXPECT_EQ(outcome, (MoveOutcome{2, {"a@x", "b@x"}, {}}));
    EXPECT_TRUE(told);
    EXPECT_EQ(fileText(world.seen("script")), resources::bulkMoveScript);
    EXPECT_EQ(fileText(world.seen("ids")), "11\ta@x\n12\tb@x\n13\tc@x");
}

TEST(MoverChild, AStopEndsItWithinASecond) {
    ShellWorld world("echo a@x >> \"$done\"; printf 'move|1|3' > \"$progress\"\nexec sleep 1000\n");
    Steady::time_point stopped{};
    const auto outcome =
        world.mover.moveMessages(world.request, false, [&](auto phase, auto, auto) {
            if (phase != move || stopped != Steady::time_point{}) return;
            stopped = Steady::now();
            world.mover.stopMove();
        });
    EXPECT_LT(Steady::now() - stopped, std::chrono::seconds(1));
    EXPECT_EQ(outcome, (MoveOutcome{1, {"a@x"}, {}}));
    EXPECT_FALSE(hasChildren());
}

TEST(MoverChild, AStopEndsAScriptOfTheMenuToo) {
    ShellWorld world("> \"$seen/going\"; exec sleep 1000\n");
    const auto stopping = Task::start(TaskPriority::userInitiated, [&](const CancelToken&) {
        while (!files::exists(world.seen("going"))) std::this_thread::yield();
        world.mover.stopMove();
    });
    const auto outcome = world.mover.moveByMenu(world.request, [](auto&&...) {});
    stopping.wait();
    EXPECT_EQ(outcome, (MoveOutcome{0, {}, "Mail said nothing back."}));
}

TEST(MoverChild, MayFillThePipeOfStandardError) {
    const std::string filling =
        "i=0; while [ $i -lt 4000 ]; do i=$((i+1)); printf '%0100d\\n' $i >&2; done\n";
    EXPECT_EQ(ShellWorld(filling + "echo '3|3|false|false'\n").move(), (MoveOutcome{3, {}, {}}));
    EXPECT_EQ(ShellWorld(filling + "echo 'execution error: last' >&2\n").move().error, "last");
}

TEST(MoverChild, ThatFailsAtOnceIsHeardAllTheSame) {
    // It may be gone before it has read its script, and before anybody polls.
    ShellWorld world("echo '1:2: execution error: Mail has no folder INBOX (-2700)' >&2; exit 1\n");
    for (int i = 0; i < 100; ++i)
        ASSERT_EQ(world.move().error, "1:2: Mail has no folder INBOX (-2700)") << i;
}

TEST(MoverChild, AGrandchildThatKeepsThePipesHoldsUpNothing) {
    const auto before = openDescriptors();
    for (const bool fails : {false, true}) {
        ShellWorld world("sleep 1000 &\necho $! > \"$done\"; echo 'execution error: last' >&2\n" +
                         std::string(fails ? "" : "echo '1|1|false|false'\n"));
        const auto outcome = world.move();
        ASSERT_EQ(outcome.landed.size(), 1u);
        ::kill(std::atoi(outcome.landed.begin()->c_str()), SIGKILL);
        EXPECT_EQ(outcome.error, fails ? std::optional<std::string>("last") : std::nullopt);
    }
    EXPECT_EQ(openDescriptors(), before);
}

TEST(MoverChild, TwoRunAtOnceWithoutWaitingForEachOther) {
    ShellWorld first("read go < \"$gate\"; echo '1|1|false|false'\n");
    ShellWorld second("echo '2|2|false|false'\n");
    MoveOutcome outcome;
    const auto moving = Task::start(TaskPriority::userInitiated,
                                    [&](const CancelToken&) { outcome = first.move(); });
    for (int i = 0; i < 20; ++i) {
        ASSERT_EQ(second.move().moved, 2);
        ASSERT_EQ(second.mover.runScript("", {}).output, "2|2|false|false\n");
    }
    EXPECT_FALSE(moving.finished());
    first.openGate();
    moving.wait();
    EXPECT_EQ(outcome.moved, 1);
}

TEST(MoverChild, AThousandRunsLeaveNoDescriptorAndNoZombie) {
    ShellWorld world("echo '1|1|false|false'\n");
    const auto before = openDescriptors();
    for (int i = 0; i < 500; ++i) {
        ASSERT_EQ(world.move().moved, 1);
        ASSERT_EQ(world.mover.runScript("script", {}).output, "1|1|false|false\n");
    }
    EXPECT_EQ(openDescriptors(), before);
    EXPECT_FALSE(hasChildren());
}

TEST(MoverChild, MovesTellsAndIsStoppedSideBySide) {
    ShellWorld world(
        "i=0; while :; do i=$((i+1)); echo $i@x >> \"$done\";"
        " printf \"move|$i|9\" > \"$progress\"; done\n");
    for (int round = 0; round < 10; ++round) {
        Locked<std::int64_t> told{0};
        MoveOutcome outcome;
        const auto moving = Task::start(TaskPriority::userInitiated, [&](const CancelToken&) {
            outcome = world.mover.moveMessages(world.request, false,
                                               [&](auto, auto done, auto) { told.set(done); });
        });
        while (told.get() == 0) std::this_thread::yield();
        std::vector<Task> stops;
        for (int i = 0; i < 3; ++i)
            stops.push_back(Task::start(TaskPriority::userInitiated, [&](const CancelToken&) {
                while (!moving.finished()) world.mover.stopMove();
            }));
        moving.wait();
        for (const auto& stop : stops) stop.wait();
        EXPECT_EQ(outcome.error, std::nullopt);
        EXPECT_GE(outcome.moved, 1);
        EXPECT_EQ(outcome.moved, std::ssize(outcome.landed));
    }
}

}  // namespace
}  // namespace brindlet
