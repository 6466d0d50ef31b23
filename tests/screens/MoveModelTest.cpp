#include "screens/results/MoveModel.h"

#include <gtest/gtest.h>

#include <QSignalSpy>

#include "screens/Review.h"
#include "screens/look/Tone.h"

namespace brindlet::testing {
namespace {

using screens::DestinationsModel;
using screens::MoveModel;

Review twoAds() {
    return Review({Review::ad("A <ann@a.example>", "1"), Review::ad("B <ben@b.example>", "2")});
}

TEST(MoveModel, TellsOnceOfTenChangesAndNotOfTheSame) {
    auto review = twoAds();
    auto& move = *review.results.move();
    const QSignalSpy words(&move, &MoveModel::wordsChanged);
    for (int i = 0; i < 9; ++i) review.state->toggleMessage(1);
    review.results.refresh();
    EXPECT_EQ(words.count(), 1);
    EXPECT_EQ(move.label(), "Move 1 to Brindlet Junk");
    review.state->moveTotal.set(7);
    review.results.refresh();
    EXPECT_EQ(words.count(), 1) << "nothing runs that it could be the total of";
}

TEST(MoveModel, TheStatusHasTheToneOfHowItGoes) {
    auto review = twoAds();
    auto& state = *review.state;
    auto& move = *review.results.move();
    EXPECT_FALSE(move.hasStatus());
    state.moveNote.set("Moved 1 into Bulk");
    review.results.refresh();
    EXPECT_EQ(move.statusTone(), screens::tones::Green);
    EXPECT_EQ(move.statusSymbol(), "checkmark.circle.fill");
    for (const std::int64_t moved : {0, 3}) {
        state.movedCount.set(moved);
        state.moveError.set("It broke.");
        review.results.refresh();
        EXPECT_EQ(move.statusTone(), screens::tones::Orange);
        EXPECT_EQ(move.statusSymbol(), "exclamationmark.triangle.fill");
    }
    state.moving.set(true);
    review.results.refresh();
    EXPECT_EQ(move.statusTone(), screens::tones::Plain);
    EXPECT_EQ(move.statusSymbol(), "");
    EXPECT_EQ(move.statusTitle(), "Working");
}

TEST(MoveModel, ChoosesOnlyWhatIsOnTheList) {
    auto review = twoAds();
    auto& move = *review.results.move();
    ASSERT_EQ(move.destinations()->rowCount(), 1);
    for (const int row : {-1, 1}) move.choose(row);
    EXPECT_TRUE(review.state->destinations.byAccount->empty());
    move.choose(0);
    EXPECT_EQ(review.state->destinations.byAccount->at("A1"), "Brindlet Junk");
}

TEST(MoveModel, AnotherChoiceChangesRowsAndDoesNotMakeThemAnew) {
    auto review = twoAds();
    auto& move = *review.results.move();
    auto& destinations = *move.destinations();
    const QAbstractItemModelTester tester(&destinations,
                                          QAbstractItemModelTester::FailureReportingMode::Fatal);
    review.state->account.mutate([](auto& account) {
        account->folders.push_back({2, "Junk", 5, MailFolder::Role::junk});
    });
    review.results.refresh();
    const QSignalSpy changes(&destinations, &DestinationsModel::dataChanged);
    const QSignalSpy resets(&destinations, &DestinationsModel::modelReset);
    move.choose(1);
    review.results.refresh();
    EXPECT_EQ(changes.count(), 2);
    EXPECT_EQ(resets.count(), 0);
    EXPECT_TRUE(destinations.index(1).data(DestinationsModel::ChosenRole).toBool());
    EXPECT_EQ(destinations.index(0).data(DestinationsModel::SymbolRole), "");
    EXPECT_EQ(move.label(), "Move 2 to Brindlet Junk");
}

}  // namespace
}  // namespace brindlet::testing
