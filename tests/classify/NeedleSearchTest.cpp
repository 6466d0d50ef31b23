#include "classify/NeedleSearch.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <random>
#include <string>

namespace brindlet {
namespace {

using Needles = std::vector<std::string_view>;

TEST(NeedleSearch, FindsNeedlesAnywhereInBothCases) {
    const NeedleSearch search(Needles{"order #", "refund", "fun"});
    for (const std::string_view text :
         {"refund", "REFUND", "xxReFuNdxx", "no fun", "ordeorder #1", "refun", "orderefund"})
        EXPECT_TRUE(search.anyIn(text)) << text;
    for (const std::string_view text : {"", "refu", "order", "order!#", "re fu nd", "order \x03"})
        EXPECT_FALSE(search.anyIn(text)) << text;
}

TEST(NeedleSearch, OtherBytesStandForThemselves) {
    const NeedleSearch search(Needles{"\u017f", "[x"});
    EXPECT_TRUE(search.anyIn("a\u017f"));
    EXPECT_FALSE(search.anyIn("\u017e"));
    EXPECT_TRUE(search.anyIn("[X"));
    EXPECT_FALSE(search.anyIn("{x"));
}

TEST(NeedleSearch, NeedleInsideAnotherIsFound) {
    const NeedleSearch search(Needles{"abcdx", "bc", "bcd"});
    EXPECT_TRUE(search.anyIn("abcz"));
    EXPECT_TRUE(search.anyIn("aabc"));
    EXPECT_FALSE(search.anyIn("ab cd"));
}

TEST(NeedleSearch, NoNeedleIsNowhere) {
    EXPECT_FALSE(NeedleSearch(Needles{}).anyIn("abc"));
}

TEST(NeedleSearch, FindsWhatSearchingNeedleByNeedleFinds) {
    std::mt19937 random(1);
    const auto text = [&](std::size_t most) {
        std::string made;
        for (auto left = random() % (most + 1); left > 0; --left) made += "abcABC "[random() % 7];
        return made;
    };
    int hits = 0;
    constexpr int rounds = 5'000;
    for (int round = 0; round < rounds; ++round) {
        std::vector<std::string> owned;
        for (auto left = random() % 6; left > 0; --left) owned.push_back("a" + text(4));
        const NeedleSearch search(Needles(owned.begin(), owned.end()));
        const auto hay = text(12);
        const bool expected = std::any_of(owned.begin(), owned.end(), [&](const auto& needle) {
            return std::search(hay.begin(), hay.end(), needle.begin(), needle.end(),
                               [](char a, char b) { return (a | 32) == (b | 32); }) != hay.end();
        });
        ASSERT_EQ(search.anyIn(hay), expected) << hay;
        hits += expected;
    }
    EXPECT_GT(hits, rounds / 10);
    EXPECT_LT(hits, rounds - rounds / 10);
}

}  // namespace
}  // namespace brindlet
