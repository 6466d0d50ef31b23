#include "classify/Interner.h"

#include <gtest/gtest.h>

#include <random>
#include <string>
#include <unordered_map>

namespace brindlet {
namespace {

/// What follows the text differs from call to call, since it must not matter.
std::uint32_t number(Interner& interner, std::string text) {
    static char filler = 0;
    const auto size = text.size();
    text.append(Interner::padding, ++filler);
    return interner.number({text.data(), size});
}

TEST(Interner, NumbersTextsInTheOrderOfFirstSight) {
    Interner interner;
    EXPECT_EQ(number(interner, "shipped"), 0u);
    EXPECT_EQ(number(interner, "subscription"), 1u);
    EXPECT_EQ(number(interner, "shipped"), 0u);
    EXPECT_EQ(number(interner, ""), 2u);
    EXPECT_EQ(number(interner, "subscriptions"), 3u);
    EXPECT_EQ(number(interner, "subscription"), 1u);
    EXPECT_EQ(interner.text(1), "subscription");
    EXPECT_EQ(interner.text(2), "");
    EXPECT_EQ(interner.size(), 4u);
}

TEST(Interner, TellsTextsOfZerosApartByLength) {
    Interner interner;
    for (std::uint32_t length = 0; length < 40; ++length)
        EXPECT_EQ(number(interner, std::string(length, '\0')), length);
}

TEST(Interner, StartsAfreshAfterClear) {
    Interner interner;
    for (int i = 0; i < 1'000; ++i) number(interner, std::to_string(i));
    interner.clear();
    EXPECT_EQ(interner.size(), 0u);
    EXPECT_EQ(number(interner, "7"), 0u);
    EXPECT_EQ(number(interner, "3"), 1u);
}

TEST(Interner, NumbersAsAMapWould) {
    std::mt19937 random(1);
    Interner interner;
    for (int round = 0; round < 3; ++round) {
        interner.clear();
        std::unordered_map<std::string, std::uint32_t> map;
        for (int i = 0; i < 20'000; ++i) {
            std::string text;
            for (auto left = random() % 20; left > 0; --left)
                text += static_cast<char>('a' + random() % 2);
            const auto expected =
                map.emplace(text, static_cast<std::uint32_t>(map.size())).first->second;
            ASSERT_EQ(number(interner, text), expected) << text;
            ASSERT_EQ(interner.text(expected), text);
        }
    }
}

}  // namespace
}  // namespace brindlet
