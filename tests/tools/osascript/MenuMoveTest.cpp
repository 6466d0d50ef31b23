#include <gtest/gtest.h>

#include "ScriptHome.h"

// The menu script as it stands, through the stand-in as a process.

namespace brindlet::osascript {
namespace {

using Strings = std::vector<std::string>;

const Strings three{"m1@h", "m2@h", "m3@h"};
const ScriptHome::Menu receipts{
    .address = "me@gmail.example", .source = "INBOX", .destination = "Receipts"};

struct MenuMove : ::testing::Test {
    void TearDown() override { EXPECT_EQ(home.disagreement(), ""); }

    ScriptHome home;
};

TEST_F(MenuMove, MovesForRealWhereAScriptedMoveWouldOnlyTag) {
    home.finish();
    const auto run = home.menu({"g1@h", "g2@h"}, receipts);
    EXPECT_EQ(run.status, 0);
    EXPECT_EQ(run.errors, "");
    EXPECT_EQ(run.output, "2|2|g2@h\ng1@h\n");
    EXPECT_EQ(home.idsIn(ScriptHome::gmail, "INBOX"), (Strings{"g5@h", "g4@h", "g3@h"}));
    EXPECT_EQ(home.idsIn(ScriptHome::gmail, "Receipts"), (Strings{"g2@h", "g1@h"}));
    EXPECT_EQ(home.countIn(ScriptHome::gmail, "[Gmail]/All Mail"), 5u);
}

TEST_F(MenuMove, MovesWhereFoldersAreFoldersToo) {
    home.finish();
    EXPECT_EQ(home.menu(three).output, "3|3|m3@h\nm2@h\nm1@h\n");
    EXPECT_EQ(home.countIn(ScriptHome::work, "Junk"), 4u);
}

TEST_F(MenuMove, PicksTheFirstOfTheListingUpToTheLimit) {
    home.finish();
    EXPECT_EQ(home.menu(three, {.most = 2}).output, "2|2|m3@h\nm2@h\n");
    EXPECT_EQ(home.countIn(ScriptHome::work, "INBOX"), 23u);
}

TEST_F(MenuMove, NoneOfThemInTheFolderIsAReason) {
    home.finish();
    EXPECT_EQ(home.menu({"nobody@h"}).output, "0|0|none of them are in INBOX\n");
}

TEST_F(MenuMove, AWindowIsOpenedWhenThereIsNone) {
    home.behaviour().viewers = 0;
    home.finish();
    EXPECT_EQ(home.menu(three).output, "3|3|m3@h\nm2@h\nm1@h\n");
}

TEST_F(MenuMove, ASelectionThatIsDroppedOnceIsTriedAgain) {
    home.behaviour().selection = sample::SelectionDrops::once;
    home.finish();
    EXPECT_EQ(home.menu(three).output, "3|3|m3@h\nm2@h\nm1@h\n");
}

TEST_F(MenuMove, ASelectionThatIsAlwaysDroppedIsAReason) {
    home.behaviour().selection = sample::SelectionDrops::always;
    home.finish();
    EXPECT_EQ(home.menu(three).output, "0|0|the viewer would not select anything\n");
    EXPECT_EQ(home.countIn(ScriptHome::work, "INBOX"), 25u);
}

TEST_F(MenuMove, AMissingOrDisabledEntryIsAReason) {
    for (const auto menu : {sample::MoveMenu::entryMissing, sample::MoveMenu::entryDisabled}) {
        SCOPED_TRACE(rawValue(menu));
        ScriptHome other;
        other.behaviour().moveMenu = menu;
        other.finish();
        EXPECT_EQ(other.menu(three).output,
                  "0|0|Mail's Move to menu is closed to us - Mail has to be the front app\n");
        EXPECT_EQ(other.countIn(ScriptHome::work, "INBOX"), 25u);
    }
    home.finish();
}

TEST_F(MenuMove, AFolderOfAnotherAccountIsNotTakenForTheOwn) {
    home.finish();
    // "Old" stands in the section of the account before.
    EXPECT_EQ(home.menu(three, {.destination = "Old"}).output,
              "0|0|Mail's Move to menu is closed to us - Mail has to be the front app\n");
}

TEST_F(MenuMove, AFolderOfALaterAccountIsClickedForWantOfAnOwn) {
    home.finish();
    // Gmail's section comes after Work's, and nothing ends a section for the script; what was
    // clicked is another account's, where these messages do not go.
    EXPECT_EQ(home.menu(three, {.destination = "Receipts"}).output, "3|0|\n");
    EXPECT_EQ(home.countIn(ScriptHome::work, "INBOX"), 25u);
}

TEST_F(MenuMove, AMenuThatMovesNothingGivesAnEmptyReason) {
    home.behaviour().menuMovesAtMost = 0;
    home.finish();
    EXPECT_EQ(home.menu(three).output, "3|0|\n");
}

TEST_F(MenuMove, OnlyWhatHasLeftIsTold) {
    home.behaviour().menuMovesAtMost = 2;
    home.finish();
    EXPECT_EQ(home.menu(three).output, "3|2|m3@h\nm2@h\n");
    EXPECT_EQ(home.countIn(ScriptHome::work, "INBOX"), 23u);
}

TEST_F(MenuMove, AMessageThatCannotMoveStaysAndIsNotTold) {
    home.behaviour().immovable = {"m2@h"};
    home.finish();
    EXPECT_EQ(home.menu(three).output, "3|2|m3@h\nm1@h\n");
}

TEST_F(MenuMove, ASlowServerHasNotMovedByTheTimeOfTheQuestion) {
    home.behaviour().slowServer = 30;
    home.finish();
    EXPECT_EQ(home.menu(three).output, "3|0|\n");
    EXPECT_EQ(home.countIn(ScriptHome::work, "Junk"), 4u);
}

TEST_F(MenuMove, NoSuchAccountIsTheScriptsOwnError) {
    home.finish();
    const auto run = home.menu(three, {.address = "who@x.example"});
    EXPECT_EQ(run.status, 1);
    EXPECT_EQ(run.output, "");
    EXPECT_TRUE(
        run.errors.ends_with(": execution error: Mail has no account for who@x.example (-2700)\n"))
        << run.errors;
}

TEST_F(MenuMove, NoSuchSourceIsAnErrorOfTheMailProgram) {
    home.finish();
    const auto run = home.menu(three, {.source = "Nowhere"});
    EXPECT_TRUE(
        run.errors.ends_with(": execution error: Mail got an error: Can’t get mailbox "
                             "\"Nowhere\" of account \"Work\". (-1728)\n"))
        << run.errors;
}

TEST_F(MenuMove, ARefusedInterfaceIsAnErrorOfSystemEvents) {
    home.behaviour().refusesInterfaceScripting = true;
    home.finish();
    const auto run = home.menu(three);
    EXPECT_EQ(run.output, "");
    EXPECT_TRUE(
        run.errors.ends_with(": execution error: System Events got an error: osascript is "
                             "not allowed assistive access. (-1719)\n"))
        << run.errors;
    EXPECT_EQ(home.countIn(ScriptHome::work, "INBOX"), 25u);
}

TEST_F(MenuMove, ARefusedAutomationIsAnError) {
    home.behaviour().refusesAutomation = true;
    home.finish();
    EXPECT_TRUE(home.menu(three).errors.ends_with(
        ": execution error: Not authorized to send Apple events to Mail. (-1743)\n"));
}

TEST_F(MenuMove, AMailProgramThatQuitsIsAnError) {
    // The next request would be for what is selected.
    home.behaviour().quitsAfterEvents = 14;
    home.finish();
    const auto run = home.menu(three);
    EXPECT_EQ(run.status, 1);
    EXPECT_TRUE(run.errors.ends_with(
        ": execution error: Mail got an error: Connection is invalid. (-609)\n"))
        << run.errors;
}

TEST_F(MenuMove, AMailProgramThatHasQuitHasNoMenuEither) {
    home.behaviour().quitsAfterEvents = 15;
    home.finish();
    const auto run = home.menu(three);
    EXPECT_TRUE(
        run.errors.ends_with(": execution error: System Events got an error: Can’t get "
                             "process \"Mail\". (-1728)\n"))
        << run.errors;
}

TEST_F(MenuMove, AMessageWithoutAnIdIsNeverPicked) {
    home.home.addMessage({.mailbox = 2, .messageId = ""});
    home.finish();
    EXPECT_EQ(home.menu(three).output, "3|3|m3@h\nm2@h\nm1@h\n");
    EXPECT_EQ(home.countIn(ScriptHome::work, "INBOX"), 23u);
}

}  // namespace
}  // namespace brindlet::osascript
