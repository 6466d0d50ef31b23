#include "base/Result.h"

#include <gtest/gtest.h>

#include <memory>
#include <string>
#include <string_view>
#include <utility>

namespace brindlet {
namespace {

using Count = Result<int, std::string>;

TEST(Result, IsAValueOrAFailure) {
    const Count value = 7;
    ASSERT_TRUE(value);
    EXPECT_EQ(*value, 7);
    const Count failure = std::string("no");
    ASSERT_FALSE(failure);
    EXPECT_EQ(failure.failure(), "no");
}

TEST(Result, TellsThemApartWhereOneTurnsIntoTheOther) {
    using Text = Result<std::string, std::string_view>;
    EXPECT_TRUE(Text(std::string("yes")));
    EXPECT_FALSE(Text(std::string_view("no")));
}

TEST(Result, GivesItsValueAway) {
    Result<std::unique_ptr<int>, std::string> value = std::make_unique<int>(7);
    ASSERT_TRUE(value);
    EXPECT_EQ(*value->get(), 7);
    const auto taken = std::move(*value);
    EXPECT_EQ(*taken, 7);
    EXPECT_EQ(*value, nullptr);
}

}  // namespace
}  // namespace brindlet
