#include <gtest/gtest.h>

#include <QTest>

#include "screens/MovingStage.h"

namespace brindlet::testing {
namespace {

TEST(MoveBarByKeyboard, TheButtonAndItsMenuComeAfterTheWaysElsewhere) {
    MovingStage stage;
    ASSERT_TRUE(stage.tabTo("automatic"));
    std::vector<QString> order;
    for (int i = 0; i < 3; ++i) {
        stage.press(Qt::Key_Tab);
        order.push_back(stage.focused());
    }
    EXPECT_EQ(order, (std::vector<QString>{"move", "destinations", "categoryTick0"}));
}

TEST(MoveBarByKeyboard, TheKeyboardGoesFromTheButtonToStopAndBack) {
    for (const auto key : {Qt::Key_Return, Qt::Key_Enter, Qt::Key_Space}) {
        SCOPED_TRACE(key);
        MovingStage stage;
        stage.letMove({"1@letters.example"});
        ASSERT_TRUE(stage.tabTo("move"));
        stage.press(key);
        stage.settle();
        ASSERT_EQ(stage.focused(), QStringLiteral("stopMove"));
        stage.world.processes.waitForLaunches(1);
        stage.press(key);
        EXPECT_EQ(stage.world.processes.terminations(), 1);
        stage.finish();
        stage.settle();
        EXPECT_EQ(stage.text("moveText"), "Moved 1 of 72 - the rest are still listed");
        EXPECT_EQ(stage.focused(), QStringLiteral("move"));
    }
}

TEST(MoveBarByKeyboard, WhenNothingIsLeftToMoveTheKeyboardGoesToTheMenu) {
    MovingStage stage;
    ASSERT_TRUE(stage.tabTo("move"));
    stage.press(Qt::Key_Space);
    stage.finish();
    stage.settle();
    EXPECT_EQ(stage.text("move"), "Move 0 to Junk");
    EXPECT_EQ(stage.focused(), QStringLiteral("destinations"));
}

TEST(MoveBarByKeyboard, WithoutAMenuItGoesOnToTheList) {
    MovingStage stage([](AppState& state) {
        scenes::movable(state);
        state.folder.set(folder(2, "Junk", 200));
    });
    ASSERT_TRUE(stage.tabTo("move"));
    stage.state->approved.set({});
    stage.settle();
    stage.settle();
    EXPECT_EQ(stage.focused(), QStringLiteral("categoryTick0"));
}

TEST(MoveBarByKeyboard, AMoveThatBeginsElsewhereTakesNothingFromTheList) {
    MovingStage stage;
    ASSERT_TRUE(stage.tabTo("category1"));
    stage.state->startMove();
    stage.settle();
    EXPECT_EQ(stage.focused(), QStringLiteral("category1"));
    stage.finish();
    EXPECT_EQ(stage.focused(), QStringLiteral("category1"));
}

TEST(MoveBarByKeyboard, TheMenuIsWalkedByArrowsAndTakenByReturn) {
    MovingStage stage;
    ASSERT_TRUE(stage.tabTo("destinations"));
    stage.press(Qt::Key_Space);
    ASSERT_NE(stage.await("destination0"), nullptr);
    const auto current = [&] {
        for (const auto* row : {"destination0", "destination1", "destination2"})
            if (stage.find(QLatin1String(row))->property("highlighted").toBool())
                return std::string(row);
        return std::string();
    };
    EXPECT_EQ(current(), "destination0");
    stage.press(Qt::Key_Down);
    stage.press(Qt::Key_Down);
    EXPECT_EQ(current(), "destination2");
    stage.press(Qt::Key_Up);
    EXPECT_EQ(current(), "destination1");
    stage.press(Qt::Key_Return);
    EXPECT_TRUE(QTest::qWaitFor([&] { return !stage.stands("destination0"); }));
    EXPECT_EQ(stage.text("move"), "Move 72 to דואר זבל");
    EXPECT_EQ(stage.focused(), QStringLiteral("destinations"));
    EXPECT_EQ(*stage.state->screen, AppState::Screen::results);
}

TEST(MoveBarByKeyboard, EscapeClosesTheMenuAndNothingElse) {
    MovingStage stage;
    ASSERT_TRUE(stage.tabTo("destinations"));
    stage.press(Qt::Key_Return);
    ASSERT_NE(stage.await("destination0"), nullptr);
    stage.press(Qt::Key_Down);
    stage.press(Qt::Key_Escape);
    EXPECT_TRUE(QTest::qWaitFor([&] { return !stage.stands("destination0"); }));
    EXPECT_EQ(stage.text("move"), "Move 72 to Junk");
    EXPECT_EQ(stage.focused(), QStringLiteral("destinations"));
    EXPECT_EQ(*stage.state->screen, AppState::Screen::results);
}

}  // namespace
}  // namespace brindlet::testing
