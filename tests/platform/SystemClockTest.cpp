#include "platform/linux/SystemClock.h"

#include <gtest/gtest.h>

#include <ctime>

namespace brindlet {
namespace {

TEST(SystemClock, TellsTheTimeOfDay) {
    const SystemClock clock;
    timespec before{}, after{};
    ::clock_gettime(CLOCK_REALTIME, &before);
    const double now = clock.now().unix();
    ::clock_gettime(CLOCK_REALTIME, &after);
    EXPECT_GE(now, static_cast<double>(before.tv_sec));
    EXPECT_LE(now, static_cast<double>(after.tv_sec + 1));
}

TEST(SystemClock, ACancelledSleepEndsAtOnce) {
    SystemClock clock;
    const CancelToken token;
    EXPECT_TRUE(clock.sleep(0, token));
    token.cancel();
    EXPECT_FALSE(clock.sleep(1e6, token));
}

}  // namespace
}  // namespace brindlet
