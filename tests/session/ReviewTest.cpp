#include <gtest/gtest.h>

#include "session/ReviewFixture.h"

namespace brindlet {
namespace {

TEST_F(ReviewTest, ResultsArePartedByWhatWasMoved) {
    addVerdicts(3, "a@x.example", "News");
    addVerdict("b@x.example", "A bill", Category::billOrPayment);
    list[1].messageID.reset();
    list[3].vetoed = true;
    show();
    state->movedAlready.set({"1@example", "elsewhere@example"});
    EXPECT_EQ(state->remainingVerdicts(), (std::vector<std::uint32_t>{1, 2, 3}));
    EXPECT_EQ(state->movedVerdicts(), (std::vector<std::uint32_t>{0}));
    EXPECT_EQ(state->remainingJunk(), 2);
    EXPECT_EQ(state->remainingKept(), 1);
    EXPECT_EQ(state->protectedCount(), 1);
    EXPECT_EQ(state->tickedCount(Category::newsletterOrDigest), 1) << "moved ones do not count";
    EXPECT_EQ(state->tickedCount(Category::billOrPayment), 0);
    state->movedAlready.set({});
    EXPECT_EQ(state->tickedCount(Category::newsletterOrDigest), 2);
    EXPECT_TRUE(state->movedVerdicts().empty());
}

TEST_F(ReviewTest, NothingToShowNeedsNoErrorNothingFoundAndNoMove) {
    EXPECT_TRUE(state->resultsEmpty());
    state->scanError.set("stopped");
    EXPECT_FALSE(state->resultsEmpty());
    state->scanError.set(std::nullopt);
    state->moving.set(true);
    EXPECT_FALSE(state->resultsEmpty());
    state->moving.set(false);
    addVerdict("a@x.example", "News");
    show();
    EXPECT_FALSE(state->resultsEmpty());
    state->movedAlready.set({"1@example"});
    EXPECT_FALSE(state->resultsEmpty()) << "all moved is something to show";
}

}  // namespace
}  // namespace brindlet
