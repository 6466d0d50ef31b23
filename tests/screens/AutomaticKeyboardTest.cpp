#include <gtest/gtest.h>

#include <QTest>

#include "screens/Stage.h"

namespace brindlet::testing {
namespace {

TEST(AutomaticKeyboard, TabGoesDownTheScreenWithOneStopForEachChoice) {
    Stage stage(scenes::automatic);
    EXPECT_EQ(stage.focused(), QStringLiteral("schedule")) << "where the keyboard begins";
    std::vector<QString> stops;
    for (int i = 0; i < 7; ++i) {
        stage.press(Qt::Key_Tab);
        stops.push_back(stage.focused());
    }
    EXPECT_EQ(stops, (std::vector<QString>{"mailboxes", "removeGone", "cadence2", "mode0", "runNow",
                                           "back", "schedule"}));
    for (int i = 0; i < 3; ++i) stage.press(Qt::Key_Backtab, Qt::ShiftModifier);
    EXPECT_EQ(stage.focused(), QStringLiteral("mode0")) << "and back again";
}

TEST(AutomaticKeyboard, SpaceAndReturnTurnTheSwitch) {
    Stage stage(scenes::automatic);
    for (const auto key : {Qt::Key_Space, Qt::Key_Return, Qt::Key_Enter}) {
        const bool before = stage.state->schedule.enabled();
        stage.press(key);
        EXPECT_NE(stage.state->schedule.enabled(), before) << key;
        EXPECT_EQ(stage.focused(), QStringLiteral("schedule")) << key;
    }
}

TEST(AutomaticKeyboard, ArrowsWalkTheMailboxesAndSpaceTicks) {
    Stage stage(scenes::automatic);
    ASSERT_TRUE(stage.tabTo("mailboxes"));
    const auto* list = stage.find("mailboxes");
    const auto row = [&] { return list->property("currentIndex").toInt(); };
    stage.press(Qt::Key_Down);
    stage.press(Qt::Key_Down);
    EXPECT_EQ(stage.state->schedule.watched().size(), 3U) << "walking is not choosing";
    stage.press(Qt::Key_Space);
    EXPECT_EQ(stage.state->schedule.watched().back().folder, "Junk");
    stage.press(Qt::Key_Return);
    EXPECT_EQ(stage.state->schedule.watched().size(), 3U);
    stage.press(Qt::Key_Left);
    EXPECT_EQ(row(), 0) << "the account";
    EXPECT_EQ(list->property("count").toInt(), 11);
    stage.press(Qt::Key_Left);
    EXPECT_EQ(list->property("count").toInt(), 2);
    stage.press(Qt::Key_Right);
    EXPECT_EQ(list->property("count").toInt(), 11);
    stage.press(Qt::Key_Return);
    EXPECT_EQ(list->property("count").toInt(), 2);
    EXPECT_EQ(stage.focused(), QStringLiteral("mailboxes"));
}

TEST(AutomaticKeyboard, ArrowsWalkTheChipsAndSpaceChooses) {
    Stage stage(scenes::automatic);
    ASSERT_TRUE(stage.tabTo("cadence2"));
    const std::vector<std::pair<Qt::Key, const char*>> walk{
        {Qt::Key_Right, "cadence3"}, {Qt::Key_Right, "cadence3"}, {Qt::Key_Left, "cadence2"},
        {Qt::Key_Up, "cadence1"},    {Qt::Key_Home, "cadence0"},  {Qt::Key_Left, "cadence0"},
        {Qt::Key_Down, "cadence1"},  {Qt::Key_End, "cadence3"}};
    for (const auto& [key, chip] : walk) {
        stage.press(key);
        EXPECT_EQ(stage.focused(), QLatin1String(chip)) << key;
    }
    EXPECT_EQ(stage.state->schedule.cadence(), Cadence::daily) << "walking is not choosing";
    stage.press(Qt::Key_Space);
    EXPECT_EQ(stage.state->schedule.cadence(), Cadence::weekly);
    stage.press(Qt::Key_Left);
    stage.press(Qt::Key_Return);
    EXPECT_EQ(stage.state->schedule.cadence(), Cadence::daily);
    stage.press(Qt::Key_Left);
    stage.press(Qt::Key_Tab);
    EXPECT_EQ(stage.focused(), QStringLiteral("mode0"));
    stage.press(Qt::Key_Backtab, Qt::ShiftModifier);
    EXPECT_EQ(stage.focused(), QStringLiteral("cadence2")) << "back to the chosen one";
}

TEST(AutomaticKeyboard, ArrowsWalkTheCardsAndReturnChooses) {
    Stage stage(scenes::automatic);
    ASSERT_TRUE(stage.tabTo("mode0"));
    stage.press(Qt::Key_Down);
    EXPECT_EQ(stage.focused(), QStringLiteral("mode1"));
    EXPECT_EQ(stage.state->schedule.mode(), SortMode::review) << "not by passing over it";
    stage.press(Qt::Key_Return);
    EXPECT_EQ(stage.state->schedule.mode(), SortMode::automatic);
    stage.press(Qt::Key_Up);
    stage.press(Qt::Key_Space);
    EXPECT_EQ(stage.state->schedule.mode(), SortMode::review);
}

TEST(AutomaticKeyboard, RemovingWhatIsGoneLeavesTheKeyboardInTheList) {
    Stage stage(scenes::automatic);
    ASSERT_TRUE(stage.tabTo("removeGone"));
    stage.press(Qt::Key_Return);
    EXPECT_EQ(stage.state->schedule.watched().size(), 2U);
    EXPECT_EQ(stage.focused(), QStringLiteral("mailboxes"));
}

TEST(AutomaticKeyboard, AfterARunOfNothingRunNowHasTheKeyboardAgain) {
    Stage stage([](AppState& state) {
        scenes::automatic(state);
        state.schedule.setWatched({{"no such account", "INBOX"}});
    });
    ASSERT_TRUE(stage.tabTo("runNow"));
    stage.press(Qt::Key_Return);
    ASSERT_TRUE(stage.world.mainQueue.pumpUntil([&] { return !stage.state->automaticRunning(); }));
    stage.settle();
    EXPECT_EQ(stage.focused(), QStringLiteral("runNow"));
}

TEST(AutomaticKeyboard, EscapeGoesBack) {
    Stage stage(scenes::automatic);
    stage.press(Qt::Key_Escape);
    EXPECT_EQ(*stage.state->screen, AppState::Screen::pick);
}

}  // namespace
}  // namespace brindlet::testing
