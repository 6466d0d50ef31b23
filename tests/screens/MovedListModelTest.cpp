#include "screens/results/MovedListModel.h"

#include <gtest/gtest.h>

#include <QAbstractItemModelTester>
#include <QSignalSpy>

#include "screens/Stage.h"
#include "screens/look/Tone.h"

namespace brindlet::testing {
namespace {

using Model = screens::MovedListModel;

/// The moved messages of a scan, without a window.
struct Gone {
    explicit Gone(void (*scene)(AppState&) = scenes::movedResults) {
        scene(*state);
        model.refresh();
    }
    ~Gone() { world.retire(); }
    Gone(const Gone&) = delete;
    Gone& operator=(const Gone&) = delete;

    QString text(int row, Model::Role role) const { return model.index(row).data(role).toString(); }

    doubles::World& world = doubles::World::lasting();
    std::shared_ptr<AppState> state = AppState::make(world.services(), 1);
    Model model{*state};
    QAbstractItemModelTester tester{&model, QAbstractItemModelTester::FailureReportingMode::Fatal};
};

void manyMoved(AppState& state) {
    state.verdicts.set(verdicts(50'000));
    state.movedAlready.mutate([&](auto& moved) {
        for (const auto& verdict : *state.verdicts)
            if (verdict.messageID) moved.insert(*verdict.messageID);
    });
}

TEST(MovedListModel, IsNotShownWhenNothingWasMoved) {
    const Gone gone(scenes::results);
    EXPECT_FALSE(gone.model.shown());
    EXPECT_EQ(gone.model.rowCount(), 0);
    EXPECT_EQ(gone.model.heading(), QString());
}

TEST(MovedListModel, ListsWhatWasMovedInTheOrderOfTheScan) {
    const Gone gone;
    ASSERT_TRUE(gone.model.shown());
    ASSERT_EQ(gone.model.rowCount(), 19) << "the one without an id is still there";
    EXPECT_EQ(gone.text(0, Model::TitleRole),
              QStringLiteral("New arrivals picked for you, number 1"));
    EXPECT_EQ(gone.text(0, Model::DetailRole),
              QStringLiteral("Quill & Thread <news@quill1.example>"));
    EXPECT_EQ(gone.text(0, Model::TickSymbolRole), QStringLiteral("checkmark.square.fill"));
    EXPECT_EQ(gone.text(1, Model::TitleRole), QStringLiteral("(no subject)"));
    EXPECT_EQ(gone.text(1, Model::TickSymbolRole), QStringLiteral("square"));
}

TEST(MovedListModel, TellsWhatItsHeaderShows) {
    const Gone gone;
    EXPECT_EQ(gone.model.heading(), QStringLiteral("Already moved to Brindlet Junk"));
    EXPECT_EQ(gone.model.badge(), QStringLiteral("DONE"));
    EXPECT_EQ(gone.model.badgeTone(), screens::tones::Green);
    EXPECT_EQ(gone.model.toPutBack(), QStringLiteral("1 to put back"));
    EXPECT_EQ(gone.model.putBackLabel(), QStringLiteral("Put 1 back in INBOX"));
    EXPECT_TRUE(gone.model.canPutBack());
    EXPECT_EQ(gone.model.scrollLine(), QStringLiteral("19 messages - scroll to see them all"));
    EXPECT_EQ(gone.model.description(), QStringLiteral("DONE, 1 to put back, Collapsed"));
}

TEST(MovedListModel, ATickIsOneNotificationToItsRowAlone) {
    Gone gone(manyMoved);
    ASSERT_GT(gone.model.rowCount(), 47'000);
    const QSignalSpy resets(&gone.model, &QAbstractItemModel::modelReset);
    const QSignalSpy changes(&gone.model, &QAbstractItemModel::dataChanged);
    gone.model.tick(40'000);
    gone.model.refresh();
    gone.model.refresh();
    ASSERT_EQ(changes.count(), 1);
    EXPECT_EQ(changes[0][0].toModelIndex().row(), 40'000);
    EXPECT_EQ(changes[0][1].toModelIndex().row(), 40'000);
    EXPECT_EQ(changes[0][2].value<QList<int>>(), QList<int>{Model::TickSymbolRole});
    EXPECT_EQ(resets.count(), 0);
    EXPECT_EQ(gone.model.toPutBack(), QStringLiteral("1 to put back"));
    gone.model.tick(40'000);
    gone.model.refresh();
    EXPECT_EQ(changes.count(), 2);
    EXPECT_EQ(gone.model.toPutBack(), QString());
}

TEST(MovedListModel, AFilterLeavesWhatHoldsItsTextInSenderOrSubject) {
    Gone gone;
    gone.model.setFilter(QStringLiteral("QUILL21."));
    EXPECT_EQ(gone.model.rowCount(), 5);
    gone.model.setFilter(QStringLiteral("number 21"));
    ASSERT_EQ(gone.model.rowCount(), 1);
    gone.model.tick(0);
    gone.model.refresh();
    EXPECT_EQ(*gone.state->putBack, (AppState::Ids{2, 22}));
    EXPECT_EQ(gone.text(0, Model::TickSymbolRole), QStringLiteral("checkmark.square.fill"));
    EXPECT_EQ(gone.model.scrollLine(), QStringLiteral("1 messages - scroll to see them all"));
    EXPECT_EQ(gone.model.toPutBack(), QStringLiteral("2 to put back")) << "the hidden one too";
    gone.model.setFilter(QStringLiteral("no such thing"));
    EXPECT_EQ(gone.model.rowCount(), 0);
    gone.model.setFilter({});
    EXPECT_EQ(gone.model.rowCount(), 19);
}

TEST(MovedListModel, ATickOutsideOfTheFilterTellsNobody) {
    Gone gone;
    gone.model.setFilter(QStringLiteral("number 21"));
    const QSignalSpy changes(&gone.model, &QAbstractItemModel::dataChanged);
    gone.state->togglePutBack(32);
    gone.model.refresh();
    EXPECT_EQ(changes.count(), 0);
}

TEST(MovedListModel, AFilterThatChangesNoRowsLeavesTheListAsItIs) {
    Gone gone;
    const QSignalSpy resets(&gone.model, &QAbstractItemModel::modelReset);
    gone.model.setFilter(QStringLiteral("quill"));
    EXPECT_EQ(resets.count(), 0);
    EXPECT_EQ(gone.model.filter(), QStringLiteral("quill"));
}

TEST(MovedListModel, AFilterStaysWhenSomeOfItsMessagesReturn) {
    Gone gone;
    gone.model.setExpanded(true);
    gone.model.setFilter(QStringLiteral("quill21."));
    gone.state->movedAlready.mutate([](auto& moved) { moved.erase("21@letters.example"); });
    gone.model.refresh();
    EXPECT_EQ(gone.model.rowCount(), 4);
    EXPECT_TRUE(gone.model.expanded());
}

TEST(MovedListModel, ClosesWhenTheLastMessageReturns) {
    Gone gone;
    gone.model.setExpanded(true);
    gone.model.setFilter(QStringLiteral("quill"));
    gone.state->movedAlready.set({});
    gone.model.refresh();
    EXPECT_FALSE(gone.model.shown());
    EXPECT_FALSE(gone.model.expanded());
    EXPECT_EQ(gone.model.filter(), QString());
    EXPECT_EQ(gone.model.rowCount(), 0);
}

TEST(MovedListModel, ARowThatIsNotThereIsNotTicked) {
    Gone gone;
    for (const int row : {-1, 19, 99}) gone.model.tick(row);
    EXPECT_EQ(*gone.state->putBack, AppState::Ids{2});
    gone.state->verdicts.set(verdicts(50));
    gone.model.tick(1);
    EXPECT_EQ(*gone.state->putBack, AppState::Ids{2}) << "the row is of another list";
}

TEST(MovedListModel, StandsWithoutRowsWhereAnotherScanIsOnShow) {
    Gone gone;
    gone.state->movedAlready.set({"elsewhere@letters.example"});
    gone.model.refresh();
    EXPECT_TRUE(gone.model.shown());
    EXPECT_EQ(gone.model.rowCount(), 0);
}

}  // namespace
}  // namespace brindlet::testing
