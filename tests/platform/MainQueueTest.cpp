#include "platform/MainQueue.h"

#include <gtest/gtest.h>

#include <memory>
#include <thread>
#include <vector>

#include "base/Task.h"
#include "doubles/Doubles.h"
#include "platform/posix/RunLoop.h"

namespace brindlet {
namespace {

/// Runs on a thread of its own and is awaited.
std::thread aside(std::function<void()> work) {
    return std::thread(std::move(work));
}

TEST(Hop, RunsOnTheMainThreadAndGivesTheResult) {
    RunLoop loop;
    std::optional<int> result;
    bool onMain = false;
    auto background = aside([&] {
        result = hop(loop, [&] {
            onMain = loop.isMainThread();
            return 7;
        });
        loop.stop();
    });
    loop.run();
    background.join();
    EXPECT_EQ(result, 7);
    EXPECT_TRUE(onMain);
}

TEST(Hop, OfAWorkThatGivesNothingIsTrue) {
    RunLoop loop;
    bool ran = false, result = false;
    auto background = aside([&] {
        result = hop(loop, [&] { ran = true; });
        loop.stop();
    });
    loop.run();
    background.join();
    EXPECT_TRUE(ran);
    EXPECT_TRUE(result);
}

TEST(Hop, HandsOverWhatCanOnlyBeMoved) {
    RunLoop loop;
    std::optional<std::unique_ptr<int>> result;
    auto background = aside([&] {
        result = hop(loop, [] { return std::make_unique<int>(3); });
        loop.stop();
    });
    loop.run();
    background.join();
    ASSERT_TRUE(result && *result);
    EXPECT_EQ(**result, 3);
}

TEST(Hop, IsGoneWhenTheLoopHasEnded) {
    RunLoop loop;
    loop.stop();
    loop.run();
    bool ran = false;
    std::optional<int> result = 1;
    bool nothing = true;
    aside([&] {
        result = hop(loop, [&] {
            ran = true;
            return 2;
        });
        nothing = hop(loop, [&] { ran = true; });
    }).join();
    EXPECT_EQ(result, std::nullopt);
    EXPECT_FALSE(nothing);
    EXPECT_FALSE(ran);
}

TEST(Hop, IsGoneWhenTheLoopEndsWhileItWaits) {
    // Nobody runs the loop, so the hop waits when the stop comes; or it comes too late for it.
    RunLoop loop;
    bool ran = false, result = true;
    auto background = aside([&] { result = hop(loop, [&] { ran = true; }); });
    loop.stop();
    background.join();
    EXPECT_FALSE(result);
    EXPECT_FALSE(ran);
}

TEST(Hop, BehindTheJobThatStopsTheLoopIsGone) {
    RunLoop loop;
    bool second = true;
    std::thread background;
    loop.post([&] {
        background = aside([&] { second = hop(loop, [] {}); });
        loop.stop();
    });
    loop.run();
    background.join();
    EXPECT_FALSE(second);
}

TEST(Hop, WaitsOnAPumpedQueueUntilItIsPumped) {
    doubles::PumpedQueue queue;
    std::optional<int> result;
    auto background = aside([&] { result = hop(queue, [] { return 5; }); });
    while (queue.pump() == 0) std::this_thread::yield();
    background.join();
    EXPECT_EQ(result, 5);
}

TEST(Hop, IsGoneWhenAPumpedQueueEnds) {
    doubles::PumpedQueue queue;
    std::optional<int> result = 1;
    auto background = aside([&] { result = hop(queue, [] { return 5; }); });
    while (queue.waiting() == 0) std::this_thread::yield();
    queue.end();
    background.join();
    EXPECT_EQ(result, std::nullopt);
}

TEST(RunLoop, KeepsTheOrderOfPosting) {
    RunLoop loop;
    std::vector<int> order;
    for (int i = 0; i < 100; ++i) loop.post([&, i] { order.push_back(i); });
    loop.post([&] {
        loop.post([&] {
            order.push_back(101);
            loop.stop();
        });
        order.push_back(100);
    });
    loop.run();
    ASSERT_EQ(order.size(), 102u);
    for (int i = 0; i < 102; ++i) EXPECT_EQ(order[static_cast<std::size_t>(i)], i);
}

TEST(RunLoop, DropsWhatIsLeftWhenItStops) {
    RunLoop loop;
    const auto owned = std::make_shared<int>(1);
    bool ran = false;
    loop.post([&] { loop.stop(); });
    loop.post([&ran, owned] { ran = true; });
    loop.run();
    EXPECT_EQ(owned.use_count(), 1);
    loop.post([&ran, owned] { ran = true; });
    EXPECT_EQ(owned.use_count(), 1);
    EXPECT_FALSE(ran);
}

TEST(RunLoop, KnowsItsThread) {
    RunLoop loop;
    EXPECT_TRUE(loop.isMainThread());
    bool elsewhere = true;
    aside([&] { elsewhere = loop.isMainThread(); }).join();
    EXPECT_FALSE(elsewhere);
}

TEST(RunLoop, TakesJobsFromManyThreads) {
    RunLoop loop;
    int count = 0;
    std::vector<std::thread> threads;
    for (int i = 0; i < 4; ++i)
        threads.push_back(aside([&] {
            for (int k = 0; k < 100; ++k) hop(loop, [&] { ++count; });
            loop.post([&] {
                if (count == 400) loop.stop();
            });
        }));
    loop.run();
    for (auto& thread : threads) thread.join();
    EXPECT_EQ(count, 400);
}

}  // namespace
}  // namespace brindlet
