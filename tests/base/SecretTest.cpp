#include "base/Secret.h"

#include <gtest/gtest.h>

#include <utility>

namespace brindlet {
namespace {

TEST(Secret, HoldsItsText) {
    EXPECT_TRUE(Secret().empty());
    EXPECT_TRUE(Secret("").empty());
    EXPECT_EQ(Secret("abcd efgh").text(), "abcd efgh");
    EXPECT_FALSE(Secret("a").empty());
}

TEST(Secret, JoinsPartsInOrder) {
    EXPECT_EQ(Secret::joined({"ab", "", "c", "def"}).text(), "abcdef");
    EXPECT_TRUE(Secret::joined({}).empty());
    EXPECT_TRUE(Secret::joined({"", ""}).empty());
}

TEST(Secret, LeavesNothingWhereItWasMovedFrom) {
    Secret first("abcd");
    Secret second(std::move(first));
    EXPECT_EQ(second.text(), "abcd");
    Secret third("other");
    third = std::move(second);
    EXPECT_EQ(third.text(), "abcd");
    // NOLINTBEGIN(bugprone-use-after-move): that is the claim
    EXPECT_TRUE(first.empty());
    EXPECT_TRUE(second.empty());
    // NOLINTEND(bugprone-use-after-move)
}

TEST(Secret, WipingATextEmptiesIt) {
    std::string text = "abcd";
    wipe(text);
    EXPECT_TRUE(text.empty());
    wipe(text);
}

}  // namespace
}  // namespace brindlet
