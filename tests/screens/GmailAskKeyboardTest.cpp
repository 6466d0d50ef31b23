#include <algorithm>
#include <set>
#include <vector>

#include "screens/GmailStage.h"

namespace brindlet::testing {
namespace {

TEST(GmailAskByKeyboard, OpensOnItsMainButtonAndTabStaysInside) {
    GmailStage stage;
    ASSERT_TRUE(stage.tabTo("sort"));
    stage.press(Qt::Key_Return);
    ASSERT_NE(stage.await("gmailAsk"), nullptr);
    EXPECT_EQ(stage.focused(), QStringLiteral("allowGmail"));
    for (const auto modifiers : {Qt::NoModifier, Qt::ShiftModifier}) {
        std::set<QString> reached;
        for (int i = 0; i < 6; ++i) {
            stage.press(modifiers ? Qt::Key_Backtab : Qt::Key_Tab, modifiers);
            reached.insert(stage.focused());
        }
        EXPECT_EQ(reached, (std::set<QString>{"allowGmail", "declineGmail"}));
    }
}

TEST(GmailAskByKeyboard, AllowGivesTheKeyboardToTheFieldAndReturnThereTests) {
    GmailStage stage;
    stage.accept();
    ASSERT_TRUE(stage.tabTo("gmailControl"));
    stage.press(Qt::Key_Space);
    ASSERT_NE(stage.await("gmailAsk"), nullptr);
    stage.press(Qt::Key_Space);
    stage.settle();
    EXPECT_EQ(stage.focused(), QStringLiteral("appPassword"));
    std::vector<QString> order;
    for (int i = 0; i < 3; ++i) {
        stage.press(Qt::Key_Tab);
        order.push_back(stage.focused());
    }
    EXPECT_EQ(order, (std::vector<QString>{"declineGmail", "openAppPasswords", "appPassword"}))
        << "the button that is off is passed";
    stage.press(Qt::Key_Return);
    EXPECT_TRUE(stage.world.tls.made().empty()) << "too short";
    stage.type(QLatin1String(GmailStage::password));
    stage.press(Qt::Key_Return);
    EXPECT_EQ(stage.text("allowGmail"), "Checking…");
    EXPECT_EQ(stage.focused(), QStringLiteral("appPassword"));
    stage.finishTest("Connected. Junk will really leave this inbox now.");
    stage.finishTask();
    EXPECT_FALSE(stage.stands("gmailAsk"));
    EXPECT_EQ(stage.focused(), QStringLiteral("gmailControl")) << "where it came from";
}

TEST(GmailAskByKeyboard, TabStaysInsideTheOpenPanelBothWays) {
    GmailStage stage;
    stage.openPanel();
    stage.type(QLatin1String(GmailStage::password));
    for (const auto modifiers : {Qt::NoModifier, Qt::ShiftModifier}) {
        std::vector<QString> order;
        for (int i = 0; i < 8; ++i) {
            stage.press(modifiers ? Qt::Key_Backtab : Qt::Key_Tab, modifiers);
            order.push_back(stage.focused());
        }
        EXPECT_EQ(
            std::set<QString>(order.begin(), order.begin() + 4),
            (std::set<QString>{"appPassword", "declineGmail", "allowGmail", "openAppPasswords"}));
        EXPECT_TRUE(std::equal(order.begin(), order.begin() + 4, order.begin() + 4));
        EXPECT_EQ(order[3], QStringLiteral("appPassword"));
    }
}

TEST(GmailAskByKeyboard, TheButtonThatGoesOffLeavesTheKeyboardToTheField) {
    GmailStage stage;
    stage.hang();
    stage.openPanel();
    stage.type(QLatin1String(GmailStage::password));
    ASSERT_TRUE(stage.tabTo("allowGmail"));
    stage.press(Qt::Key_Return);
    stage.world.tls.waitForBlock();
    EXPECT_EQ(stage.focused(), QStringLiteral("appPassword"));
}

TEST(GmailAskByKeyboard, EscapeIsNotNow) {
    for (const bool panel : {false, true}) {
        SCOPED_TRACE(panel);
        GmailStage stage;
        ASSERT_TRUE(stage.tabTo("gmailControl"));
        stage.press(Qt::Key_Return);
        ASSERT_NE(stage.await("gmailAsk"), nullptr);
        if (panel) stage.press(Qt::Key_Return);
        stage.settle();
        EXPECT_EQ(stage.focused(), panel ? "appPassword" : "allowGmail");
        stage.press(Qt::Key_Escape);
        stage.settle();
        EXPECT_FALSE(stage.asked());
        EXPECT_FALSE(stage.stands("gmailAsk"));
        EXPECT_TRUE(stage.state->declinedGmail.contains(GmailStage::address));
        EXPECT_EQ(stage.focused(), QStringLiteral("gmailControl"));
        EXPECT_EQ(*stage.state->screen, AppState::Screen::pick) << "and goes no further back";
        stage.press(Qt::Key_Escape);
        EXPECT_NE(*stage.state->screen, AppState::Screen::pick);
    }
}

TEST(GmailAskByKeyboard, EscapeDuringATestIsNotNowAndAGoodPasswordIsKeptAllTheSame) {
    GmailStage stage;
    stage.accept();
    stage.openPanel();
    stage.type(QLatin1String(GmailStage::password));
    stage.press(Qt::Key_Return);
    EXPECT_TRUE(stage.model().gmailAsk()->checking());
    stage.press(Qt::Key_Escape);
    stage.settle();
    EXPECT_FALSE(stage.stands("gmailAsk"));
    EXPECT_TRUE(stage.state->declinedGmail.contains(GmailStage::address));
    stage.finishTask();
    EXPECT_EQ(stage.kept(), "abcdefghijklmnop");
    EXPECT_FALSE(stage.stands("gmailAsk"));
}

TEST(GmailAskByKeyboard, WhenTheScreenHasGoneTheNextOneHasTheKeyboard) {
    GmailStage stage;
    ASSERT_TRUE(stage.tabTo("sort"));
    stage.press(Qt::Key_Return);
    ASSERT_NE(stage.await("gmailAsk"), nullptr);
    stage.press(Qt::Key_Escape);
    ASSERT_NE(stage.await("scanningScreen"), nullptr);
    ASSERT_TRUE(stage.tabTo("stop"));
}

}  // namespace
}  // namespace brindlet::testing
