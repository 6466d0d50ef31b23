#include <gtest/gtest.h>

#include <QCoreApplication>
#include <QTest>
#include <thread>
#include <vector>

#include "app/QtMainQueue.h"

namespace brindlet {
namespace {

TEST(QtMainQueue, RunsJobsInTheirOrderAndNotBeforeTheLoopTurns) {
    QtMainQueue queue;
    std::vector<int> order;
    for (int i = 0; i < 5; ++i) queue.post([&order, i] { order.push_back(i); });
    EXPECT_TRUE(order.empty());
    QCoreApplication::processEvents();
    EXPECT_EQ(order, (std::vector<int>{0, 1, 2, 3, 4}));
}

TEST(QtMainQueue, AHopFromAnotherThreadRunsOnTheMainThreadAndBringsItsResultBack) {
    QtMainQueue queue;
    std::optional<bool> onMain;
    bool callerOnMain = true;
    std::atomic<bool> over = false;
    std::thread thread([&] {
        callerOnMain = queue.isMainThread();
        onMain = hop(queue, [&] { return queue.isMainThread(); });
        over = true;
    });
    EXPECT_TRUE(QTest::qWaitFor([&] { return over.load(); }));
    thread.join();
    EXPECT_FALSE(callerOnMain);
    EXPECT_EQ(onMain, std::optional(true));
}

TEST(QtMainQueue, AfterTheEndAWaitingHopIsToldThatAllIsGone) {
    QtMainQueue queue;
    bool ran = false;
    std::optional<int> answer = 1;
    std::atomic<bool> asked = false;
    std::thread thread([&] {
        asked = true;
        answer = hop(queue, [&] {
            ran = true;
            return 2;
        });
    });
    while (!asked) std::this_thread::yield();
    queue.end();
    thread.join();
    EXPECT_FALSE(ran);
    EXPECT_EQ(answer, std::nullopt);
}

TEST(QtMainQueue, WhatIsPostedAfterTheEndIsDestroyedUnrun) {
    QtMainQueue queue;
    queue.end();
    auto held = std::make_shared<int>(0);
    queue.post([held] { ++*held; });
    QCoreApplication::processEvents();
    EXPECT_EQ(*held, 0);
    EXPECT_EQ(held.use_count(), 1);
}

}  // namespace
}  // namespace brindlet
