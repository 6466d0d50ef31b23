#include "screens/results/UndoModel.h"

#include <gtest/gtest.h>

#include <QSignalSpy>

#include "screens/Review.h"

namespace brindlet::testing {
namespace {

TEST(UndoModel, UndoesASweep) {
    Review review({Review::ad("A <ann@a.example>", "1"), Review::ad("A <ann@a.example>", "2")});
    auto& undo = *review.results.undo();
    EXPECT_FALSE(undo.shown());
    EXPECT_EQ(undo.text(), "");
    review.results.tickCategory(0);
    review.results.refresh();
    EXPECT_TRUE(undo.shown());
    EXPECT_EQ(undo.symbol(), "arrow.uturn.backward");
    EXPECT_EQ(undo.text(), "unticked all ads & promotions");
    EXPECT_EQ(undo.label(), "Undo");
    EXPECT_EQ(undo.help(), "Put those 2 messages back exactly as they were");
    undo.press();
    EXPECT_EQ(*review.state->approved, (IdSet{1, 2}));
    review.results.refresh();
    EXPECT_FALSE(undo.shown());
}

TEST(UndoModel, TellsOnceOfTenChangesAndNotOfTheSame) {
    Review review({Review::ad("A", "1")});
    auto& undo = *review.results.undo();
    const QSignalSpy words(&undo, &screens::UndoModel::wordsChanged);
    for (int i = 0; i < 10; ++i) review.results.tickCategory(0);
    review.results.refresh();
    EXPECT_EQ(words.count(), 1);
    review.state->lastSweep.set(AppState::Sweep(**review.state->lastSweep));
    review.results.refresh();
    EXPECT_EQ(words.count(), 1);
}

}  // namespace
}  // namespace brindlet::testing
