#include "words/ReviewWords.h"

#include <gtest/gtest.h>

namespace brindlet {
namespace {

TEST(ReviewWords, OnlyTheLastCanBeJumpedTo) {
    const std::vector<std::string> reviewed = {"a.com", "b.com", "c.com"};
    EXPECT_EQ(reviewWords(reviewed, "a.com"), (ReviewWords{"Reviewed", ""}));
    EXPECT_EQ(reviewWords(reviewed, "c.com"),
              (ReviewWords{"Last reviewed", "Last reviewed - click to jump there"}));
    EXPECT_EQ(reviewWords(reviewed, "d.com"), ReviewWords{});
    EXPECT_EQ(reviewWords({}, "a.com"), ReviewWords{});
}

}  // namespace
}  // namespace brindlet
