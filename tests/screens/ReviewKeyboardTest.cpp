#include <gtest/gtest.h>

#include <QTest>
#include <vector>

#include "screens/Stage.h"

namespace brindlet::testing {
namespace {

constexpr std::int64_t first = 2;

int currentRow(const Stage& stage) {
    return stage.find("messages")->property("currentIndex").toInt();
}

int rowCount(const Stage& stage) {
    return stage.find("messages")->property("count").toInt();
}

/// The results by sender, with the keyboard on the first one.
void groupBySender(Stage& stage) {
    ASSERT_TRUE(stage.tabTo("bySender"));
    stage.press(Qt::Key_Space);
    ASSERT_TRUE(stage.model().results()->messages()->bySender());
    stage.press(Qt::Key_Tab);
    ASSERT_EQ(stage.focused(), QStringLiteral("messages"));
}

TEST(ReviewByKeyboard, AHeaderIsTwoStops) {
    Stage stage(scenes::results);
    ASSERT_TRUE(stage.tabTo("categoryTick0"));
    stage.press(Qt::Key_Space);
    EXPECT_FALSE(stage.state->approved->contains(21)) << "ticked before";
    stage.press(Qt::Key_Tab);
    EXPECT_EQ(stage.focused(), QStringLiteral("category0"));
    stage.press(Qt::Key_Tab);
    EXPECT_EQ(stage.focused(), QStringLiteral("categoryTick1"));
}

TEST(ReviewByKeyboard, RightAndLeftOpenAndCloseACategory) {
    Stage stage(scenes::results);
    ASSERT_TRUE(stage.tabTo("category1"));
    stage.press(Qt::Key_Left);
    EXPECT_FALSE(stage.state->expand->has_value());
    stage.press(Qt::Key_Right);
    stage.press(Qt::Key_Right);
    EXPECT_EQ(*stage.state->expand, Category::newsletterOrDigest);
    EXPECT_EQ(stage.focused(), QStringLiteral("category1"));
    stage.press(Qt::Key_Left);
    EXPECT_FALSE(stage.state->expand->has_value());
}

TEST(ReviewByKeyboard, SpaceAndReturnTickTheCurrentMessage) {
    Stage stage(scenes::openResults);
    ASSERT_TRUE(stage.tabTo("messages"));
    stage.press(Qt::Key_Down);
    for (const auto key : {Qt::Key_Space, Qt::Key_Return, Qt::Key_Enter}) {
        const bool before = stage.state->approved->contains(first + 10);
        stage.press(key);
        EXPECT_NE(stage.state->approved->contains(first + 10), before) << key;
        EXPECT_EQ(currentRow(stage), 1) << "and stay there";
    }
}

TEST(ReviewByKeyboard, RightOpensASenderAndLeftLeadsBackAndCloses) {
    Stage stage(scenes::openResults);
    groupBySender(stage);
    const int senders = rowCount(stage);
    stage.press(Qt::Key_Right);
    EXPECT_EQ(rowCount(stage), senders + 5);
    stage.press(Qt::Key_Down);
    stage.press(Qt::Key_Down);
    stage.press(Qt::Key_Right);
    EXPECT_EQ(rowCount(stage), senders + 5) << "a message has nothing to open";
    stage.press(Qt::Key_Left);
    EXPECT_EQ(currentRow(stage), 0);
    EXPECT_EQ(rowCount(stage), senders + 5);
    stage.press(Qt::Key_Left);
    EXPECT_EQ(rowCount(stage), senders);
}

TEST(ReviewByKeyboard, TheKeyOfOpenOpensTheCurrentMessage) {
    Stage stage(scenes::openResults);
    ASSERT_TRUE(stage.tabTo("messages"));
    stage.press(Qt::Key_O, Qt::ControlModifier);
    EXPECT_EQ(stage.world.desktop.opened,
              std::vector<std::string>{"message://%3c1@letters.example%3e"});
}

TEST(ReviewByKeyboard, TheKeyOfFindGoesToTheFilter) {
    Stage stage(scenes::openResults);
    stage.press(Qt::Key_F, Qt::ControlModifier);
    EXPECT_EQ(stage.focused(), QStringLiteral("filter"));
    stage.type(QStringLiteral("quill1."));
    EXPECT_EQ(rowCount(stage), 5);
    stage.press(Qt::Key_F, Qt::ControlModifier);
    stage.type(QStringLiteral("quill"));
    EXPECT_EQ(stage.model().results()->messages()->filter(), QStringLiteral("quill"))
        << "what stood there was selected";
}

TEST(ReviewByKeyboard, EscapeClearsTheFilterFirstAndThenGoesBack) {
    for (const auto* place : {"filter", "messages"}) {
        SCOPED_TRACE(place);
        Stage stage(scenes::openResults);
        stage.press(Qt::Key_F, Qt::ControlModifier);
        stage.type(QStringLiteral("quill1."));
        ASSERT_TRUE(stage.tabTo(place));
        stage.press(Qt::Key_Escape);
        EXPECT_EQ(stage.model().results()->messages()->filter(), QString());
        EXPECT_EQ(stage.focused(), QString::fromUtf8(place));
        EXPECT_EQ(*stage.state->screen, AppState::Screen::results);
        stage.press(Qt::Key_Escape);
        EXPECT_EQ(*stage.state->screen, AppState::Screen::welcome);
    }
}

TEST(ReviewByKeyboard, TabGoesFromTheListThroughTheOfferAndTheUndoToTheNextCategory) {
    Stage stage(scenes::correctedResults);
    ASSERT_TRUE(stage.tabTo("messages"));
    std::vector<QString> order;
    const auto buttons = stage.model().results()->offer()->buttons()->rowCount();
    for (int i = 0; i < buttons; ++i) order.push_back(QStringLiteral("offer%1").arg(i));
    order.insert(order.end(), {QStringLiteral("undo"), QStringLiteral("categoryTick2")});
    for (const auto& name : order) {
        stage.press(Qt::Key_Tab);
        EXPECT_EQ(stage.focused(), name);
    }
    order.pop_back();
    order.insert(order.begin(), QStringLiteral("messages"));
    while (!order.empty()) {
        stage.press(Qt::Key_Backtab, Qt::ShiftModifier);
        EXPECT_EQ(stage.focused(), order.back());
        order.pop_back();
    }
}

TEST(ReviewByKeyboard, WithoutAListTheBarsComeLast) {
    Stage stage(scenes::correctedResults);
    stage.state->expand.set(std::nullopt);
    ASSERT_TRUE(stage.tabTo("category9"));
    stage.press(Qt::Key_Tab);
    EXPECT_EQ(stage.focused(), QStringLiteral("offer0"));
    stage.press(Qt::Key_Backtab, Qt::ShiftModifier);
    EXPECT_EQ(stage.focused(), QStringLiteral("category9"));
    ASSERT_TRUE(stage.tabTo("undo"));
    stage.press(Qt::Key_Tab);
    EXPECT_EQ(stage.focused(), QStringLiteral("back"));
}

TEST(ReviewByKeyboard, AnOfferIsTakenAndTheListGoesOn) {
    Stage stage(scenes::openResults);
    ASSERT_TRUE(stage.tabTo("messages"));
    stage.press(Qt::Key_Space);
    EXPECT_EQ(stage.focused(), QStringLiteral("messages")) << "the offer takes nothing";
    ASSERT_TRUE(stage.tabTo("offer0"));
    stage.press(Qt::Key_Return);
    EXPECT_FALSE(stage.state->approved->contains(42));
    EXPECT_EQ(stage.focused(), QStringLiteral("messages"));
    ASSERT_TRUE(stage.tabTo("undo"));
    stage.press(Qt::Key_Space);
    EXPECT_TRUE(stage.state->approved->contains(42));
    EXPECT_EQ(stage.focused(), QStringLiteral("messages"));
}

TEST(ReviewByKeyboard, TheKeyOfUndoUndoesTheLastSweep) {
    Stage stage(scenes::correctedResults);
    ASSERT_TRUE(stage.state->lastSweep->has_value());
    stage.press(Qt::Key_Z, Qt::ControlModifier);
    EXPECT_FALSE(stage.state->lastSweep->has_value());
    stage.press(Qt::Key_Z, Qt::ControlModifier);
    EXPECT_EQ(*stage.state->screen, AppState::Screen::results) << "nothing left to undo";
}

TEST(ReviewByKeyboard, InTheFilterTheKeyOfUndoUndoesTheTyping) {
    Stage stage(scenes::correctedResults);
    stage.press(Qt::Key_F, Qt::ControlModifier);
    stage.type(QStringLiteral("quill"));
    stage.press(Qt::Key_Z, Qt::ControlModifier);
    EXPECT_EQ(stage.model().results()->messages()->filter(), QString());
    EXPECT_TRUE(stage.state->lastSweep->has_value());
}

TEST(ReviewByKeyboard, TheRowUnderTheBarsIsScrolledIntoSight) {
    Stage stage(scenes::openResults);
    stage.window()->resize(stage.window()->minimumSize());
    ASSERT_TRUE(stage.tabTo("messages"));
    for (int i = 0; i < 5; ++i) stage.press(Qt::Key_Down);
    stage.press(Qt::Key_Space);
    const auto* bar = stage.await("offerBar");
    ASSERT_NE(bar, nullptr);
    const auto* row = stage.find("row5");
    EXPECT_LE(row->mapToScene(QPointF(0, row->height())).y(), bar->mapToScene(QPointF()).y());
}

TEST(ReviewByKeyboard, HelpStandsWhereTheKeyboardRests) {
    Stage stage(scenes::openResults);
    ASSERT_TRUE(stage.tabTo("bySender"));
    EXPECT_TRUE(QTest::qWaitFor([&] { return stage.find("helpTip") != nullptr; }));
    EXPECT_EQ(stage.find("helpTip")->property("text"),
              QStringLiteral("One row per sender instead of one per message"));
    stage.press(Qt::Key_Tab);
    EXPECT_TRUE(QTest::qWaitFor([&] { return stage.find("helpTip") == nullptr; }));
}

}  // namespace
}  // namespace brindlet::testing
