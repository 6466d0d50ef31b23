#include "mover/MenuReport.h"

#include <gtest/gtest.h>

namespace brindlet {
namespace {

using IDs = std::set<std::string>;

TEST(MenuList, HasAnIdBetweenTwoLineBreaksEachInAscendingOrder) {
    EXPECT_EQ(menuList({"b@x", "ü@x", "B@x", "a@x"}), "\nB@x\na@x\nb@x\nü@x\n");
    EXPECT_EQ(menuList({"a@x"}), "\na@x\n");
}

TEST(MenuResult, IsSplitAtTheFirstTwoBars) {
    const struct {
        std::string_view output;
        std::int64_t gone;
        std::string_view rest;
    } rows[] = {
        {"5|2|a@x\nb|c@x\n", 2, "a@x\nb|c@x\n"},
        {"0|0|none of them are in INBOX\n", 0, "none of them are in INBOX\n"},
        {"5|0|", 0, ""},
        {"5|-1|x", -1, "x"},
        {"+5|+2||a", 2, "|a"},
    };
    for (const auto& row : rows) {
        SCOPED_TRACE(row.output);
        const auto result = parseMenuResult(row.output);
        ASSERT_TRUE(result);
        EXPECT_EQ(result->gone, row.gone);
        EXPECT_EQ(result->rest, row.rest);
    }
}

TEST(MenuResult, IsNoneWithoutTwoNumbersAndTwoBars) {
    for (const auto* output : {"", "\n", "5", "5|2", "|2|a", "3||a", "||", "five|2|a", "5|two|a",
                               " 5|2|a", "5|2 |a", "5.0|2|a", "execution error"})
        EXPECT_FALSE(parseMenuResult(output)) << output;
}

TEST(GoneIDs, AreLinesWithoutSpacesAndTabsAround) {
    EXPECT_EQ(parseGoneIDs("b@x\na@x\n"), (IDs{"a@x", "b@x"}));
    EXPECT_EQ(parseGoneIDs(" \t\n\n \ta@x \t\n"), IDs{"a@x"});
    EXPECT_EQ(parseGoneIDs("a@x\r\n\u00a0"), (IDs{"a@x\r", "\u00a0"})) << "all else belongs to it";
    EXPECT_EQ(parseGoneIDs(""), IDs());
}

}  // namespace
}  // namespace brindlet
