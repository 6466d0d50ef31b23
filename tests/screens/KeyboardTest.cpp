#include <gtest/gtest.h>

#include <QTest>
#include <set>

#include "screens/Stage.h"

namespace brindlet::testing {
namespace {

const std::vector<std::pair<const char*, void (*)(AppState&)>> scenesWithControls{
    {"welcome", [](AppState&) {}},
    {"interrupted move", scenes::interrupted},
    {"permission", scenes::permission},
    {"unsupported", scenes::unsupported},
    {"chosen mailbox", scenes::chosenMailbox},
    {"gmail", scenes::gmail},
    {"no accounts", scenes::noAccounts},
    {"paused scan", scenes::pausedScan},
    {"open results", scenes::openResults},
    {"moved results", scenes::movedResults},
    {"moving", scenes::moving},
    {"failed move", scenes::failedMove},
    {"stopped scan", scenes::stoppedScan},
    {"history", scenes::history},
    {"taught history", scenes::taughtHistory},
    {"empty history", scenes::emptyHistory},
    {"automatic", scenes::automatic},
    {"automatic off", scenes::automaticOff},
    {"automatic at first", scenes::automaticAtFirst},
    {"no rules", scenes::noRules},
    {"rules", scenes::rules},
};

TEST(Keyboard, TabReachesEveryControlAndComesAround) {
    for (const auto& [name, scene] : scenesWithControls) {
        SCOPED_TRACE(name);
        Stage stage(scene);
        std::set<QString> expected;
        for (const auto* item : stage.tabStops()) {
            ASSERT_FALSE(item->objectName().isEmpty()) << item->metaObject()->className();
            expected.insert(item->objectName());
        }
        EXPECT_FALSE(expected.empty());
        std::set<QString> reached;
        for (std::size_t i = 0; i <= expected.size(); ++i) {
            stage.press(Qt::Key_Tab);
            reached.insert(stage.focused());
        }
        EXPECT_EQ(reached, expected);
    }
}

TEST(Keyboard, AListIsOneTabStop) {
    Stage stage(scenes::openResults);
    ASSERT_TRUE(stage.tabTo("messages"));
    stage.press(Qt::Key_Tab);
    EXPECT_EQ(stage.focused(), QStringLiteral("categoryTick2"));
}

TEST(Keyboard, ReturnAndSpaceBothPressStart) {
    for (const auto key : {Qt::Key_Return, Qt::Key_Enter, Qt::Key_Space}) {
        Stage stage;
        EXPECT_EQ(stage.focused(), QStringLiteral("start")) << "the first screen's own button";
        stage.press(key);
        EXPECT_EQ(*stage.state->screen, AppState::Screen::permission) << key;
    }
}

TEST(Keyboard, EscapeGoesBack) {
    for (const auto scene : {scenes::permission, scenes::chosenMailbox, scenes::openResults}) {
        Stage stage(scene);
        stage.press(Qt::Key_Escape);
        EXPECT_EQ(*stage.state->screen, AppState::Screen::welcome);
    }
}

TEST(Keyboard, ArrowsWalkTheMailboxesAndSpaceChooses) {
    Stage stage(scenes::mailboxes);
    EXPECT_EQ(stage.focused(), QStringLiteral("folders"));
    stage.press(Qt::Key_Down);
    stage.press(Qt::Key_Down);
    EXPECT_FALSE(stage.state->folder->has_value()) << "walking is not choosing";
    stage.press(Qt::Key_Space);
    ASSERT_TRUE(stage.state->folder->has_value());
    EXPECT_EQ(stage.state->folder->value().name, "Receipts");
}

TEST(Keyboard, HomeEndAndThePageKeysWalkFurther) {
    Stage stage(scenes::openResults);
    ASSERT_TRUE(stage.tabTo("messages"));
    const auto* list = stage.find("messages");
    const auto row = [&] { return list->property("currentIndex").toInt(); };
    const std::vector<std::pair<Qt::Key, int>> walk{
        {Qt::Key_End, 20},     {Qt::Key_Down, 20},  {Qt::Key_Home, 0},
        {Qt::Key_PageDown, 7}, {Qt::Key_Down, 8},   {Qt::Key_PageDown, 15},
        {Qt::Key_PageUp, 8},   {Qt::Key_PageUp, 1}, {Qt::Key_PageUp, 0},
    };
    for (const auto& [key, expected] : walk) {
        stage.press(key);
        EXPECT_EQ(row(), expected) << key;
    }
}

TEST(Keyboard, AMenuOpensWalksAndChooses) {
    Stage stage(scenes::mailboxes);
    ASSERT_TRUE(stage.tabTo("reach"));
    stage.press(Qt::Key_Space);
    stage.press(Qt::Key_Down);
    EXPECT_EQ(*stage.state->reach, Reach::month) << "not before it is chosen";
    stage.press(Qt::Key_Return);
    EXPECT_EQ(*stage.state->reach, Reach::threeMonths);
    EXPECT_EQ(stage.find("reach")->property("displayText"), QStringLiteral("Past 3 months"));
}

TEST(Keyboard, EscapeClosesAnOpenMenuAndNotTheScreen) {
    Stage stage(scenes::mailboxes);
    ASSERT_TRUE(stage.tabTo("limit"));
    stage.press(Qt::Key_Return);
    auto* popup = stage.find("limit")->property("popup").value<QObject*>();
    EXPECT_TRUE(popup->property("visible").toBool());
    stage.press(Qt::Key_Escape);
    EXPECT_TRUE(QTest::qWaitFor([&] { return !popup->property("visible").toBool(); }));
    EXPECT_EQ(*stage.state->screen, AppState::Screen::pick);
    EXPECT_EQ(*stage.state->limit, 500);
}

TEST(Keyboard, SpaceTurnsASwitch) {
    Stage stage(scenes::mailboxes);
    ASSERT_TRUE(stage.tabTo("skip"));
    stage.press(Qt::Key_Space);
    EXPECT_FALSE(stage.state->seen.skipSeen());
    stage.press(Qt::Key_Return);
    EXPECT_TRUE(stage.state->seen.skipSeen());
}

TEST(Keyboard, ACategoryOpensAndThePageScrollsToWhatIsReached) {
    Stage stage(scenes::openResults);
    stage.window()->resize(980, 640);
    ASSERT_TRUE(stage.tabTo("category9"));
    const auto* last = stage.find("category9");
    const auto bottom = last->mapToScene(QPointF(0, last->height())).y();
    EXPECT_LE(bottom, stage.window()->height());
    stage.press(Qt::Key_Return);
    EXPECT_EQ(*stage.state->expand, Category::cannotTell);
}

/// Whether the ring of focus is drawn around anything.
bool ringShows(const Stage& stage) {
    for (auto* item : stage.items())
        if (item->property("around").isValid()) return true;
    return false;
}

TEST(Keyboard, TheFocusShowsOnlyToThoseWhoSteerByIt) {
    Stage stage;
    EXPECT_FALSE(ringShows(stage));
    stage.press(Qt::Key_Tab);
    EXPECT_TRUE(ringShows(stage));
    QTest::mouseClick(stage.window(), Qt::LeftButton, {}, QPoint(5, 5));
    EXPECT_FALSE(ringShows(stage));
}

}  // namespace
}  // namespace brindlet::testing
