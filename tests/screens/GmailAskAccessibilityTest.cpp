#include "screens/GmailStage.h"
#include "screens/Reader.h"

namespace brindlet::testing {
namespace {

TEST(GmailAskReader, IsADialogThatTellsItsWords) {
    GmailStage stage;
    stage.openSheet();
    const Reader reader(stage);
    const auto* title = "Gmail needs your permission to move mail";
    EXPECT_NE(reader.find(title, QAccessible::Dialog), nullptr);
    EXPECT_NE(reader.find(title, QAccessible::Heading), nullptr);
    for (const auto* words :
         {GmailStage::address, "If you allow", "If you don't",
          "You sign in on Google's own page. Brindlet never sees your password.",
          "Revocable any time, here or at myaccount.google.com/permissions."})
        EXPECT_NE(reader.find(words, QAccessible::StaticText), nullptr);
    EXPECT_NE(reader.find("Not now - just label them", QAccessible::Button), nullptr);
    press(reader.find("Allow", QAccessible::Button));
    stage.settle();
    EXPECT_NE(reader.find("Open Google's app password page", QAccessible::Button), nullptr);
    press(reader.find("Check and save", QAccessible::Button));
    EXPECT_FALSE(stage.model().gmailAsk()->checking()) << "nothing is typed yet";
}

TEST(GmailAskReader, TheFieldKeepsItsSecret) {
    GmailStage stage;
    stage.openPanel();
    stage.paste(GmailStage::password);
    const Reader reader(stage);
    const auto* title = "Name it Brindlet, then paste the 16 characters here:";
    EXPECT_NE(reader.find(title, QAccessible::StaticText), nullptr);
    auto* field = QAccessible::queryAccessibleInterface(stage.find("appPassword"));
    ASSERT_NE(field, nullptr);
    EXPECT_EQ(field->role(), QAccessible::EditableText);
    EXPECT_TRUE(field->state().passwordEdit);
    EXPECT_FALSE(field->text(QAccessible::Value).contains(QLatin1String("efgh")));
    auto* words = field->textInterface();
    ASSERT_NE(words, nullptr);
    EXPECT_FALSE(words->text(0, words->characterCount()).contains(QLatin1String("efgh")));
}

TEST(GmailAskReader, HearsThatATestRunsAndCannotBeginAnother) {
    GmailStage stage;
    stage.hang();
    stage.openPanel();
    stage.paste(GmailStage::password);
    const Reader reader(stage);
    press(reader.find("Check and save", QAccessible::Button));
    stage.world.tls.waitForBlock();
    press(reader.find("Checking…", QAccessible::Button));
    EXPECT_EQ(stage.world.tls.made().size(), 1U);
    press(reader.find("Not now - just label them", QAccessible::Button));
    EXPECT_FALSE(stage.asked());
}

TEST(GmailAskReader, HearsWhatCameOfTheTest) {
    GmailStage stage;
    stage.world.tls.add(doubles::Transcript().fails("Network is unreachable"));
    stage.openPanel();
    stage.paste(GmailStage::password);
    const Reader reader(stage);
    press(reader.find("Check and save"));
    stage.finishTest("Couldn't reach Gmail: Network is unreachable");
    EXPECT_NE(
        reader.find("Couldn't reach Gmail: Network is unreachable", QAccessible::AlertMessage),
        nullptr);
}

}  // namespace
}  // namespace brindlet::testing
