#include "sample/Random.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <array>
#include <numeric>

namespace brindlet::sample {
namespace {

TEST(Random, GivesThePublishedSequence) {
    Random random(1234567);
    EXPECT_EQ(random.next(), 6457827717110365317u);
    EXPECT_EQ(random.next(), 3203168211198807973u);
    EXPECT_EQ(random.next(), 9817491932198370423u);
}

TEST(Random, BetweenReachesBothEndsAndNoFurther) {
    Random random(1);
    std::array<int, 4> hits{};
    for (int i = 0; i < 1000; ++i) {
        const std::uint64_t number = random.between(5, 8);
        ASSERT_GE(number, 5u);
        ASSERT_LE(number, 8u);
        ++hits[number - 5];
    }
    for (const int count : hits) EXPECT_GT(count, 150);
}

TEST(Random, ChanceFollowsItsPermille) {
    Random random(2);
    int hits = 0;
    for (int i = 0; i < 10'000; ++i) hits += random.chance(140) ? 1 : 0;
    EXPECT_NEAR(hits, 1400, 120);
    EXPECT_FALSE(random.chance(0));
    EXPECT_TRUE(random.chance(1000));
}

TEST(Random, ShuffleKeepsTheElementsAndMovesThem) {
    std::array<int, 100> numbers{};
    std::iota(numbers.begin(), numbers.end(), 0);
    const auto sorted = numbers;
    Random(3).shuffle(numbers);
    EXPECT_NE(numbers, sorted);
    std::sort(numbers.begin(), numbers.end());
    EXPECT_EQ(numbers, sorted);
}

TEST(Random, MixedDependsOnBothParts) {
    EXPECT_EQ(mixed(1, 2), mixed(1, 2));
    EXPECT_NE(mixed(1, 2), mixed(2, 1));
    EXPECT_NE(mixed(1, 2), mixed(1, 3));
}

}  // namespace
}  // namespace brindlet::sample
