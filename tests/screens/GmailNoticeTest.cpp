#include "screens/GmailStage.h"
#include "screens/Reader.h"

namespace brindlet::testing {
namespace {

TEST(GmailNotice, StandsForGmailAccountsAlone) {
    Stage plain(scenes::chosenMailbox);
    EXPECT_EQ(plain.find("gmailNotice"), nullptr);
    GmailStage stage;
    EXPECT_EQ(stage.text("gmailTitle"),
              "Gmail needs one connection before junk can leave the inbox");
    EXPECT_EQ(stage.text("gmailControl"), "Connect Gmail");
}

TEST(GmailNotice, ConnectsEvenWhatWasDeclined) {
    GmailStage stage;
    stage.openSheet();
    ASSERT_TRUE(stage.click("declineGmail"));
    EXPECT_TRUE(stage.state->declinedGmail.contains(GmailStage::address));
    stage.openSheet();
    EXPECT_EQ(stage.state->askThen, AppState::GmailThen::nothing);
}

TEST(GmailNotice, DisconnectsAndForgetsThePassword) {
    GmailStage stage;
    stage.world.keys.keep(GmailStage::service, GmailStage::address, "abcdefghijklmnop");
    stage.state->gmailConnected.set({GmailStage::address});
    stage.settle();
    EXPECT_EQ(stage.text("gmailTitle"), "Gmail connected - moves are instant and silent");
    EXPECT_EQ(stage.text("gmailControl"), "Disconnect");
    ASSERT_TRUE(stage.click("gmailControl"));
    EXPECT_EQ(stage.text("gmailControl"), "Connect Gmail");
    EXPECT_EQ(stage.text("gmailTitle"),
              "Gmail needs one connection before junk can leave the inbox");
    EXPECT_TRUE(stage.world.mainQueue.pumpUntil([&] { return !stage.kept(); }));
    stage.openPanel();
    EXPECT_EQ(stage.text("appPassword"), "");
}

TEST(GmailNotice, TellsWhatThePermissionMeansWhenAsked) {
    GmailStage stage;
    const Reader reader(stage);
    EXPECT_FALSE(stage.stands("gmailPermission"));
    auto* more = reader.find("Google will ask for a lot - here is what is actually used");
    EXPECT_EQ(more->text(QAccessible::Description), QStringLiteral("Collapsed"));
    EXPECT_EQ(stage.find("gmailDisclosure")->property("symbol"), "chevron.down");
    ASSERT_TRUE(stage.click("gmailDisclosure"));
    EXPECT_TRUE(stage.stands("gmailPermission"));
    EXPECT_EQ(stage.text("gmailDisclosure"), "Hide what this permission means");
    EXPECT_EQ(stage.find("gmailDisclosure")->property("symbol"), "chevron.up");
    EXPECT_NE(reader.find("It never sends mail, never deletes mail, and never empties anything. "
                          "Junk keeps its label and stays in All Mail for good, which is why "
                          "Brindlet files into a folder rather than Spam."),
              nullptr);
    ASSERT_TRUE(stage.click("gmailDisclosure"));
    EXPECT_FALSE(stage.stands("gmailPermission"));
}

TEST(GmailNotice, IsClosedAgainOnTheNextVisit) {
    GmailStage stage;
    ASSERT_TRUE(stage.click("gmailDisclosure"));
    stage.state->navigate(AppState::Screen::history);
    stage.settle();
    stage.state->goBack();
    stage.settle();
    ASSERT_TRUE(stage.await("gmailDisclosure"));
    EXPECT_FALSE(stage.stands("gmailPermission"));
}

TEST(GmailNotice, ConnectsWhatWasDeclinedWhenAScanAsked) {
    GmailStage stage;
    ASSERT_TRUE(stage.click("sort"));
    ASSERT_TRUE(stage.click("declineGmail"));
    stage.state->stopScan();
    stage.state->navigate(AppState::Screen::pick);
    ASSERT_NE(stage.await("sort"), nullptr);
    EXPECT_EQ(stage.text("gmailControl"), "Connect Gmail");
    stage.openPanel();
    EXPECT_TRUE(stage.asked());
}

TEST(GmailNotice, InTheSmallestWindowNothingOfTheChoicesTouches) {
    GmailStage stage;
    stage.window()->resize(stage.window()->minimumSize());
    auto* skip = stage.find("skip");
    skip->setProperty("text", "Skip the 96 already sorted in this folder, and two lines of it");
    (void)stage.window()->grabWindow();
    stage.settle();
    const auto* count = stage.find("count");
    EXPECT_GE(count->mapToScene(QPointF()).y(),
              skip->mapToScene(QPointF(0, skip->height())).y() + 8);
    const auto* sort = stage.find("sort");
    EXPECT_LE(sort->mapToScene(QPointF(0, sort->height())).y(), stage.window()->height())
        << "and the button is in sight";
}

TEST(GmailNotice, OpenedInTheSmallestWindowEverythingCanStillBeReached) {
    GmailStage stage;
    stage.window()->resize(stage.window()->minimumSize());
    ASSERT_TRUE(stage.click("gmailDisclosure"));
    // What opens moves the rest with the next frame.
    (void)stage.window()->grabWindow();
    stage.settle();
    ASSERT_TRUE(stage.tabTo("sort"));
    const auto* sort = stage.find("sort");
    EXPECT_TRUE(QTest::qWaitFor([&] {
        return sort->mapToScene(QPointF(0, sort->height())).y() <= stage.window()->height();
    }));
    EXPECT_GE(stage.find("folders")->height(), 100);
}

}  // namespace
}  // namespace brindlet::testing
