#include <gtest/gtest.h>

#include <QTest>

#include "screens/Stage.h"

namespace brindlet::testing {
namespace {

bool isOpen(const Stage& stage, const char* row) {
    const auto* item = stage.find(QLatin1String(row));
    return item && item->property("expanded").toBool();
}

void pressKey(const Stage& stage, Qt::Key key, Qt::KeyboardModifiers modifiers) {
    QTest::keyClick(stage.window(), key, modifiers);
    stage.settle();
}

TEST(HistoryKeyboard, TheScansAreOneTabStopAndArrowsWalkThem) {
    Stage stage(scenes::history);
    EXPECT_EQ(stage.focused(), QStringLiteral("scan0")) << "where the keyboard begins";
    const std::vector<std::pair<Qt::Key, const char*>> walk{
        {Qt::Key_Up, "scan0"},   {Qt::Key_Down, "scan1"}, {Qt::Key_End, "scan3"},
        {Qt::Key_Down, "scan3"}, {Qt::Key_Home, "scan0"}, {Qt::Key_Down, "scan1"}};
    for (const auto& [key, row] : walk) {
        stage.press(key);
        EXPECT_EQ(stage.focused(), QLatin1String(row)) << key;
    }
    std::vector<QString> stops;
    for (int i = 0; i < 3; ++i) {
        stage.press(Qt::Key_Tab);
        stops.push_back(stage.focused());
    }
    EXPECT_EQ(stops, (std::vector<QString>{"deleteScan1", "emptyBin", "binned0"}));
    for (int i = 0; i < 3; ++i) pressKey(stage, Qt::Key_Backtab, Qt::ShiftModifier);
    EXPECT_EQ(stage.focused(), QStringLiteral("scan1")) << "and back again";
}

TEST(HistoryKeyboard, RightLeftSpaceAndReturnOpenAndClose) {
    Stage stage(scenes::history);
    const std::vector<std::pair<Qt::Key, bool>> presses{
        {Qt::Key_Right, true},  {Qt::Key_Right, true},  {Qt::Key_Left, false},
        {Qt::Key_Left, false},  {Qt::Key_Space, true},  {Qt::Key_Space, false},
        {Qt::Key_Return, true}, {Qt::Key_Enter, false},
    };
    for (const auto& [key, open] : presses) {
        stage.press(key);
        EXPECT_EQ(isOpen(stage, "scan0"), open) << key;
    }
}

TEST(HistoryKeyboard, TabReachesWhatStandsInAnOpenScan) {
    Stage stage(scenes::longHistory);
    stage.press(Qt::Key_Right);
    std::vector<QString> stops;
    for (int i = 0; i < 4; ++i) {
        stage.press(Qt::Key_Tab);
        stops.push_back(stage.focused());
    }
    EXPECT_EQ(stops, (std::vector<QString>{"deleteScan0", "putOnScreen0", "moved0", "emptyBin"}));
    ASSERT_TRUE(stage.tabTo("moved0"));
    stage.press(Qt::Key_End);
    EXPECT_EQ(stage.find("moved0")->property("currentIndex").toInt(), 311);
    stage.press(Qt::Key_Down);
    EXPECT_EQ(stage.focused(), QStringLiteral("moved0")) << "the end of one list is not the next";
}

TEST(HistoryKeyboard, DeleteTakesTheScanAndTheKeyboardStaysInTheList) {
    Stage stage(scenes::history);
    stage.press(Qt::Key_Down);
    stage.press(Qt::Key_Delete);
    ASSERT_EQ(stage.state->history.records->size(), 3U);
    EXPECT_EQ(stage.focused(), QStringLiteral("scan1"));
    stage.press(Qt::Key_End);
    stage.press(Qt::Key_Backspace);
    ASSERT_EQ(stage.state->history.records->size(), 2U);
    EXPECT_EQ(stage.focused(), QStringLiteral("scan1")) << "the last that is left";
    stage.press(Qt::Key_Tab);
    ASSERT_EQ(stage.focused(), QStringLiteral("deleteScan1"));
    stage.press(Qt::Key_Space);
    ASSERT_EQ(stage.state->history.records->size(), 1U);
    EXPECT_EQ(stage.focused(), QStringLiteral("scan0"));
}

TEST(HistoryKeyboard, TheListFollowsScansThatCome) {
    Stage stage(scenes::history);
    stage.press(Qt::Key_Down);
    stage.state->history.add(scanRecord(*stage.state, 0, "Junk"));
    stage.settle();
    EXPECT_EQ(stage.focused(), QStringLiteral("scan2")) << "the same scan has the keyboard";
}

TEST(HistoryKeyboard, TheMenuKeyAndShiftF10OpenTheMenu) {
    for (const auto& [key, modifiers] :
         {std::pair(Qt::Key_Menu, Qt::NoModifier), {Qt::Key_F10, Qt::ShiftModifier}}) {
        SCOPED_TRACE(key);
        Stage stage(scenes::history);
        stage.press(Qt::Key_Down);
        stage.press(Qt::Key_F10);
        EXPECT_EQ(stage.find("deleteFromMenu"), nullptr) << "F10 alone is the window's";
        stage.press(Qt::Key_Escape);
        pressKey(stage, key, modifiers);
        ASSERT_NE(stage.await("deleteFromMenu"), nullptr);
        stage.press(Qt::Key_Return);
        ASSERT_EQ(stage.state->history.deleted->size(), 3U);
        EXPECT_EQ(stage.state->history.deleted->front().folder, "Receipts");
        EXPECT_EQ(stage.focused(), QStringLiteral("scan1"));
    }
}

TEST(HistoryKeyboard, EscapeClosesTheMenuAndThenLeaves) {
    Stage stage(scenes::history);
    pressKey(stage, Qt::Key_Menu, Qt::NoModifier);
    ASSERT_NE(stage.await("deleteFromMenu"), nullptr);
    stage.press(Qt::Key_Escape);
    EXPECT_TRUE(QTest::qWaitFor([&] { return !stage.find("deleteFromMenu"); }));
    EXPECT_EQ(*stage.state->screen, AppState::Screen::history);
    EXPECT_EQ(stage.focused(), QStringLiteral("scan0"));
    stage.press(Qt::Key_Escape);
    EXPECT_NE(*stage.state->screen, AppState::Screen::history);
}

TEST(HistoryKeyboard, TheTaughtRulesAreOneTabStopBeforeTheScans) {
    Stage stage(scenes::taughtHistory);
    EXPECT_EQ(stage.focused(), QStringLiteral("scan0"));
    ASSERT_TRUE(stage.tabTo("taughtRules"));
    stage.press(Qt::Key_Delete);
    EXPECT_EQ(stage.state->rules.all->size(), 4U) << "marked, and not gone yet";
    stage.press(Qt::Key_Down);
    stage.press(Qt::Key_Delete);
    stage.press(Qt::Key_Delete);
    stage.press(Qt::Key_Escape);
    EXPECT_EQ(stage.state->rules.all->size(), 3U) << "one was kept after all";
}

TEST(HistoryKeyboard, TheBinIsOneTabStopWithItsButtonsBehind) {
    Stage stage(scenes::history);
    ASSERT_TRUE(stage.tabTo("binned0"));
    stage.press(Qt::Key_Down);
    EXPECT_EQ(stage.focused(), QStringLiteral("binned1"));
    stage.press(Qt::Key_Tab);
    EXPECT_EQ(stage.focused(), QStringLiteral("putBack1"));
    stage.press(Qt::Key_Tab);
    ASSERT_EQ(stage.focused(), QStringLiteral("purge1"));
    stage.press(Qt::Key_Return);
    EXPECT_EQ(stage.focused(), QStringLiteral("purge1")) << "for the second press";
    stage.press(Qt::Key_Return);
    ASSERT_EQ(stage.state->history.deleted->size(), 1U);
    EXPECT_EQ(stage.focused(), QStringLiteral("binned0"));
}

TEST(HistoryKeyboard, ThePageScrollsToTheRowThatIsReached) {
    Stage stage([](AppState& state) {
        std::vector<ScanRecord> records;
        for (int i = 0; i < 100; ++i) records.push_back(scanRecord(state, i, "INBOX"));
        state.history.records.set(std::move(records));
        state.navigate(AppState::Screen::history);
    });
    stage.press(Qt::Key_End);
    const auto* last = stage.find("scan99");
    ASSERT_NE(last, nullptr);
    EXPECT_LE(last->mapToScene(QPointF(0, last->height())).y(), stage.window()->height());
    stage.press(Qt::Key_Home);
    EXPECT_GE(stage.find("scan0")->mapToScene(QPointF()).y(), 0);
}

}  // namespace
}  // namespace brindlet::testing
