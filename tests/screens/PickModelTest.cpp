#include <gtest/gtest.h>

#include <QAbstractItemModelTester>
#include <QSignalSpy>

#include "screens/Stage.h"
#include "screens/pick/PickModel.h"

namespace brindlet::testing {
namespace {

using screens::FoldersModel;
using screens::PickModel;

/// A picker without a window.
struct Picker {
    Picker() {
        scenes::mailboxes(*state);
        model.refresh();
    }

    ~Picker() { world.retire(); }

    doubles::World& world = doubles::World::lasting();
    std::shared_ptr<AppState> state = AppState::make(world.services(), 1);
    PickModel model{*state};
};

TEST(PickModel, ShowsTheFoldersOfTheChosenAccount) {
    Picker picker;
    auto& folders = *picker.model.folders();
    const QAbstractItemModelTester tester(&folders,
                                          QAbstractItemModelTester::FailureReportingMode::Fatal);
    ASSERT_EQ(folders.rowCount(), 9);
    EXPECT_EQ(folders.index(0).data(FoldersModel::NameRole), QStringLiteral("INBOX"));
    EXPECT_EQ(folders.index(0).data(FoldersModel::TagRole), QStringLiteral("START HERE"));
    EXPECT_EQ(
        folders.index(0).data(FoldersModel::DescriptionRole),
        QStringLiteral("START HERE, what's sitting in your inbox now, 1,834 new, never sorted"));
    picker.model.chooseAccount(1);
    picker.model.refresh();
    EXPECT_EQ(folders.rowCount(), 1);
    EXPECT_EQ(picker.model.accounts()->chosen(), 1);
}

TEST(PickModel, AnEmptyFolderCannotBeChosen) {
    Picker picker;
    picker.model.chooseFolder(4);
    EXPECT_FALSE(picker.state->folder->has_value());
    picker.model.chooseFolder(2);
    ASSERT_TRUE(picker.state->folder->has_value());
    EXPECT_EQ(picker.state->folder->value().name, "Receipts");
}

TEST(PickModel, AChoiceChangesTwoRowsAndResetsNothing) {
    Picker picker;
    auto& folders = *picker.model.folders();
    picker.model.chooseFolder(0);
    picker.model.refresh();
    EXPECT_EQ(folders.chosen(), 0);
    const QSignalSpy resets(&folders, &QAbstractItemModel::modelReset);
    const QSignalSpy changes(&folders, &QAbstractItemModel::dataChanged);
    picker.model.chooseFolder(2);
    picker.model.refresh();
    EXPECT_EQ(resets.count(), 0);
    EXPECT_EQ(changes.count(), 2);
    EXPECT_EQ(folders.chosen(), 2);
}

TEST(PickModel, ARefreshOfTheSameTellsNobody) {
    Picker picker;
    const QSignalSpy words(&picker.model, &PickModel::wordsChanged);
    picker.model.refresh();
    EXPECT_EQ(words.count(), 0);
}

TEST(PickModel, ReachAndLimitAreStored) {
    Picker picker;
    picker.model.chooseReach(3);
    picker.model.chooseLimit(1);
    EXPECT_EQ(*picker.state->reach, Reach::year);
    EXPECT_EQ(picker.world.defaults.string("scan.reach"), "year");
    EXPECT_EQ(*picker.state->limit, 2000);
    EXPECT_EQ(picker.world.defaults.integer("scan.limit"), 2000);
    picker.model.refresh();
    picker.model.chooseLimit(2);
    EXPECT_EQ(*picker.state->limit, 0) << "everything is no cap";
}

TEST(PickModel, TheSkipSwitchIsTheSeenListsOwn) {
    Picker picker;
    EXPECT_TRUE(picker.model.skips());
    picker.model.setSkips(false);
    EXPECT_FALSE(picker.state->seen.skipSeen());
    EXPECT_EQ(picker.world.defaults.boolean("skipSeen"), false);
}

TEST(PickModel, EachAppearanceLooksTheFoldersUpAgain) {
    Picker picker;
    EXPECT_FALSE(*picker.state->refreshingFolders);
    picker.model.appear();
    EXPECT_TRUE(*picker.state->refreshingFolders);
    picker.model.refresh();
    EXPECT_EQ(picker.model.checking(), QStringLiteral("Checking mailboxes"));
    EXPECT_TRUE(
        picker.world.mainQueue.pumpUntil([&] { return !*picker.state->refreshingFolders; }));
}

TEST(PickModel, RowsThatAreNoLongerThereAreNoChoice) {
    Picker picker;
    for (const int row : {-1, 99}) {
        picker.model.chooseAccount(row);
        picker.model.chooseFolder(row);
        picker.model.chooseReach(row);
        picker.model.chooseLimit(row);
    }
    EXPECT_FALSE(picker.state->folder->has_value());
    EXPECT_EQ(*picker.state->reach, Reach::month);
    EXPECT_EQ(*picker.state->limit, 500);
}

TEST(PickModel, ItsButtonsOpenSettingsAndMail) {
    Picker picker;
    picker.model.openSettings();
    picker.model.openMail();
    EXPECT_EQ(picker.world.desktop.opened,
              (std::vector<std::string>{"disk access settings", "mail"}));
}

TEST(ChoicesModel, OtherLabelsResetItAndAnotherChoiceDoesNot) {
    screens::ChoicesModel choices;
    const QAbstractItemModelTester tester(&choices,
                                          QAbstractItemModelTester::FailureReportingMode::Fatal);
    choices.set({{"a", "b"}, 0});
    const QSignalSpy resets(&choices, &QAbstractItemModel::modelReset);
    choices.set({{"a", "b"}, 1});
    EXPECT_EQ(resets.count(), 0);
    EXPECT_EQ(choices.index(1).data(screens::ChoicesModel::ChosenRole), true);
    choices.set({{"a", "b", "c"}, 1});
    EXPECT_EQ(resets.count(), 1);
    EXPECT_EQ(choices.rowCount(), 3);
}

}  // namespace
}  // namespace brindlet::testing
