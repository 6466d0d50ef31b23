#include "base/Task.h"

#include <gtest/gtest.h>

#include <atomic>
#include <chrono>
#include <set>
#include <string>
#include <thread>
#include <vector>

#include "base/Gate.h"

namespace brindlet {
namespace {

TEST(Task, RunsOnAThreadOfItsOwn) {
    std::thread::id id;
    const auto task = Task::start(TaskPriority::userInitiated,
                                  [&](const CancelToken&) { id = std::this_thread::get_id(); });
    task.wait();
    EXPECT_TRUE(task.finished());
    EXPECT_FALSE(task.cancelled());
    EXPECT_NE(id, std::thread::id());
    EXPECT_NE(id, std::this_thread::get_id());
}

TEST(Task, CancellingOnlyAsks) {
    Gate go, begun;
    bool sawCancel = false;
    const auto task = Task::start(TaskPriority::utility, [&](const CancelToken& token) {
        begun.raise();
        go.waitFor(1);
        sawCancel = token.cancelled();
    });
    begun.waitFor(1);
    task.cancel();
    EXPECT_TRUE(task.cancelled());
    EXPECT_FALSE(task.finished());
    go.raise();
    task.wait();
    EXPECT_TRUE(sawCancel);
}

TEST(Task, CancellingEndsItsSleep) {
    bool whole = true;
    const auto task = Task::start(TaskPriority::userInitiated,
                                  [&](const CancelToken& token) { whole = token.sleep(1e6); });
    const auto copy = task;
    copy.cancel();
    task.wait();
    EXPECT_FALSE(whole);
}

TEST(Task, WhatItOwnsEndsBeforeItIsFinished) {
    auto owned = std::make_shared<int>(1);
    const std::weak_ptr<int> watch = owned;
    const auto task =
        Task::start(TaskPriority::userInitiated, [owned = std::move(owned)](const CancelToken&) {});
    task.wait();
    EXPECT_TRUE(watch.expired());
}

TEST(Task, DroppingTheHandleNeitherStopsNorAwaitsIt) {
    const auto go = std::make_shared<Gate>();
    const auto done = std::make_shared<Gate>();
    {
        const auto task =
            Task::start(TaskPriority::userInitiated, [go, done](const CancelToken& t) {
                go->waitFor(1);
                if (!t.cancelled()) done->raise();
            });
    }
    go->raise();
    done->waitFor(1);
}

TEST(SerialQueue, RunsJobsInOrderOneAtATime) {
    SerialQueue queue(TaskPriority::utility);
    std::vector<int> order;
    std::atomic<int> inside = 0;
    bool alone = true;
    for (int i = 0; i < 200; ++i)
        queue.post([&, i] {
            alone = alone && ++inside == 1;
            order.push_back(i);
            --inside;
        });
    queue.drain();
    EXPECT_TRUE(alone);
    ASSERT_EQ(order.size(), 200u);
    for (int i = 0; i < 200; ++i) EXPECT_EQ(order[static_cast<std::size_t>(i)], i);
}

TEST(SerialQueue, DrainWaitsForWhatWasPostedBeforeAndNoMore) {
    SerialQueue queue(TaskPriority::utility);
    queue.drain();
    // The first job may post the second before drain begins, and drain rightly waits for it then;
    // so the second ends by itself, and another round is tried.
    bool leftTheSecond = false;
    for (int round = 1; round <= 50 && !leftTheSecond; ++round) {
        std::atomic<int> done = 0;
        queue.post([&] {
            std::this_thread::sleep_for(std::chrono::milliseconds(1));
            ++done;
            queue.post([&] {
                std::this_thread::sleep_for(std::chrono::milliseconds(20));
                ++done;
            });
        });
        queue.drain();
        EXPECT_GE(done, 1);
        leftTheSecond = done == 1;
        queue.drain();
        EXPECT_EQ(done, 2);
    }
    EXPECT_TRUE(leftTheSecond);
}

TEST(SerialQueue, StartsAgainAfterItRanDry) {
    SerialQueue queue(TaskPriority::utility);
    int done = 0;
    for (int i = 1; i <= 20; ++i) {
        queue.post([&] { ++done; });
        queue.drain();
        EXPECT_EQ(done, i);
    }
}

TEST(SerialQueue, DroppingItLetsTheQueuedFinish) {
    const auto go = std::make_shared<Gate>();
    const auto done = std::make_shared<Gate>();
    {
        SerialQueue queue(TaskPriority::utility);
        queue.post([go] { go->waitFor(1); });
        queue.post([done] { done->raise(); });
    }
    go->raise();
    done->waitFor(1);
}

TEST(TaskGroup, HandsResultsBackInTheOrderInWhichTheyFinish) {
    std::vector<std::unique_ptr<Gate>> gates;
    TaskGroup<int> group(3);
    for (int i = 0; i < 3; ++i) {
        gates.push_back(std::make_unique<Gate>());
        group.add([i, gate = gates.back().get()] {
            gate->waitFor(1);
            return i;
        });
    }
    for (const std::size_t i : {2u, 0u, 1u}) {
        gates[i]->raise();
        EXPECT_EQ(group.next(), static_cast<int>(i));
    }
    EXPECT_EQ(group.next(), std::nullopt);
}

TEST(TaskGroup, AnEmptyOneHasNoResult) {
    EXPECT_EQ(TaskGroup<int>(4).next(), std::nullopt);
}

TEST(TaskGroup, RunsAsManyAsItsWidthSideBySideAndNoMore) {
    constexpr int width = 4;
    Gate begun, go;
    std::atomic<int> inside = 0, most = 0;
    TaskGroup<int> group(width);
    for (int i = 0; i < 20; ++i)
        group.add([&, i] {
            const int now = ++inside;
            int before = most;
            while (before < now && !most.compare_exchange_weak(before, now)) {
            }
            begun.raise();
            go.waitFor(1);
            --inside;
            return i;
        });
    begun.waitFor(width);
    go.raise();
    std::set<int> results;
    while (const auto result = group.next()) results.insert(*result);
    EXPECT_EQ(results.size(), 20u);
    EXPECT_EQ(most, width);
}

TEST(TaskGroup, ChildrenMayBeAddedAsResultsCome) {
    TaskGroup<int> group(2);
    int started = 0, sum = 0;
    while (started < 2) group.add([n = started++] { return n; });
    while (const auto result = group.next()) {
        sum += *result;
        if (started < 100) group.add([n = started++] { return n; });
    }
    EXPECT_EQ(sum, 99 * 100 / 2);
}

TEST(TaskGroup, AbandonedChildrenCanLearnOfIt) {
    const auto begun = std::make_shared<Gate>();
    const auto ended = std::make_shared<Gate>();
    CancelToken abandoned;
    {
        TaskGroup<int> group(2);
        abandoned = group.abandoned();
        group.add([] { return 7; });
        group.add([begun, ended, token = group.abandoned()] {
            begun->raise();
            EXPECT_FALSE(token.sleep(3600));
            ended->raise();
            return 8;
        });
        EXPECT_EQ(*group.next(), 7);
        begun->waitFor(1);  // one that has not begun never runs
        EXPECT_FALSE(abandoned.cancelled());
    }
    EXPECT_TRUE(abandoned.cancelled());
    ended->waitFor(1);
}

TEST(TaskGroup, DroppingItAbandonsWhatStillRuns) {
    const auto go = std::make_shared<Gate>();
    const auto ended = std::make_shared<Gate>();
    const auto begun = std::make_shared<Gate>();
    const auto result = std::make_shared<int>(7);
    std::vector<std::weak_ptr<Gate>> late;
    {
        TaskGroup<std::shared_ptr<int>> group(4);
        group.add([result] { return result; });
        for (int i = 0; i < 3; ++i)
            group.add([go, ended, begun, result] {
                begun->raise();
                go->waitFor(1);
                ended->raise();
                return result;
            });
        for (int i = 0; i < 5; ++i) {
            const auto waiting = std::make_shared<Gate>();
            late.push_back(waiting);
            // Behind three that never answer, in the end none of these can matter.
            group.add([waiting, go]() -> std::shared_ptr<int> {
                go->waitFor(1);
                return nullptr;
            });
        }
        begun->waitFor(3);
        EXPECT_EQ(**group.next(), 7);
    }
    EXPECT_EQ(ended->count(), 0);
    int expired = 0;
    for (const auto& waiting : late) expired += waiting.expired();
    EXPECT_GE(expired, 4);  // one at most was picked up before the group went
    go->raise();
    ended->waitFor(3);
}

TEST(WorkerCrew, TouchesEachIndexOnceByNumberedWorkers) {
    for (const int workers : {-1, 0, 1, 2, 8}) {
        SCOPED_TRACE(workers);
        WorkerCrew crew(workers);
        EXPECT_EQ(crew.workers(), std::max(workers, 1));
        for (const std::size_t count : {std::size_t{0}, std::size_t{1}, std::size_t{1000}}) {
            std::vector<int> touched(count, 0);
            std::atomic<bool> inRange = true;
            crew.forEach(count, [&](int worker, std::size_t index) {
                if (worker < 0 || worker >= crew.workers()) inRange = false;
                ++touched[index];
            });
            EXPECT_TRUE(inRange);
            EXPECT_EQ(touched, std::vector<int>(count, 1)) << count;
        }
    }
}

TEST(WorkerCrew, AloneItWorksOnTheCallingThreadInOrder) {
    WorkerCrew crew(1);
    std::vector<std::size_t> order;
    crew.forEach(3, [&](int, std::size_t index) { order.push_back(index); });
    EXPECT_EQ(order, (std::vector<std::size_t>{0, 1, 2}));
}

TEST(WorkerCrew, EachWorkerKeepsABufferToItself) {
    WorkerCrew crew(4);
    std::vector<std::string> buffers(4);
    for (int round = 0; round < 50; ++round)
        crew.forEach(100, [&](int worker, std::size_t) {
            buffers[static_cast<std::size_t>(worker)] += 'x';
        });
    std::size_t all = 0;
    for (const auto& buffer : buffers) all += buffer.size();
    EXPECT_EQ(all, 5000u);
}

}  // namespace
}  // namespace brindlet
