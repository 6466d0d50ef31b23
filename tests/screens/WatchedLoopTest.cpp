#include "app/WatchedLoop.h"

#include <gtest/gtest.h>

#include <QAbstractEventDispatcher>
#include <QCoreApplication>
#include <QTimerEvent>

#include "doubles/Doubles.h"
#include "doubles/RecordingDiagnostics.h"

namespace brindlet {
namespace {

/// The loop goes round once a second, as far as the watched one can tell.
void goRound(WatchedLoop& loop) {
    QTimerEvent tick(1);
    QCoreApplication::sendEvent(&loop, &tick);
}

TEST(WatchedLoop, IsToBeatEverySecond) {
    doubles::ManualClock clock;
    const doubles::TemporaryDirectories directories;
    doubles::RecordingDiagnostics diagnostics;
    WatchedLoop loop({clock, directories, diagnostics});
    const auto timers = QAbstractEventDispatcher::instance()->registeredTimers(&loop);
    ASSERT_EQ(timers.size(), 1);
    EXPECT_EQ(timers[0].interval, 1000);
}

TEST(WatchedLoop, IsSampledOnlyOnceItNoLongerGoesRound) {
    doubles::ManualClock clock;
    const doubles::TemporaryDirectories directories;
    doubles::RecordingDiagnostics diagnostics;
    WatchedLoop loop({clock, directories, diagnostics});
    int looks = 1;
    const auto look = [&] {
        clock.waitForSleeps(looks++);
        clock.advance(2);
        clock.waitForSleeps(looks);
    };
    for (int n = 0; n < 6; ++n) {
        look();
        goRound(loop);
    }
    EXPECT_EQ(diagnostics.logged.get().size(), 0U);
    for (int n = 0; n < 4; ++n) look();
    EXPECT_EQ(diagnostics.logged.get().size(), 1U);
}

}  // namespace
}  // namespace brindlet
