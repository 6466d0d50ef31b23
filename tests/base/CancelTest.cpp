#include "base/Cancel.h"

#include <gtest/gtest.h>

#include <thread>

#include "base/Gate.h"

namespace brindlet {
namespace {

TEST(CancelToken, CopiesShareOneState) {
    const CancelToken token;
    const CancelToken copy = token;
    EXPECT_FALSE(copy.cancelled());
    token.cancel();
    EXPECT_TRUE(copy.cancelled());
    EXPECT_FALSE(CancelToken().cancelled());
}

TEST(CancelToken, SleepsToTheEndWhenNotCancelled) {
    EXPECT_TRUE(CancelToken().sleep(0));
    EXPECT_TRUE(CancelToken().sleep(-5));
    EXPECT_TRUE(CancelToken().sleep(0.001));
}

TEST(CancelToken, ACancelledOneDoesNotSleep) {
    const CancelToken token;
    token.cancel();
    EXPECT_FALSE(token.sleep(1e9));
    EXPECT_FALSE(token.sleep(0));
}

TEST(CancelToken, CancellingEndsASleepAtOnce) {
    for (const double longTime : {1e6, 1e300}) {
        const CancelToken token;
        Gate begun;
        bool whole = true;
        std::thread sleeper([&] {
            begun.raise();
            whole = token.sleep(longTime);
        });
        begun.waitFor(1);
        token.cancel();
        sleeper.join();
        EXPECT_FALSE(whole) << longTime;
    }
}

TEST(CancelWatch, WakesOnceOnCancel) {
    const CancelToken token;
    int woken = 0;
    const auto watch = token.onCancel([&] { ++woken; });
    EXPECT_EQ(woken, 0);
    token.cancel();
    token.cancel();
    EXPECT_EQ(woken, 1);
}

TEST(CancelWatch, WakesAtOnceWhenCancelHasCome) {
    const CancelToken token;
    token.cancel();
    int woken = 0;
    const auto watch = token.onCancel([&] { ++woken; });
    EXPECT_EQ(woken, 1);
}

TEST(CancelWatch, EndsWithItsHolder) {
    const CancelToken token;
    int first = 0, second = 0;
    {
        const auto watch = token.onCancel([&] { ++first; });
    }
    auto replaced = token.onCancel([&] { ++first; });
    replaced = token.onCancel([&] { ++second; });
    token.cancel();
    EXPECT_EQ(first, 0);
    EXPECT_EQ(second, 1);
}

TEST(CancelWatch, EndingItWaitsForAWakeThatRuns) {
    const CancelToken token;
    Gate inside, go;
    bool done = false;
    auto watch = token.onCancel([&] {
        inside.raise();
        go.waitFor(1);
        done = true;
    });
    std::thread canceller([&] { token.cancel(); });
    inside.waitFor(1);
    std::thread releaser([&] { go.raise(); });
    watch = {};
    EXPECT_TRUE(done);
    canceller.join();
    releaser.join();
}

TEST(CancelWatch, MayCancelOtherTokens) {
    const CancelToken parent, child;
    const auto watch = parent.onCancel([&] { child.cancel(); });
    parent.cancel();
    EXPECT_TRUE(child.cancelled());
}

}  // namespace
}  // namespace brindlet
