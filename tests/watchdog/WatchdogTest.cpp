#include "watchdog/Watchdog.h"

#include <gtest/gtest.h>

#include <optional>
#include <string>
#include <thread>
#include <vector>

#include "base/Files.h"
#include "doubles/Doubles.h"
#include "doubles/RecordingDiagnostics.h"

namespace brindlet {
namespace {

using Lines = std::vector<std::string>;

/// A watchdog whose looks the test calls for: it looks two seconds after its making, and so on.
struct Watched {
    doubles::ManualClock clock;
    doubles::TemporaryDirectories directories;
    doubles::RecordingDiagnostics diagnostics;
    std::optional<Watchdog> dog;
    int sleeps = 1;

    Watched() {
        dog.emplace(Watchdog::Seams{clock, directories, diagnostics});
        clock.waitForSleeps(sleeps);
    }
    /// Time up to the next look that nobody looks at.
    void pass(double seconds) { clock.advance(seconds); }
    /// Time that ends with a look; returns when that is over.
    void passUntilLook(double seconds) {
        clock.advance(seconds);
        clock.waitForSleeps(++sleeps);
    }
    /// So many looks, and no beat.
    void stall(int looks) {
        for (int look = 0; look < looks; ++look) passUntilLook(2);
    }
    std::string hangFile(const std::string& moment) const {
        return directories.store() + "/hang-" + moment + ".txt";
    }
};

TEST(Watchdog, LooksEveryTwoSeconds) {
    Watched watched;
    watched.stall(2);
    EXPECT_EQ(watched.clock.sleeps(), (std::vector<double>{2, 2, 2}));
}

TEST(Watchdog, AMainThreadThatBeatsIsLeftAlone) {
    Watched watched;
    for (int second = 0; second < 20; ++second) {
        watched.dog->beat();
        if (second % 2 == 0)
            watched.pass(1);
        else
            watched.passUntilLook(1);
    }
    EXPECT_EQ(watched.diagnostics.sampled.get(), Lines());
    EXPECT_EQ(watched.diagnostics.logged.get(), Lines());
}

TEST(Watchdog, FiveSecondsAreNoStall) {
    Watched watched;
    watched.pass(1.25);
    watched.dog->beat();
    watched.passUntilLook(0.75);
    watched.stall(2);
    watched.pass(0.25);
    watched.dog->beat();
    watched.passUntilLook(1.75);
    EXPECT_EQ(watched.diagnostics.sampled.get(), Lines());
    EXPECT_EQ(watched.diagnostics.logged.get(), Lines());
}

TEST(Watchdog, SevenSecondsAreOneFileAndOneLineAtTheFirstLookAfterSix) {
    Watched watched;
    watched.pass(1.25);
    watched.dog->beat();
    watched.passUntilLook(0.75);
    watched.stall(2);
    EXPECT_EQ(watched.diagnostics.sampled.get(), Lines()) << "after 4.75 seconds";
    watched.passUntilLook(2);
    watched.pass(0.25);
    watched.dog->beat();
    const auto path = watched.hangFile("2023-11-14T22-13-28Z");
    EXPECT_EQ(watched.diagnostics.sampled.get(), Lines{path});
    EXPECT_EQ(watched.diagnostics.logged.get(),
              Lines{"Brindlet: main thread stalled 7s; wrote " + path});
}

TEST(Watchdog, AGapOfSixSecondsIsStillNone) {
    Watched watched;
    watched.stall(3);
    EXPECT_EQ(watched.diagnostics.sampled.get(), Lines());
    watched.stall(1);
    EXPECT_EQ(watched.diagnostics.logged.get(), Lines{"Brindlet: main thread stalled 8s; wrote " +
                                                      watched.hangFile("2023-11-14T22-13-28Z")});
}

TEST(Watchdog, BeforeTheFirstBeatTimeCountsFromItsMaking) {
    Watched watched;
    watched.stall(4);
    EXPECT_EQ(watched.diagnostics.sampled.get().size(), 1U);
}

TEST(Watchdog, ASecondStallProducesNothing) {
    Watched watched;
    watched.stall(5);
    watched.dog->beat();
    watched.stall(1);
    watched.dog->beat();
    watched.stall(10);
    EXPECT_EQ(watched.diagnostics.sampled.get().size(), 1U);
    EXPECT_EQ(watched.diagnostics.logged.get().size(), 1U);
}

TEST(Watchdog, LogsASampleThatLeftNoFileTheSame) {
    Watched watched;
    watched.stall(4);
    EXPECT_FALSE(files::exists(watched.diagnostics.sampled.get().at(0)));
    EXPECT_EQ(watched.diagnostics.logged.get().size(), 1U);
}

TEST(Watchdog, MakesTheStoresFolder) {
    Watched watched;
    const auto store = watched.directories.root() + "/not/there/yet";
    watched.directories.setStore(store);
    bool stood = false;
    watched.diagnostics.whileSampling = [&](const CancelToken&) {
        stood = files::isDirectory(store);
    };
    watched.stall(4);
    EXPECT_TRUE(stood);
}

TEST(Watchdog, SamplesOnAThreadOfItsOwnWithoutHoldingTheMainOneUp) {
    Watched watched;
    const auto main = std::this_thread::get_id();
    bool elsewhere = false;
    watched.diagnostics.whileSampling = [&](const CancelToken&) {
        elsewhere = std::this_thread::get_id() != main;
        // Would never come back if the capture held the lock.
        watched.dog->beat();
    };
    watched.stall(4);
    EXPECT_TRUE(elsewhere);
}

#if defined(__linux__)
TEST(Watchdog, ItsThreadCanBeToldByItsName) {
    Watched watched;
    std::string name;
    watched.diagnostics.whileSampling = [&](const CancelToken&) {
        name = files::read("/proc/thread-self/comm").value_or("");
    };
    watched.stall(4);
    EXPECT_EQ(name, "brindlet.watchd\n") << "as much of it as the system keeps";
}
#endif

TEST(Watchdog, EndsInItsSleep) {
    Watched watched;
    watched.dog.reset();
    watched.clock.advance(100);
    EXPECT_EQ(watched.diagnostics.sampled.get(), Lines());
}

TEST(Watchdog, EndsACaptureThatIsUnderWay) {
    Watched watched;
    watched.diagnostics.whileSampling = [&](const CancelToken& token) {
        watched.clock.sleep(1e6, token);
    };
    // The last of the four looks finds the stall, and its capture is the next sleep.
    watched.stall(4);
    watched.dog.reset();
    EXPECT_EQ(watched.diagnostics.sampled.get().size(), 1U);
}

TEST(Watchdog, NamesItsFileByTheSecondInUtc) {
    struct Row {
        double unix;
        const char* name;
    };
    for (const auto& row : {
             Row{1'795'245'590, "hang-2026-11-21T07-19-50Z.txt"},
             Row{1'795'245'590.999, "hang-2026-11-21T07-19-50Z.txt"},
             Row{1'835'481'599, "hang-2028-02-29T23-59-59Z.txt"},
             Row{0, "hang-1970-01-01T00-00-00Z.txt"},
             Row{-0.5, "hang-1969-12-31T23-59-59Z.txt"},
         })
        EXPECT_EQ(Watchdog::fileName(Date::fromUnix(row.unix)), row.name);
}

}  // namespace
}  // namespace brindlet
