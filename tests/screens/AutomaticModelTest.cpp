#include "screens/automatic/AutomaticModel.h"

#include <gtest/gtest.h>

#include <QAbstractItemModelTester>
#include <QSignalSpy>

#include "screens/Stage.h"

namespace brindlet::testing {
namespace {

using screens::AutomaticModel;
using screens::ChoicesModel;
using screens::ModesModel;
using screens::WatchListModel;

/// The schedule's screen without a window, over two accounts of which the first has two folders.
struct Automatic {
    Automatic() {
        using Role = MailFolder::Role;
        state->accounts.set({{"A1",
                              "ann@x.example",
                              "Ann",
                              {{1, "INBOX", 10, Role::inbox}, {2, "Lists", 3, Role::custom}}},
                             {"B2", "bea@x.example", "Bea", {{3, "INBOX", 1, Role::inbox}}}});
        model.refresh();
    }
    ~Automatic() {
        world.mainQueue.end();
        world.clock.advance(1);
        if (state->automaticTask()) state->automaticTask()->wait();
        world.retire();
    }

    WatchListModel& boxes() { return *model.mailboxes(); }
    QVariant box(int row, WatchListModel::Role role) { return boxes().index(row).data(role); }
    QVariant mode(int row, ModesModel::Role role) { return model.modes()->index(row).data(role); }

