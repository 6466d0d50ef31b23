#include <gtest/gtest.h>

#include <QTest>

#include "base/Files.h"
#include "platform/Directories.h"
#include "screens/Reader.h"

namespace brindlet::testing {
namespace {

std::string text(const Stage& stage, const char* name) {
    const auto* item = stage.await(QString::fromUtf8(name));
    return item ? item->property("text").toString().toStdString() : "nothing";
}

bool stands(const Stage& stage, const char* name) {
    return stage.find(QString::fromUtf8(name)) != nullptr;
}

void makeReadable(const AppState& state) {
    const auto data = state.services().directories.home() + "/Library/Mail/V10/MailData";
    ASSERT_TRUE(files::createDirectories(data));
    ASSERT_TRUE(files::write(data + "/Envelope Index", "x"));
}

TEST(PickScreen, WhileAccountsAreLookedForThereIsNothingToPress) {
    Stage stage([](AppState& state) {
        state.loadingAccounts.set(true);
        scenes::noAccounts(state);
    });
    EXPECT_EQ(text(stage, "noticeTitle"), "Finding your mailboxes");
    EXPECT_EQ(text(stage, "noticeText"), "Asking Mail for your accounts. A couple of seconds.");
    EXPECT_TRUE(stands(stage, "finding"));
    for (const auto* button : {"openSettings", "openMail", "checkAgain", "folders", "sort"})
        EXPECT_FALSE(stands(stage, button)) << button;
    EXPECT_EQ(stage.tabStops().size(), 1U) << "the way back alone";
}

TEST(PickScreen, FilesThatCannotBeReadLeadToTheSettings) {
    Stage stage(scenes::noAccounts);
    EXPECT_EQ(text(stage, "noticeTitle"), "Brindlet can't read Mail's files");
    EXPECT_FALSE(stands(stage, "openMail"));
    EXPECT_FALSE(stands(stage, "finding"));
    ASSERT_TRUE(stage.tabTo("openSettings"));
    stage.press(Qt::Key_Space);
    EXPECT_EQ(stage.world.desktop.opened, std::vector<std::string>{"disk access settings"});
    ASSERT_TRUE(stage.tabTo("checkAgain"));
    stage.press(Qt::Key_Return);
    EXPECT_TRUE(*stage.state->loadingAccounts);
}

TEST(PickScreen, WithoutAccountsItLeadsToMail) {
    Stage stage([](AppState& state) {
        makeReadable(state);
        scenes::noAccounts(state);
    });
    EXPECT_EQ(text(stage, "noticeTitle"), "No accounts set up in Mail yet");
    EXPECT_FALSE(stands(stage, "openSettings"));
    EXPECT_TRUE(stage.click("openMail"));
    EXPECT_EQ(stage.world.desktop.opened, std::vector<std::string>{"mail"});
    EXPECT_TRUE(stage.click("checkAgain"));
    EXPECT_TRUE(*stage.state->loadingAccounts);
}

TEST(PickScreen, AWheelTurnsWhileMailboxesAreChecked) {
    Stage stage(scenes::mailboxes);
    ASSERT_TRUE(stage.world.mainQueue.pumpUntil([&] { return !*stage.state->refreshingFolders; }));
    stage.settle();
    EXPECT_FALSE(stands(stage, "checking"));
    stage.state->refreshFolders();
    stage.settle();
    ASSERT_TRUE(stands(stage, "checking"));
    const Reader reader(stage);
    EXPECT_EQ(reader.find("Checking mailboxes")->role(), QAccessible::StaticText);
}

TEST(PickScreen, AVanishedFolderIsToldOfInEveryState) {
    Stage stage(scenes::noAccounts);
    EXPECT_FALSE(stands(stage, "vanishedBar"));
    stage.state->folderVanished.set("Old/Lists");
    stage.settle();
    EXPECT_EQ(text(stage, "vanishedBar"),
              "Old/Lists isn't in Mail any more - pick another folder.");
    EXPECT_EQ(stage.find("vanishedBar")->property("symbol"), "trash");
    EXPECT_EQ(stage.find("dismiss")->property("symbol"), "xmark");
    ASSERT_TRUE(stage.tabTo("dismiss"));
    stage.press(Qt::Key_Space);
    EXPECT_FALSE(stage.state->folderVanished->has_value());
    EXPECT_FALSE(stands(stage, "vanishedBar"));
}

TEST(PickScreen, AVanishedFolderIsAnAlertToAScreenReader) {
    Stage stage(scenes::chosenMailbox);
    const Reader reader(stage);
    auto* bar = reader.find("Old/Lists isn't in Mail any more - pick another folder.",
                            QAccessible::AlertMessage);
    ASSERT_NE(bar, nullptr);
    press(named(bar, QStringLiteral("Dismiss"), QAccessible::Button));
    stage.settle();
    EXPECT_FALSE(stage.state->folderVanished->has_value());
}

TEST(PickScreen, AnotherAccountShowsItsMailboxesAndForgetsTheChoice) {
    Stage stage([](AppState& state) {
        scenes::mailboxes(state);
        state.folder.set(state.account->value().folders.front());
    });
    ASSERT_TRUE(stage.tabTo("accounts"));
    EXPECT_EQ(stage.find("accounts")->property("displayText"), "ada@example.org");
    stage.press(Qt::Key_Space);
    stage.press(Qt::Key_Down);
    stage.press(Qt::Key_Return);
    EXPECT_EQ(stage.find("accounts")->property("displayText"), "ada.work@example.net");
    EXPECT_EQ(stage.find("folders")->property("count"), 1);
    EXPECT_FALSE(stage.state->folder->has_value());
    EXPECT_FALSE(stage.find("sort")->isEnabled());
}

TEST(PickScreen, AMailboxWithoutMailCannotBeChosenAndSaysSo) {
    Stage stage(scenes::mailboxes);
    const Reader reader(stage);
    auto* empty = reader.find("Travel");
    EXPECT_EQ(empty->text(QAccessible::Description),
              QStringLiteral("a folder you made, empty, never sorted"));
    EXPECT_FALSE(empty->state().checkable);
    EXPECT_TRUE(reader.find("INBOX")->state().checkable);
    press(empty);
    stage.settle();
    EXPECT_FALSE(stage.state->folder->has_value());
}

TEST(PickScreen, CountsWhatTheRoundButtonWouldTakeAndStartsIt) {
    Stage stage([](AppState& state) {
        scenes::mailboxes(state);
        state.folder.set(state.account->value().folders.front());
        state.inReach.set(1834);
    });
    EXPECT_EQ(text(stage, "count"), "1,834 to sort");
    stage.state->seen.mark({"a", "b"}, true, "ada@example.org", "INBOX");
    stage.settle();
    EXPECT_EQ(text(stage, "count"), "1,834 new to sort");
    ASSERT_TRUE(stage.tabTo("sort"));
    stage.press(Qt::Key_Return);
    EXPECT_TRUE(*stage.state->running);
    EXPECT_EQ(*stage.state->screen, AppState::Screen::scanning);
}

TEST(PickScreen, IsLeftByItsButton) {
    Stage stage(scenes::mailboxes);
    const Reader reader(stage);
    EXPECT_EQ(reader.find("Back")->role(), QAccessible::Button);
    EXPECT_TRUE(stage.click("back"));
    EXPECT_EQ(*stage.state->screen, AppState::Screen::welcome);
}

}  // namespace
}  // namespace brindlet::testing
