#include <gtest/gtest.h>

#include <QTest>

#include "screens/Stage.h"

namespace brindlet::testing {
namespace {

QPoint middle(const QQuickItem* item) {
    return item->mapToScene(QPointF(item->width() / 2, item->height() / 2)).toPoint();
}

bool isOpen(const Stage& stage, const char* row) {
    const auto* item = stage.find(QLatin1String(row));
    return item && item->property("expanded").toBool();
}

TEST(HistoryScreen, AClickOpensAScanAndAnotherClosesIt) {
    Stage stage(scenes::history);
    EXPECT_TRUE(stage.click("scan0"));
    EXPECT_TRUE(isOpen(stage, "scan0"));
    EXPECT_EQ(stage.find("moved0")->property("count").toInt(), 3);
    EXPECT_EQ(stage.find("moved0")->height(), 3 * 44);
    QTest::mouseClick(stage.window(), Qt::LeftButton, {},
                      stage.find("scan0")->mapToScene(QPointF(300, 30)).toPoint());
    stage.settle();
    EXPECT_FALSE(isOpen(stage, "scan0"));
    EXPECT_EQ(stage.find("moved0"), nullptr);
}

TEST(HistoryScreen, ALongListOfMovedMessagesIsLazyInAFrameOfEightRows) {
    Stage stage(scenes::longHistory);
    EXPECT_TRUE(stage.click("scan0"));
    const auto* list = stage.find("moved0");
    ASSERT_NE(list, nullptr);
    EXPECT_EQ(list->property("count").toInt(), 312);
    EXPECT_EQ(list->height(), 8 * 44);
    EXPECT_LT(list->property("contentItem").value<QQuickItem*>()->childItems().size(), 30);
}

TEST(HistoryScreen, AScanThatMovedNothingHasNoList) {
    Stage stage(scenes::history);
    EXPECT_TRUE(stage.click("scan1"));
    EXPECT_NE(stage.find("junk1"), nullptr);
    EXPECT_EQ(stage.find("moved1"), nullptr);
    EXPECT_FALSE(stage.find("putOnScreen1")->isEnabled()) << "its file is gone";
}

TEST(HistoryScreen, TheTrashButtonDeletesAndDoesNotOpen) {
    Stage stage(scenes::history);
    EXPECT_TRUE(stage.click("deleteScan1"));
    EXPECT_EQ(stage.state->history.records->size(), 3U);
    EXPECT_EQ(stage.state->history.deleted->size(), 3U);
    for (const auto* row : {"scan0", "scan1", "scan2"}) EXPECT_FALSE(isOpen(stage, row));
}

TEST(HistoryScreen, ARightClickOffersToDelete) {
    Stage stage(scenes::history);
    QTest::mouseClick(stage.window(), Qt::RightButton, {}, middle(stage.find("scan2")));
    EXPECT_NE(stage.await("deleteFromMenu"), nullptr);
    EXPECT_FALSE(isOpen(stage, "scan2"));
    EXPECT_TRUE(stage.click("deleteFromMenu"));
    ASSERT_EQ(stage.state->history.deleted->size(), 3U);
    EXPECT_EQ(stage.state->history.deleted->front().folder, "דואר נכנס");
}

TEST(HistoryScreen, TheMenuDeletesTheScanItWasOpenedOnWhateverComesMeanwhile) {
    Stage stage(scenes::history);
    QTest::mouseClick(stage.window(), Qt::RightButton, {}, middle(stage.find("scan1")));
    ASSERT_NE(stage.await("deleteFromMenu"), nullptr);
    stage.state->history.add(scanRecord(*stage.state, 0, "Junk"));
    stage.settle();
    EXPECT_TRUE(stage.click("deleteFromMenu"));
    EXPECT_EQ(stage.state->history.deleted->front().folder, "Receipts");
}

TEST(HistoryScreen, PutsAScanBackOnScreen) {
    Stage stage(scenes::history);
    EXPECT_TRUE(stage.click("scan0"));
    EXPECT_TRUE(stage.click("putOnScreen0"));
    EXPECT_NE(stage.await("resultsScreen"), nullptr);
}

TEST(HistoryScreen, ThePrudentBinAsksTwice) {
    Stage stage(scenes::history);
    EXPECT_TRUE(stage.click("purge1"));
    EXPECT_EQ(stage.find("purge1")->property("text"), QStringLiteral("Really?"));
    EXPECT_EQ(stage.state->history.deleted->size(), 2U);
    EXPECT_TRUE(stage.click("purge1"));
    EXPECT_EQ(stage.state->history.deleted->size(), 1U);
    EXPECT_TRUE(stage.click("emptyBin"));
    EXPECT_EQ(stage.find("emptyBin")->property("text"), QStringLiteral("Really delete all?"));
    EXPECT_TRUE(stage.click("emptyBin"));
    EXPECT_EQ(stage.state->history.deleted->size(), 0U);
    EXPECT_EQ(stage.find("emptyBin"), nullptr) << "an empty bin does not show";
}

TEST(HistoryScreen, LeavingTakesTheFirstStepBack) {
    Stage stage(scenes::history);
    EXPECT_TRUE(stage.click("purge0"));
    EXPECT_TRUE(stage.click("emptyBin"));
    stage.state->navigate(AppState::Screen::pick);
    ASSERT_NE(stage.await("pickScreen"), nullptr);
    stage.state->goBack();
    ASSERT_NE(stage.await("historyScreen"), nullptr);
    EXPECT_EQ(stage.find("purge0")->property("text"), QStringLiteral("Delete"));
    EXPECT_EQ(stage.find("emptyBin")->property("text"), QStringLiteral("Empty"));
}

TEST(HistoryScreen, PutBackReturnsAScan) {
    Stage stage(scenes::history);
    EXPECT_TRUE(stage.click("putBack0"));
    EXPECT_EQ(stage.state->history.records->size(), 5U);
    EXPECT_NE(stage.await("scan4"), nullptr);
}

TEST(HistoryScreen, ForgettingTakesItsButtonAway) {
    Stage stage(scenes::history);
    EXPECT_TRUE(stage.click("forgetSorted"));
    EXPECT_EQ(stage.state->seen.size(), 0U);
    EXPECT_EQ(stage.find("forgetSorted"), nullptr);
}

TEST(HistoryScreen, AnEmptyHistorySaysSoAndNothingElse) {
    Stage stage(scenes::emptyHistory);
    EXPECT_EQ(stage.await("nothing")->property("text"), QStringLiteral("Nothing sorted yet."));
    EXPECT_EQ(stage.find("count"), nullptr);
    EXPECT_EQ(stage.find("emptyBin"), nullptr);
    EXPECT_EQ(stage.focused(), QStringLiteral("back"));
}

}  // namespace
}  // namespace brindlet::testing
