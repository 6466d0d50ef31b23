#include "base/IdSet.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <iterator>
#include <limits>
#include <random>
#include <set>
#include <thread>

namespace brindlet {
namespace {

using Naive = std::set<std::int64_t>;
constexpr auto least = std::numeric_limits<std::int64_t>::min();
constexpr auto most = std::numeric_limits<std::int64_t>::max();

Naive listed(const IdSet& set) {
    const std::vector<std::int64_t> ids(set.begin(), set.end());
    EXPECT_TRUE(std::is_sorted(ids.begin(), ids.end()));
    EXPECT_EQ(ids.size(), set.size());
    return {ids.begin(), ids.end()};
}

TEST(IdSet, BeginsEmpty) {
    const IdSet set;
    EXPECT_TRUE(set.empty());
    EXPECT_EQ(set.begin(), set.end());
    EXPECT_FALSE(set.contains(0));
}

TEST(IdSet, TakesIdsInAnyOrderAndMoreThanOnce) {
    EXPECT_EQ(listed(IdSet{3, -1, 3, 700}), (Naive{-1, 3, 700}));
    EXPECT_EQ(IdSet(std::vector<std::int64_t>{3, -1, 3, 700}), (IdSet{700, 3, -1}));
}

TEST(IdSet, TellsWhetherAnIdWasThere) {
    IdSet set;
    EXPECT_TRUE(set.insert(5));
    EXPECT_FALSE(set.insert(5));
    EXPECT_TRUE(set.erase(5));
    EXPECT_FALSE(set.erase(5));
    EXPECT_FALSE(set.erase(99'999));
    EXPECT_TRUE(set.empty());
}

TEST(IdSet, HoldsTheEndsOfTheRangeAndTheEdgesOfItsBitmaps) {
    const Naive ids = {least, least + 1, -513, -512, -511, -1, 0, 1, 63, 64, 511, 512, 1023, most};
    IdSet set;
    for (const auto id : ids) EXPECT_TRUE(set.insert(id)) << id;
    EXPECT_EQ(listed(set), ids);
    for (const auto id : ids) EXPECT_TRUE(set.contains(id)) << id;
    for (const auto id : {least + 2, std::int64_t{-514}, std::int64_t{2}, most - 1})
        EXPECT_FALSE(set.contains(id)) << id;
}

TEST(IdSet, IsEqualByWhatItHoldsAndNotByHowItCameAbout) {
    IdSet emptied{1, 5000};
    emptied.erase(1);
    emptied.erase(5000);
    EXPECT_EQ(emptied, IdSet());
    IdSet again = emptied;
    again.insert(7);
    EXPECT_NE(again, emptied);
    EXPECT_EQ(again, IdSet{7});
    EXPECT_NE(IdSet{7}, IdSet{8});
    EXPECT_NE(IdSet{7}, IdSet{7 + 512});
}

TEST(IdSet, CopiesGoTheirOwnWays) {
    IdSet first{1, 2, 600};
    IdSet second = first;
    second.erase(2);
    first.insert(3);
    EXPECT_EQ(first, (IdSet{1, 2, 3, 600}));
    EXPECT_EQ(second, (IdSet{1, 600}));
    const IdSet third = second;
    second.insertAll(first);
    EXPECT_EQ(third, (IdSet{1, 600}));
    first = third;
    first.insert(4);
    EXPECT_EQ(third, (IdSet{1, 600}));
}

TEST(IdSet, WhatWasMovedFromIsEmpty) {
    IdSet source{1, 2};
    const IdSet target = std::move(source);
    EXPECT_EQ(target, (IdSet{1, 2}));
    EXPECT_TRUE(source.empty());  // NOLINT(bugprone-use-after-move): this is what is tested
    EXPECT_EQ(source, IdSet());
}

TEST(IdSet, CombinesWithItself) {
    IdSet set{1, 2, 600};
    set.insertAll(set);
    EXPECT_EQ(set, (IdSet{1, 2, 600}));
    EXPECT_EQ(set.common(set), set);
    EXPECT_EQ(set.countCommon(set), 3u);
    set.eraseAll(set);
    EXPECT_EQ(set, IdSet());
}

// A thread may still read its copy while the set that it was copied from is written.
TEST(IdSet, DifferenceIsWhatOnlyOneHolds) {
    const struct {
        IdSet a;
        IdSet b;
        std::vector<std::int64_t> difference;
    } rows[] = {
        {{}, {}, {}},
        {{1, 2, 700}, {1, 2, 700}, {}},
        {{1, 2, 700}, {2, 3}, {1, 3, 700}},
        {{}, {-5, 5000}, {-5, 5000}},
        {{1, 1024}, {512, 2048}, {1, 512, 1024, 2048}},
    };
    for (const auto& row : rows) {
        EXPECT_EQ(row.a.difference(row.b), row.difference);
        EXPECT_EQ(row.b.difference(row.a), row.difference);
    }
    IdSet copy = rows[1].a;
    EXPECT_TRUE(copy.difference(rows[1].a).empty());
    copy.erase(2);
    EXPECT_EQ(copy.difference(rows[1].a), std::vector<std::int64_t>{2});
}

TEST(IdSet, CopyIsReadOnAnotherThreadWhileTheFirstIsWritten) {
    IdSet set;
    for (std::int64_t id = 0; id < 2000; ++id) set.insert(id);
    for (int round = 0; round < 20; ++round) {
        std::size_t counted = 0;
        std::thread reader([copy = set, &counted] {
            counted = static_cast<std::size_t>(std::distance(copy.begin(), copy.end()));
        });
        const auto before = set.size();
        for (std::int64_t id = round; id < 2000; id += 7)
            if (!set.erase(id)) set.insert(id);
        reader.join();
        EXPECT_EQ(counted, before);
    }
}

/// How ids are strewn: the more, the sparser.
class RandomIdSet : public testing::TestWithParam<std::int64_t> {};

TEST_P(RandomIdSet, DoesWhatAnOrderedSetDoes) {
    std::mt19937 random(1);
    const auto range = GetParam();
    const auto draw = [&] {
        return std::uniform_int_distribution<std::int64_t>(-range, range)(random);
    };
    constexpr std::size_t count = 3;
    IdSet sets[count];
    Naive naive[count];
    for (int step = 0; step < 6000; ++step) {
        SCOPED_TRACE(step);
        const auto one = random() % count, other = random() % count;
        switch (random() % 40) {
            case 0:
                sets[one] = sets[other];
                naive[one] = naive[other];
                break;
            case 1:
                sets[one].insertAll(sets[other]);
                naive[one].merge(Naive(naive[other]));
                break;
            case 2: {
                sets[one].eraseAll(sets[other]);
                const auto gone = naive[other];
                for (const auto id : gone) naive[one].erase(id);
                break;
            }
            case 3: {
                Naive shared;
                std::set_intersection(naive[one].begin(), naive[one].end(), naive[other].begin(),
                                      naive[other].end(), std::inserter(shared, shared.end()));
                EXPECT_EQ(sets[one].countCommon(sets[other]), shared.size());
                EXPECT_EQ(listed(sets[one].common(sets[other])), shared);
                break;
            }
            case 4: {
                std::vector<std::int64_t> ids(random() % 50);
                std::generate(ids.begin(), ids.end(), draw);
                sets[one] = IdSet(ids);
                naive[one] = Naive(ids.begin(), ids.end());
                break;
            }
            default: {
                const auto id = draw();
                EXPECT_EQ(sets[one].contains(id), naive[one].contains(id));
                if (random() % 2)
                    EXPECT_EQ(sets[one].insert(id), naive[one].insert(id).second);
                else
                    EXPECT_EQ(sets[one].erase(id), naive[one].erase(id) > 0);
            }
        }
        EXPECT_EQ(sets[one].size(), naive[one].size());
        EXPECT_EQ(sets[one] == sets[other], naive[one] == naive[other]);
        if (step % 16 == 0) {
            EXPECT_EQ(listed(sets[one]), naive[one]);
        }
        if (HasFailure()) return;
    }
}

INSTANTIATE_TEST_SUITE_P(Strewn, RandomIdSet, testing::Values(40, 700, 50'000, most / 2));

}  // namespace
}  // namespace brindlet
