#include "screens/GmailStage.h"
#include "screens/Reader.h"

namespace brindlet::testing {
namespace {

TEST(IntentNotice, NamesTheDestination) {
    GmailStage stage;
    EXPECT_EQ(stage.text("destination"), "Brindlet Junk");
    EXPECT_EQ(stage.text("intentText"),
              "Brindlet will create it the first time it moves anything. Nothing is ever deleted. "
              "On Gmail the move runs through Mail itself, so Mail comes to the front while it "
              "works.");
    EXPECT_EQ(stage.model().pick()->intent()->tint(), screens::IntentModel::Fresh);
}

TEST(IntentNotice, AnotherDestinationIsChosenFromTheMenuAndKept) {
    GmailStage stage;
    ASSERT_TRUE(stage.click("destination"));
    ASSERT_NE(stage.await("destination0"), nullptr);
    EXPECT_EQ(stage.text("destination0"),
              "[Gmail]/Spam - also trains Google, and it clears the folder after 30 days");
    EXPECT_EQ(stage.text("destination1"), "Brindlet Junk - a new folder Brindlet makes");
    EXPECT_EQ(stage.find("destination1")->property("symbol"), "checkmark");
    EXPECT_FALSE(stage.find("destination0")->property("truncated").toBool());
    ASSERT_TRUE(stage.click("destination0"));
    EXPECT_TRUE(QTest::qWaitFor([&] { return !stage.stands("destination0"); }));
    stage.settle();
    EXPECT_EQ(stage.text("destination"), "[Gmail]/Spam");
    EXPECT_EQ(stage.model().pick()->intent()->tint(), screens::IntentModel::Spam);
    EXPECT_EQ(stage.state->destinationName(), "[Gmail]/Spam");
    EXPECT_EQ(stage.state->destinations.byAccount->at((*stage.state->account)->id), "[Gmail]/Spam");
}

TEST(IntentNotice, TheMenuIsWalkedByTheKeyboard) {
    GmailStage stage;
    ASSERT_TRUE(stage.tabTo("destination"));
    stage.press(Qt::Key_Return);
    ASSERT_NE(stage.await("destination0"), nullptr);
    stage.press(Qt::Key_Escape);
    EXPECT_TRUE(QTest::qWaitFor([&] { return !stage.stands("destination0"); }));
    EXPECT_EQ(stage.focused(), QStringLiteral("destination"));
    stage.press(Qt::Key_Space);
    ASSERT_NE(stage.await("destination0"), nullptr);
    stage.press(Qt::Key_Return);
    stage.settle();
    EXPECT_EQ(stage.state->destinationName(), "[Gmail]/Spam");
    EXPECT_EQ(*stage.state->screen, AppState::Screen::pick);
}

TEST(IntentNotice, AFolderOfJunkWorksBackwards) {
    GmailStage stage;
    stage.model().pick()->chooseFolder(1);
    stage.settle();
    EXPECT_EQ(stage.text("backwards"), "This is a junk folder, so Brindlet works backwards here");
    EXPECT_EQ(stage.text("intentText"),
              "It looks for real mail that got filtered by mistake and offers to move it back to "
              "your inbox. Anything Brindlet filed here itself is skipped.");
    EXPECT_FALSE(stage.stands("destination"));
    EXPECT_TRUE(stage.stands("gmailNotice"));
    stage.model().pick()->chooseFolder(0);
    stage.settle();
    EXPECT_TRUE(stage.stands("destination"));
    EXPECT_FALSE(stage.stands("backwards"));
}

TEST(IntentNotice, DoesNotStandWithoutAnAccount) {
    Stage stage(scenes::noAccounts);
    EXPECT_EQ(stage.find("intentNotice"), nullptr);
}

TEST(IntentNotice, ChoosesOnlyWhatIsOnTheMenu) {
    GmailStage stage;
    for (const int row : {-1, 2, 99}) stage.model().pick()->intent()->choose(row);
    EXPECT_TRUE(stage.state->destinations.byAccount->empty());
}

TEST(IntentNotice, AScreenReaderHearsWhereJunkWillGo) {
    GmailStage stage;
    const Reader reader(stage);
    auto* button = reader.find("Junk will go to", QAccessible::Button);
    EXPECT_EQ(button->text(QAccessible::Description), QStringLiteral("Brindlet Junk"));
    press(button);
    ASSERT_NE(stage.await("destination1"), nullptr);
    const auto* ours = QAccessible::queryAccessibleInterface(stage.find("destination1"));
    EXPECT_TRUE(ours->state().checked);
}

}  // namespace
}  // namespace brindlet::testing