    doubles::World& world = doubles::World::lasting();
    std::shared_ptr<AppState> state = AppState::make(world.services(), 1);
    AutomaticModel model{*state};
    QAbstractItemModelTester boxesTester{model.mailboxes(),
                                         QAbstractItemModelTester::FailureReportingMode::Fatal};
    QAbstractItemModelTester modesTester{model.modes(),
                                         QAbstractItemModelTester::FailureReportingMode::Fatal};
};

TEST(AutomaticModel, TheSwitchTurnsTheScheduleOnAndOffAndForgetsNothing) {
    Automatic automatic;
    automatic.state->schedule.toggle("A1", "INBOX");
    EXPECT_FALSE(automatic.model.enabled());
    EXPECT_EQ(automatic.model.summary(), QStringLiteral("Off"));
    automatic.model.setEnabled(true);
    automatic.model.refresh();
    EXPECT_TRUE(automatic.model.enabled());
    EXPECT_EQ(automatic.model.mailboxesNote(), QStringLiteral("1 picked"));
    automatic.model.setEnabled(false);
    automatic.model.setEnabled(true);
    automatic.model.refresh();
    EXPECT_EQ(automatic.model.mailboxesNote(), QStringLiteral("1 picked")) << "the earlier picks";
}

TEST(AutomaticModel, TellsOfAChangeOnceAndOnlyThen) {
    Automatic automatic;
    const QSignalSpy changed(&automatic.model, &AutomaticModel::changed);
    automatic.model.refresh();
    EXPECT_EQ(changed.count(), 0);
    automatic.model.setEnabled(true);
    automatic.model.refresh();
    automatic.model.refresh();
    EXPECT_EQ(changed.count(), 1);
}

TEST(AutomaticModel, AnAccountOpensToItsFolders) {
    Automatic automatic;
    ASSERT_EQ(automatic.boxes().rowCount(), 2);
    EXPECT_TRUE(automatic.box(0, WatchListModel::IsAccountRole).toBool());
    EXPECT_EQ(automatic.box(0, WatchListModel::NameRole), QStringLiteral("ann@x.example"));
    EXPECT_EQ(automatic.box(0, WatchListModel::DescriptionRole), QStringLiteral("Collapsed"));
    automatic.boxes().press(0);
    ASSERT_EQ(automatic.boxes().rowCount(), 4);
    EXPECT_TRUE(automatic.box(0, WatchListModel::OpenRole).toBool());
    EXPECT_EQ(automatic.box(0, WatchListModel::ChevronRole), QStringLiteral("chevron.up"));
    EXPECT_EQ(automatic.box(0, WatchListModel::DescriptionRole), QStringLiteral("Expanded"));
    EXPECT_EQ(automatic.box(1, WatchListModel::SymbolRole), QStringLiteral("square"));
    EXPECT_EQ(automatic.box(1, WatchListModel::NoteRole),
              QStringLiteral("what's sitting in your inbox now"));
    automatic.boxes().press(0);
    EXPECT_EQ(automatic.boxes().rowCount(), 2);
    automatic.boxes().press(1);
    automatic.model.leave();
    EXPECT_EQ(automatic.boxes().rowCount(), 2) << "closed when the screen is left";
}

TEST(AutomaticModel, AnAccountIsOpenedAndClosedFromItsOwnRowAlone) {
    Automatic automatic;
    automatic.boxes().setOpen(0, true);
    automatic.boxes().setOpen(0, true);
    ASSERT_EQ(automatic.boxes().rowCount(), 4);
    for (const int row : {1, 2, -1, 4}) automatic.boxes().setOpen(row, false);
    EXPECT_EQ(automatic.boxes().rowCount(), 4);
    const std::vector<std::pair<int, int>> accounts{{0, 0}, {1, 0}, {2, 0}, {3, 3}, {-1, -1}};
    for (const auto& [row, account] : accounts)
        EXPECT_EQ(automatic.boxes().accountRow(row), account) << row;
    automatic.boxes().setOpen(0, false);
    EXPECT_EQ(automatic.boxes().rowCount(), 2);
}

TEST(AutomaticModel, WhatIsPickedStandsOpenWhenTheScreenAppears) {
    Automatic automatic;
    automatic.state->schedule.toggle("B2", "INBOX");
    automatic.model.appear();
    automatic.model.refresh();
    ASSERT_EQ(automatic.boxes().rowCount(), 3);
    EXPECT_EQ(automatic.box(0, WatchListModel::DescriptionRole), QStringLiteral("Collapsed"));
    EXPECT_TRUE(automatic.box(2, WatchListModel::TickedRole).toBool());
    ASSERT_TRUE(
        automatic.world.mainQueue.pumpUntil([&] { return !*automatic.state->refreshingFolders; }));
}

TEST(AutomaticModel, AFolderIsPickedAndUnpickedByAPress) {
    Automatic automatic;
    automatic.boxes().press(0);
    automatic.boxes().press(2);
    EXPECT_EQ(automatic.state->schedule.watched(), (std::vector<WatchedMailbox>{{"A1", "Lists"}}));
    automatic.model.refresh();
    EXPECT_TRUE(automatic.box(2, WatchListModel::TickedRole).toBool());
    EXPECT_FALSE(automatic.box(1, WatchListModel::TickedRole).toBool());
    automatic.boxes().press(2);
    EXPECT_TRUE(automatic.state->schedule.watched().empty());
    for (const int row : {-1, 4, 99}) automatic.boxes().press(row);
    EXPECT_TRUE(automatic.state->schedule.watched().empty());
}

TEST(AutomaticModel, RemovesWhatIsGoneAndNothingElse) {
    Automatic automatic;
    automatic.state->schedule.setWatched({{"A1", "Old"}, {"A1", "INBOX"}, {"C3", "INBOX"}});
    automatic.model.refresh();
    EXPECT_EQ(automatic.model.gone(),
              QStringLiteral("2 picked mailboxes are no longer in Mail, so they are skipped."));
    automatic.model.removeGone();
    automatic.model.refresh();
    EXPECT_EQ(automatic.state->schedule.watched(), (std::vector<WatchedMailbox>{{"A1", "INBOX"}}));
    EXPECT_EQ(automatic.model.gone(), QString());
    automatic.state->accounts.set({});
    automatic.model.removeGone();
    EXPECT_EQ(automatic.state->schedule.watched().size(), 1U) << "nothing is known of any";
}

TEST(AutomaticModel, ChoosesTheCadence) {
    Automatic automatic;
    ASSERT_EQ(automatic.model.cadences()->rowCount(), 4);
    EXPECT_EQ(automatic.model.cadences()->chosen(), 2);
    automatic.model.chooseCadence(0);
    automatic.model.refresh();
    EXPECT_EQ(automatic.state->schedule.cadence(), Cadence::hourly);
    EXPECT_EQ(automatic.model.cadences()->chosen(), 0);
    for (const int row : {-1, 4}) automatic.model.chooseCadence(row);
    EXPECT_EQ(automatic.state->schedule.cadence(), Cadence::hourly);
}

TEST(AutomaticModel, ChoosesTheMode) {
    Automatic automatic;
    ASSERT_EQ(automatic.model.modes()->rowCount(), 2);
    EXPECT_TRUE(automatic.mode(0, ModesModel::ChosenRole).toBool());
    EXPECT_EQ(automatic.model.modes()->chosen(), 0);
    const QSignalSpy chosen(automatic.model.modes(), &ModesModel::chosenChanged);
    automatic.model.chooseMode(1);
    automatic.model.refresh();
    EXPECT_EQ(automatic.model.modes()->chosen(), 1);
    EXPECT_EQ(chosen.count(), 1);
    EXPECT_EQ(automatic.state->schedule.mode(), SortMode::automatic);
    EXPECT_FALSE(automatic.mode(0, ModesModel::ChosenRole).toBool());
    EXPECT_EQ(automatic.mode(1, ModesModel::SymbolRole), QStringLiteral("largecircle.fill.circle"));
    EXPECT_EQ(automatic.mode(1, ModesModel::TitleRole), QStringLiteral("Move it for me"));
    for (const int row : {-1, 2}) automatic.model.chooseMode(row);
    EXPECT_EQ(automatic.state->schedule.mode(), SortMode::automatic);
}

TEST(AutomaticModel, RunsNowOnce) {
    Automatic automatic;
    EXPECT_FALSE(automatic.model.canRun());
    automatic.state->schedule.toggle("A1", "INBOX");
    automatic.model.refresh();
    EXPECT_TRUE(automatic.model.canRun());
    automatic.model.runNow();
    EXPECT_TRUE(automatic.state->automaticRunning());
    automatic.model.refresh();
    EXPECT_FALSE(automatic.model.canRun()) << "from the first moment on";
}

TEST(AutomaticModel, ReadsTheAccountsOnlyWhereTheFilesCanBeRead) {
    Automatic automatic;
    automatic.state->accounts.set({});
    automatic.model.appear();
    EXPECT_FALSE(*automatic.state->loadingAccounts) << "this machine has no mail files";
    EXPECT_FALSE(*automatic.state->refreshingFolders);
}

TEST(AutomaticModel, LooksTheFoldersUpAgainWhenItAppears) {
    Automatic automatic;
    automatic.model.appear();
    EXPECT_TRUE(*automatic.state->refreshingFolders);
    EXPECT_TRUE(
        automatic.world.mainQueue.pumpUntil([&] { return !*automatic.state->refreshingFolders; }));
}

TEST(AutomaticModel, GoesBack) {
    Automatic automatic;
    automatic.state->navigate(AppState::Screen::automatic);
    automatic.model.back();
    EXPECT_EQ(*automatic.state->screen, AppState::Screen::welcome);
}

}  // namespace
}  // namespace brindlet::testing
