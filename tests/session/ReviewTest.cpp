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

TEST_F(ReviewTest, CountsFollowTheTicks) {
    addVerdicts(3, "a@x.example", "News");
    show();
    EXPECT_EQ(state->tickedCount(Category::newsletterOrDigest), 3);
    state->toggleMessage(2);
    EXPECT_EQ(state->tickedCount(Category::newsletterOrDigest), 2);
    list.pop_back();
    state->verdicts.set(VerdictList(list));
    EXPECT_EQ(state->tickedCount(Category::newsletterOrDigest), 1) << "of those on show";
    EXPECT_EQ(state->remainingJunk(), 2);
}

TEST_F(ReviewTest, OfAFinishedScanBeginsWithItsProposals) {
    addVerdicts(2, "old@x.example", "Earlier news");
    show();
    const auto id = add("a@x.example", "Sale");
    answerBySubject({{"Sale", "advertisingOrPromotion"}});
    scan();
    EXPECT_EQ(state->index().ids(), AppState::Ids{id});
    EXPECT_EQ(state->index().find(id), 0u);
    EXPECT_EQ(state->index().groupWithKey("old@x.example"), std::nullopt);
    EXPECT_EQ(state->tickedCount(Category::advertisingOrPromotion), 1);
    EXPECT_EQ(state->remainingVerdicts().size(), 1u);
}

TEST_F(ReviewTest, OfTheScanBeforeEndsWhenAScanStarts) {
    addVerdicts(3, "a@x.example", "News");
    show();
    state->toggleMessage(1);
    ASSERT_TRUE(state->pending->has_value());
    ASSERT_FALSE(state->families.empty());
    state->movedCount.set(1);
    state->moveTotal.set(2);
    state->moveNote.set("Moved 1");
    state->moveError.set("An error");
    state->pastMove.set(AppState::PastMove{"a", "b"});
    state->movedAlready.set({"2@example"});
    state->putBack.set({2});
    add("b@x.example", "Hello");
    state->startScan(account(), inbox());
    EXPECT_TRUE(state->families.empty());
    EXPECT_EQ(*state->movedCount, 0);
    EXPECT_EQ(*state->moveTotal, 0);
    EXPECT_EQ(*state->moveNote, "");
    EXPECT_EQ(*state->moveError, std::nullopt);
    EXPECT_EQ(*state->pending, std::nullopt);
    EXPECT_EQ(*state->pastMove, std::nullopt);
    EXPECT_TRUE(state->movedAlready->empty());
    // What follows keeps its value until the scan has found something, or for good.
    EXPECT_EQ(*state->approved, (AppState::Ids{2, 3}));
    EXPECT_EQ(*state->learned, 1);
    EXPECT_EQ(*state->putBack, AppState::Ids{2});
    finishTask();
}

// Templates are of all that a sender wrote, so more of it makes others.
TEST_F(ReviewTest, ForgetsTemplatesWheneverAScanShowsMore) {
    addMany(24);
    state->startScan(account(), inbox());
    ASSERT_TRUE(world.mainQueue.pumpUntil([&] { return *state->done > 0; }));
    state->families["x.example"] = {{1, {"from", "before"}}};
    const auto shown = *state->done;
    ASSERT_TRUE(world.mainQueue.pumpUntil([&] { return *state->done > shown; }));
    EXPECT_TRUE(state->families.empty());
    state->families["x.example"] = {{1, {"from", "before"}}};
    finishTask();
    EXPECT_TRUE(state->families.empty());
}

}  // namespace
}  // namespace brindlet
