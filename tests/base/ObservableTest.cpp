#include "base/Observable.h"

#include <gtest/gtest.h>

#include <string>
#include <thread>
#include <vector>

namespace brindlet {
namespace {

struct Store : Observable {
    Published<int> limit{*this, 100};
    Published<std::vector<int>> items{*this};
};

TEST(Published, ObserversAreToldBeforeTheValueChanges) {
    Store store;
    std::vector<int> seen;
    const auto subscription = store.subscribe([&] { seen.push_back(store.limit.get()); });
    store.limit.set(500);
    store.limit.set(20);
    EXPECT_EQ(seen, (std::vector{100, 500}));
    EXPECT_EQ(*store.limit, 20);
}

TEST(Published, AnEqualValueIsAnAssignmentToo) {
    Store store;
    int told = 0;
    const auto subscription = store.subscribe([&] { ++told; });
    store.limit.set(100);
    EXPECT_EQ(told, 1);
    EXPECT_EQ(store.limit.revision(), 1u);
}

TEST(Published, AnEditInPlaceIsOneAssignment) {
    Store store;
    int told = 0;
    std::size_t sizeWhenTold = 9;
    const auto subscription = store.subscribe([&] {
        ++told;
        sizeWhenTold = store.items->size();
    });
    store.items.mutate([](std::vector<int>& items) {
        items.push_back(1);
        items.push_back(2);
    });
    EXPECT_EQ(told, 1);
    EXPECT_EQ(sizeWhenTold, 0u);
    EXPECT_EQ(store.items.get(), (std::vector{1, 2}));
    EXPECT_EQ(store.items.revision(), 1u);
    EXPECT_EQ(store.limit.revision(), 0u);
}

TEST(Observable, TellsInTheOrderOfSubscribing) {
    Store store;
    std::string order;
    const auto first = store.subscribe([&] { order += 'a'; });
    auto second = store.subscribe([&] { order += 'b'; });
    const auto third = store.subscribe([&] { order += 'c'; });
    store.willChange();
    second.cancel();
    second = store.subscribe([&] { order += 'd'; });
    store.willChange();
    EXPECT_EQ(order, "abcacd");
}

TEST(Subscription, EndsWithItsHolder) {
    Store store;
    int told = 0;
    {
        const auto subscription = store.subscribe([&] { ++told; });
        store.willChange();
    }
    store.willChange();
    EXPECT_EQ(told, 1);
}

TEST(Subscription, IsHandedOnByMoving) {
    Store store;
    std::string order;
    auto held = store.subscribe([&] { order += 'a'; });
    auto moved = std::move(held);
    store.willChange();
    moved = store.subscribe([&] { order += 'b'; });
    store.willChange();
    EXPECT_EQ(order, "ab");
}

TEST(Subscription, MayEndInsideItsOwnCallback) {
    Store store;
    int told = 0;
    Subscription own;
    own = store.subscribe([&, text = std::string(100, 'x')] {
        own.cancel();
        told += static_cast<int>(text.size());
    });
    store.willChange();
    store.willChange();
    EXPECT_EQ(told, 100);
}

TEST(Subscription, CancelledByAnEarlierObserverIsToldNoMore) {
    Store store;
    std::string order;
    Subscription second;
    const auto first = store.subscribe([&] {
        order += 'a';
        second.cancel();
    });
    second = store.subscribe([&] { order += 'b'; });
    const auto third = store.subscribe([&] { order += 'c'; });
    store.willChange();
    EXPECT_EQ(order, "ac");
}

TEST(Subscription, MadeInsideACallbackHearsOfTheNextChange) {
    Store store;
    std::string order;
    Subscription late;
    const auto first = store.subscribe([&] {
        order += 'a';
        if (order == "a") late = store.subscribe([&] { order += 'b'; });
    });
    store.willChange();
    EXPECT_EQ(order, "a");
    store.willChange();
    EXPECT_EQ(order, "aab");
}

TEST(Subscription, MayOutliveTheObservable) {
    Subscription subscription;
    {
        Store store;
        subscription = store.subscribe([] {});
    }
    subscription.cancel();
}

TEST(Subscription, AnObserverMayEndTheObservable) {
    auto store = std::make_unique<Store>();
    int told = 0;
    const auto first = store->subscribe([&] {
        ++told;
        store.reset();
    });
    const auto second = store->subscribe([&] { ++told; });
    store->willChange();
    EXPECT_EQ(told, 2);
}

#ifndef NDEBUG
TEST(ObservableDeathTest, BelongsToTheThreadThatMadeIt) {
    GTEST_FLAG_SET(death_test_style, "threadsafe");
    EXPECT_DEATH(
        {
            Store store;
            std::thread([&] { store.limit.set(1); }).join();
        },
        "main thread");
}
#endif

}  // namespace
}  // namespace brindlet
