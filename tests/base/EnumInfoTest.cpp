#include "base/EnumInfo.h"

#include <gtest/gtest.h>

namespace brindlet {

enum class Fruit { pear, apple, plum };

template <>
struct EnumInfo<Fruit> {
    static constexpr std::array<std::pair<Fruit, std::string_view>, 3> all{{
        {Fruit::apple, "apple"},
        {Fruit::pear, "pear"},
        {Fruit::plum, "bluePlum"},
    }};
};

namespace {

TEST(EnumInfo, GoesFromValueToTextAndBack) {
    for (const auto fruit : allCases<Fruit>()) EXPECT_EQ(fromRaw<Fruit>(rawValue(fruit)), fruit);
    EXPECT_EQ(rawValue(Fruit::plum), "bluePlum");
    EXPECT_EQ(rawValue(static_cast<Fruit>(9)), "");
}

TEST(EnumInfo, TextsAreExactAndCaseSensitive) {
    for (const char* text : {"", "Apple", "plum", "apple ", "blueplum"})
        EXPECT_EQ(fromRaw<Fruit>(text), std::nullopt) << text;
}

TEST(EnumInfo, CasesComeInTheOrderOfTheTable) {
    EXPECT_EQ(allCases<Fruit>(), (std::array{Fruit::apple, Fruit::pear, Fruit::plum}));
}

}  // namespace
}  // namespace brindlet
