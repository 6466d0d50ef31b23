#include <gtest/gtest.h>

#include <QTest>

#include "screens/Stage.h"

namespace brindlet::testing {
namespace {

using Watched = std::vector<WatchedMailbox>;
const std::string ada = "id of ada@example.org";

bool shows(const Stage& stage, const char* name) {
    return stage.find(QLatin1String(name)) != nullptr;
}

QString textOf(const Stage& stage, const char* name) {
    const auto* item = stage.find(QLatin1String(name));
    return item ? item->property("text").toString() : QString();
}

int rows(const Stage& stage) {
    return stage.find(QStringLiteral("mailboxes"))->property("count").toInt();
}

/// A row of the list, counted from its top, that is on show.
void clickRow(const Stage& stage, int row) {
    auto* list = stage.await(QStringLiteral("mailboxes"));
    ASSERT_NE(list, nullptr);
    const auto place = list->mapToScene(QPointF(120, 24 + 48 * row));
    QTest::mouseClick(stage.window(), Qt::LeftButton, {}, place.toPoint());
    stage.settle();
}

TEST(AutomaticScreen, TheSwitchShowsAndHidesAllThatFollowsAndForgetsNothing) {
    Stage stage(scenes::automatic);
    const auto picked = stage.state->schedule.watched();
    const auto sections = {"mailboxes", "mailboxesLabel", "cadence0", "mode0", "runNow", "goneBar"};
    for (const auto* name : sections) EXPECT_TRUE(shows(stage, name)) << name;
    ASSERT_TRUE(stage.click("schedule"));
    EXPECT_FALSE(stage.state->schedule.enabled());
    EXPECT_EQ(textOf(stage, "summary"), QStringLiteral("Off"));
    for (const auto* name : sections) EXPECT_FALSE(shows(stage, name)) << name;
    ASSERT_TRUE(stage.click("schedule"));
    for (const auto* name : sections) EXPECT_TRUE(shows(stage, name)) << name;
    EXPECT_EQ(stage.state->schedule.watched(), picked) << "the earlier picks";
}

TEST(AutomaticScreen, AnAccountOpensByAClickAndItsFoldersTick) {
    Stage stage([](AppState& state) {
        scenes::automaticOff(state);
        state.schedule.setEnabled(true);
    });
    EXPECT_EQ(rows(stage), 2);
    clickRow(stage, 0);
    EXPECT_EQ(rows(stage), 11);
    EXPECT_EQ(stage.find("mailboxesLabel")->property("note"),
              QStringLiteral("pick at least one, or nothing will run"));
    clickRow(stage, 1);
    EXPECT_EQ(stage.state->schedule.watched(), (Watched{{ada, "INBOX"}}));
    EXPECT_EQ(stage.find("mailboxesLabel")->property("note"), QStringLiteral("1 picked"));
    clickRow(stage, 1);
    EXPECT_TRUE(stage.state->schedule.watched().empty());
    clickRow(stage, 0);
    EXPECT_EQ(rows(stage), 2);
}

TEST(AutomaticScreen, WithoutAccountsSaysWhatToDo) {
    Stage stage(scenes::automaticAtFirst);
    EXPECT_EQ(textOf(stage, "noAccounts"),
              QStringLiteral("No accounts read yet - open Brindlet's main screen once."));
    EXPECT_FALSE(shows(stage, "mailboxes"));
    stage.state->accounts.set({account("ada@example.org", {folder(1, "INBOX", 3)})});
    EXPECT_NE(stage.await("mailboxes"), nullptr);
    EXPECT_FALSE(shows(stage, "noAccounts"));
}

TEST(AutomaticScreen, WhatIsGoneIsToldAndRemoved) {
    Stage stage(scenes::automatic);
    EXPECT_EQ(textOf(stage, "goneBar"),
              QStringLiteral("Old/Lists is no longer in Mail, so it is skipped."));
    ASSERT_TRUE(stage.click("removeGone"));
    EXPECT_EQ(stage.state->schedule.watched(), (Watched{{ada, "INBOX"}, {ada, "Receipts"}}));
    EXPECT_FALSE(shows(stage, "goneBar"));
}

TEST(AutomaticScreen, TheBarHoldsANameThatIsOneLongWord) {
    Stage stage([](AppState& state) {
        scenes::automatic(state);
        state.schedule.setWatched({{ada, std::string(120, 'w')}});
    });
    const auto told = stage.await("goneBar")->property("text");
    int lines = 0;
    for (auto* item : stage.items()) {
        if (item->property("text") != told || !item->property("lineCount").isValid()) continue;
        lines = item->property("lineCount").toInt();
        EXPECT_LE(item->property("contentWidth").toReal(), item->width());
    }
    EXPECT_GT(lines, 3);
}

TEST(AutomaticScreen, AChipSetsHowOften) {
    Stage stage(scenes::automatic);
    for (const auto& [chip, cadence] : {std::pair("cadence0", Cadence::hourly),
                                        {"cadence1", Cadence::every6h},
                                        {"cadence3", Cadence::weekly},
                                        {"cadence2", Cadence::daily}}) {
        ASSERT_TRUE(stage.click(chip));
        EXPECT_EQ(stage.state->schedule.cadence(), cadence) << chip;
        EXPECT_TRUE(stage.find(chip)->property("chosen").toBool()) << chip;
    }
    EXPECT_FALSE(stage.find("cadence3")->property("chosen").toBool());
}

TEST(AutomaticScreen, ACardSetsWhatARunDoes) {
    Stage stage(scenes::automatic);
    ASSERT_TRUE(stage.click("mode1"));
    EXPECT_EQ(stage.state->schedule.mode(), SortMode::automatic);
    EXPECT_EQ(stage.find("mode1")->property("symbol"), QStringLiteral("largecircle.fill.circle"));
    EXPECT_EQ(stage.find("mode0")->property("symbol"), QStringLiteral("circle"));
    ASSERT_TRUE(stage.click("mode0"));
    EXPECT_EQ(stage.state->schedule.mode(), SortMode::review);
}

TEST(AutomaticScreen, RunNowWaitsForAPickAndForTheWayToBeClear) {
    Stage stage([](AppState& state) {
        scenes::automaticOff(state);
        state.schedule.setEnabled(true);
    });
    const auto* run = stage.await("runNow");
    EXPECT_FALSE(run->isEnabled()) << "nothing is picked";
    stage.state->schedule.toggle(ada, "INBOX");
    stage.settle();
    EXPECT_TRUE(run->isEnabled());
    stage.state->moving.set(true);
    stage.settle();
    EXPECT_FALSE(run->isEnabled()) << "a move runs";
}

TEST(AutomaticScreen, RunNowBeginsOneRun) {
    Stage stage([](AppState& state) {
        scenes::automatic(state);
        state.schedule.setWatched({{ada, "Old/Lists"}});
    });
    ASSERT_TRUE(stage.click("runNow"));
    ASSERT_TRUE(stage.state->automaticTask());
    ASSERT_TRUE(stage.world.mainQueue.pumpUntil([&] { return !stage.state->automaticRunning(); }));
    stage.settle();
    EXPECT_TRUE(stage.find("runNow")->isEnabled()) << "all was gone, and it has ended";
    EXPECT_EQ(*stage.state->screen, AppState::Screen::automatic);
}

TEST(AutomaticScreen, ManyAccountsWithManyFoldersMakeNoMoreRowsThanShow) {
    Stage stage([](AppState& state) {
        std::vector<MailAccount> accounts;
        for (int i = 0; i < 30; ++i) {
            std::vector<MailFolder> folders;
            for (int k = 0; k < 200; ++k)
                folders.push_back(folder(1000 * i + k, "Folder " + std::to_string(k), k));
            accounts.push_back(account("ada" + std::to_string(i) + "@example.org", folders));
            state.schedule.toggle(accounts.back().id, "Folder 7");
        }
        state.accounts.set(std::move(accounts));
        state.schedule.setEnabled(true);
        state.navigate(AppState::Screen::automatic);
    });
    auto* list = stage.await("mailboxes");
    EXPECT_EQ(list->property("count").toInt(), 30 * 201);
    const auto made = [&] {
        return list->property("contentItem").value<QQuickItem*>()->childItems().size();
    };
    EXPECT_LT(made(), 30);
    ASSERT_TRUE(QMetaObject::invokeMethod(list, "positionViewAtEnd"));
    stage.settle();
    EXPECT_LT(made(), 30);
}

TEST(AutomaticScreen, ALongNameGivesWayAndStandsWholeInTheHelp) {
    const std::string name =
        "Projects/Harbour House/Correspondence with the builders and the town "
        "about the quay and the roof";
    Stage stage([&](AppState& state) {
        state.accounts.set({account("ada@example.org", {folder(1, name, 3)})});
        state.schedule.toggle(ada, name);
        state.schedule.setEnabled(true);
        state.navigate(AppState::Screen::automatic);
    });
    auto* list = stage.await("mailboxes");
    QTest::mouseMove(stage.window(), list->mapToScene(QPointF(120, 72)).toPoint());
    auto* tip = stage.await("helpTip");
    ASSERT_NE(tip, nullptr);
    EXPECT_EQ(tip->property("text").toString().toStdString(), name);
}

TEST(AutomaticScreen, FitsIntoTheSmallestWindowWithoutScrolling) {
    Stage stage(scenes::automatic);
    stage.window()->resize(stage.window()->minimumSize());
    stage.settle();
    const auto* page = stage.find("automaticPage");
    EXPECT_LE(page->property("contentHeight").toReal(), page->height());
    EXPECT_GE(stage.find("mailboxes")->height(), 190);
}

TEST(AutomaticScreen, OpensWithItsListAtTheTopEachTime) {
    Stage stage(scenes::automatic);
    EXPECT_EQ(rows(stage), 11) << "open where something is picked";
    clickRow(stage, 0);
    EXPECT_EQ(rows(stage), 2);
    ASSERT_TRUE(stage.click("back"));
    stage.state->navigate(AppState::Screen::automatic);
    ASSERT_NE(stage.await("mailboxes"), nullptr);
    EXPECT_EQ(rows(stage), 11);
}

}  // namespace
}  // namespace brindlet::testing
