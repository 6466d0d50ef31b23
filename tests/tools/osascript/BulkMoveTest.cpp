#include <gtest/gtest.h>

#include "ScriptHome.h"
#include "sample/MailPresence.h"

// The bulk script as it stands, through the stand-in as a process.

namespace brindlet::osascript {
namespace {

using Strings = std::vector<std::string>;

/// A home whose files and index must agree at the end, whatever happened.
struct BulkMove : ::testing::Test {
    void TearDown() override { EXPECT_EQ(home.disagreement(), ""); }

    ScriptHome home;
};

/// What the host says on standard error, without the place in the script.
std::string said(const ScriptOutcome& run) {
    const std::size_t at = run.errors.find(": execution error: ");
    return at == std::string::npos ? "?" + run.errors : run.errors.substr(at + 2);
}

TEST_F(BulkMove, MovesTheRowsAndTellsEachOne) {
    home.finish();
    const auto outcome = home.bulk(home.rows(12));
    EXPECT_EQ(outcome.run.status, 0);
    EXPECT_EQ(outcome.run.errors, "");
    EXPECT_EQ(outcome.run.output, "12|13|false|false\n");
    EXPECT_EQ(outcome.progress, "move|10|12");
    ASSERT_EQ(outcome.done.size(), 12u);
    EXPECT_EQ(outcome.done.front(), "m1@h");
    EXPECT_EQ(outcome.done.back(), "m12@h");
    EXPECT_EQ(home.countIn(ScriptHome::work, "INBOX"), 13u);
    EXPECT_EQ(home.countIn(ScriptHome::work, "Junk"), 13u);
}

TEST_F(BulkMove, ProgressCountsEveryTenthRow) {
    home.finish();
    EXPECT_EQ(home.bulk(home.rows(9)).progress, "scan|0|0");
    auto rows = home.rows(25);
    rows.erase(rows.begin(), rows.begin() + 9);
    EXPECT_EQ(home.bulk(rows).progress, "move|10|16");
}

TEST_F(BulkMove, ProgressCountsMovedMessagesAndNotRows) {
    home.behaviour().immovable = {"m3@h", "m4@h"};
    home.finish();
    EXPECT_EQ(home.bulk(home.rows(20)).progress, "move|18|20");
}

TEST_F(BulkMove, AStaleRowIdFallsBackToASearch) {
    home.finish();
    const auto outcome = home.bulk({{999'999, "m1@h"}, {home.inbox[2], "m2@h"}});
    EXPECT_EQ(outcome.run.output, "2|3|false|false\n");
    EXPECT_EQ(outcome.done, (Strings{"m1@h", "m2@h"}));
    // The row that was named and is another message has stayed.
    EXPECT_EQ(home.countIn(ScriptHome::work, "INBOX"), 23u);
}

TEST_F(BulkMove, WhatIsNotInTheSourceIsPassedOver) {
    home.finish();
    const auto outcome = home.bulk({{999'999, "nobody@h"}, {home.inbox[0], "m1@h"}});
    EXPECT_EQ(outcome.run.output, "1|2|false|false\n");
    EXPECT_EQ(outcome.done, Strings{"m1@h"});
}

TEST_F(BulkMove, NothingFoundIsAResultAndNoError) {
    home.finish();
    const auto outcome = home.bulk({{999'999, "nobody@h"}});
    EXPECT_EQ(outcome.run.output, "0|1|false|false\n");
    EXPECT_TRUE(outcome.done.empty());
}

TEST_F(BulkMove, ASecondRunOfTheSameListMovesNothingMore) {
    home.finish();
    home.bulk(home.rows(5));
    const auto outcome = home.bulk(home.rows(5));
    EXPECT_EQ(outcome.run.output, "0|6|false|false\n");
    EXPECT_TRUE(outcome.done.empty());
}

TEST_F(BulkMove, AMovedMessageHasAnotherRowIdAndCanBePutBackByItsMessageId) {
    home.finish();
    home.bulk(home.rows(3));
    const auto back = home.bulk(home.rows(3), {.destination = "INBOX", .source = "Junk"});
    EXPECT_EQ(back.run.output, "3|25|false|false\n");
    EXPECT_EQ(home.idsIn(ScriptHome::work, "Junk"), Strings{"old@h"});
}

TEST_F(BulkMove, TheAccountIsFoundByAnyOfItsAddressesWhateverTheirLetterCase) {
    home.finish();
    EXPECT_EQ(home.bulk({home.rows(1)[0]}, {.address = "ALIAS@X.EXAMPLE"}).run.status, 0);
    EXPECT_EQ(home.idsIn(ScriptHome::work, "Junk").size(), 2u);
}

TEST_F(BulkMove, TheAccountIsFoundByItsNameAtLast) {
    home.finish();
    EXPECT_EQ(home.bulk(home.rows(1), {.address = "work"}).run.output, "1|2|false|false\n");
}

TEST_F(BulkMove, NoSuchAccountIsTheScriptsOwnError) {
    home.finish();
    const auto outcome = home.bulk(home.rows(1), {.address = "who@x.example"});
    EXPECT_EQ(outcome.run.status, 1);
    EXPECT_EQ(outcome.run.output, "");
    EXPECT_EQ(outcome.run.errors,
              "1423:1466: execution error: Mail has no account for who@x.example (-2700)\n");
    EXPECT_EQ(outcome.progress, "scan|0|0");
}

TEST_F(BulkMove, NoSuchSourceIsTheScriptsOwnError) {
    home.finish();
    const auto outcome = home.bulk(home.rows(1), {.source = "Nowhere"});
    EXPECT_EQ(outcome.run.status, 1);
    EXPECT_EQ(said(outcome.run), "execution error: Mail has no folder Nowhere (-2700)\n");
}

TEST_F(BulkMove, ANestedFolderIsReachedByItsPath) {
    home.finish();
    EXPECT_EQ(home.bulk(home.rows(2), {.destination = "Projects/Harbour"}).run.output,
              "2|2|false|false\n");
    EXPECT_EQ(home.idsIn(ScriptHome::work, "Projects/Harbour"), (Strings{"m2@h", "m1@h"}));
}

TEST_F(BulkMove, ASourceIsFoundByItsLeafNameWhenThereIsNoSuchPath) {
    home.finish();
    home.bulk(home.rows(2), {.destination = "Projects/Harbour"});
    EXPECT_EQ(home.bulk(home.rows(2), {.destination = "INBOX", .source = "Harbour"}).run.output,
              "2|25|false|false\n");
}

TEST_F(BulkMove, AMailboxThatCannotTellItsNameBreaksTheWalkForTheSource) {
    home.behaviour().nameless = {"Junk"};
    home.finish();
    const auto outcome = home.bulk(home.rows(1), {.destination = "INBOX", .source = "Harbour"});
    EXPECT_EQ(said(outcome.run),
              "execution error: Mail got an error: AppleEvent handler failed. (-10000)\n");
}

TEST_F(BulkMove, AMissingDestinationIsMade) {
    home.finish();
    const auto outcome = home.bulk(home.rows(2), {.destination = "Brindlet Junk"});
    EXPECT_EQ(outcome.run.output, "2|2|true|false\n");
    EXPECT_EQ(home.countIn(ScriptHome::work, "Brindlet Junk"), 2u);
}

TEST_F(BulkMove, OddNamesAndIdsArriveAsTheyAre) {
    const std::string folder = "\"Über\" 100% / שלום <b>";
    const std::string odd = "\"q\"%41'#\\|ü@h";
    home.home.addMessage({.mailbox = 2, .messageId = odd});
    home.finish();
    const auto outcome = home.bulk({{7, odd}, home.rows(1)[0]}, {.destination = folder});
    EXPECT_EQ(outcome.run.output, "2|2|true|false\n");
    EXPECT_EQ(outcome.done, (Strings{odd, "m1@h"}));
    EXPECT_EQ(home.idsIn(ScriptHome::work, folder), (Strings{odd, "m1@h"}));
}

TEST_F(BulkMove, AnIdIsCutAtATab) {
    home.home.addMessage({.mailbox = 2, .messageId = "a\tb@h"});
    home.finish();
    // What stands behind the second tab is not looked at, so nothing of that id is found.
    EXPECT_EQ(home.bulk({{7, "a\tb@h"}}).run.output, "0|1|false|false\n");
}

TEST_F(BulkMove, OfTwoMessagesWithOneIdTheRowDecides) {
    const std::int64_t twin = home.home.addMessage({.mailbox = 2, .messageId = "m1@h"});
    home.finish();
    const auto outcome = home.bulk({{twin, "m1@h"}}, {.labelOnly = "1"});
    EXPECT_EQ(outcome.run.output, "1|2|false|false\n");
    EXPECT_EQ(home.countIn(ScriptHome::work, "INBOX"), 25u);
}

TEST_F(BulkMove, TheProbeTakesATwinThatStaysBehindForTheMessageItself) {
    const std::int64_t twin = home.home.addMessage({.mailbox = 2, .messageId = "m1@h"});
    home.finish();
    const auto outcome = home.bulk({{twin, "m1@h"}});
    EXPECT_EQ(outcome.run.output, "0|2|false|true\n");
    EXPECT_TRUE(outcome.done.empty());
}

TEST_F(BulkMove, AMessageThatCannotMoveIsPassedOver) {
    home.behaviour().immovable = {"m3@h"};
    home.finish();
    const auto outcome = home.bulk(home.rows(4));
    EXPECT_EQ(outcome.run.output, "3|4|false|false\n");
    EXPECT_EQ(outcome.done, (Strings{"m1@h", "m2@h", "m4@h"}));
}

TEST_F(BulkMove, AnEmptyLastLineIsARowThatDoesNothing) {
    home.finish();
    std::string lines;
    for (const auto& [row, id] : home.rows(9)) lines += std::to_string(row) + '\t' + id + '\n';
    const auto outcome = home.bulk({}, {.idFile = lines});
    EXPECT_EQ(outcome.run.output, "9|10|false|false\n");
    EXPECT_EQ(outcome.progress, "move|9|10");
}

TEST_F(BulkMove, ALineWithoutATabEndsTheRun) {
    home.finish();
    const auto outcome = home.bulk({}, {.idFile = "no tab here"});
    EXPECT_EQ(said(outcome.run),
              "execution error: Can’t get item 2 of {\"no tab here\"}. (-1728)\n");
}

TEST_F(BulkMove, ARowIdThatIsNoNumberFallsBackToASearch) {
    home.finish();
    EXPECT_EQ(home.bulk({}, {.idFile = "x\tm1@h"}).run.output, "1|2|false|false\n");
}

TEST_F(BulkMove, AGmailFolderOnlyTagsAndTheRunStops) {
    home.finish();
    const ScriptHome::Rows rows{{home.gmailRows[0], "g1@h"}, {home.gmailRows[1], "g2@h"}};
    const auto outcome =
        home.bulk(rows, {.address = "me@gmail.example", .destination = "Receipts"});
    EXPECT_EQ(outcome.run.output, "0|1|false|true\n");
    EXPECT_TRUE(outcome.done.empty());
    EXPECT_EQ(home.countIn(ScriptHome::gmail, "INBOX"), 5u);
    EXPECT_EQ(home.idsIn(ScriptHome::gmail, "Receipts"), Strings{"g1@h"});
}

TEST_F(BulkMove, GmailsSpamTakesTheMessagesOutOfTheInbox) {
    home.finish();
    const ScriptHome::Rows rows{{home.gmailRows[0], "g1@h"}, {home.gmailRows[1], "g2@h"}};
    ScriptHome::Bulk there{.address = "me@gmail.example", .destination = "[Gmail]/Spam"};
    EXPECT_EQ(home.bulk(rows, there).run.output, "2|2|false|false\n");
    EXPECT_EQ(home.countIn(ScriptHome::gmail, "INBOX"), 3u);
    EXPECT_EQ(home.countIn(ScriptHome::gmail, "[Gmail]/All Mail"), 3u);
    // And back, among all the others and into the inbox.
    std::swap(there.source, there.destination);
    EXPECT_EQ(home.bulk(rows, there).run.output, "2|5|false|false\n");
    EXPECT_EQ(home.countIn(ScriptHome::gmail, "[Gmail]/All Mail"), 5u);
}

TEST_F(BulkMove, LabelOnlySkipsTheProbe) {
    home.finish();
    const ScriptHome::Rows rows{{home.gmailRows[0], "g1@h"}, {home.gmailRows[1], "g2@h"}};
    const auto outcome = home.bulk(
        rows, {.address = "me@gmail.example", .destination = "Receipts", .labelOnly = "1"});
    EXPECT_EQ(outcome.run.output, "2|2|false|false\n");
    EXPECT_EQ(outcome.done.size(), 2u);
}

TEST_F(BulkMove, ASlowServerPassesTheSecondLook) {
    home.behaviour().slowServer = 2;
    home.finish();
    const auto outcome = home.bulk(home.rows(4));
    EXPECT_EQ(outcome.done.size(), 4u);
    EXPECT_TRUE(outcome.run.output.starts_with("4|")) << outcome.run.output;
    EXPECT_TRUE(outcome.run.output.ends_with("|false|false\n")) << outcome.run.output;
    // Those that were not in time for the last count have arrived since.
    EXPECT_EQ(home.countIn(ScriptHome::work, "Junk"), 5u);
}

TEST_F(BulkMove, AServerSlowerThanTheSecondLookCountsAsStuck) {
    home.behaviour().slowServer = 6;
    home.finish();
    const auto outcome = home.bulk(home.rows(4));
    EXPECT_EQ(outcome.run.output, "0|1|false|true\n");
    EXPECT_EQ(home.countIn(ScriptHome::work, "Junk"), 2u);
}

TEST_F(BulkMove, AServerThatUndoesAtOnceIsSeenByTheProbe) {
    home.behaviour().undoesFreshFolder = 0.5;
    home.finish();
    const auto outcome = home.bulk(home.rows(3), {.destination = "Brindlet Junk"});
    EXPECT_EQ(outcome.run.output, "0|0|true|true\n");
    EXPECT_EQ(home.countIn(ScriptHome::work, "INBOX"), 25u);
}

TEST_F(BulkMove, AServerThatUndoesAfterTheProbeLeavesTheNewFolderEmpty) {
    home.behaviour().undoesFreshFolder = 1.3;
    home.finish();
    const auto outcome = home.bulk(home.rows(1), {.destination = "Brindlet Junk"});
    EXPECT_EQ(outcome.run.output, "1|0|true|false\n");
    EXPECT_EQ(outcome.done, Strings{"m1@h"});
    EXPECT_EQ(home.countIn(ScriptHome::work, "INBOX"), 25u);
}

TEST_F(BulkMove, AFolderThatStoodBeforeIsNotUndone) {
    home.behaviour().undoesFreshFolder = 0.5;
    home.finish();
    EXPECT_EQ(home.bulk(home.rows(3)).run.output, "3|4|false|false\n");
}

TEST_F(BulkMove, AUndoneFolderIsUsableOnceItStands) {
    home.behaviour().undoesFreshFolder = 0.5;
    home.finish();
    home.bulk(home.rows(3), {.destination = "Brindlet Junk"});
    EXPECT_EQ(home.bulk(home.rows(3), {.destination = "Brindlet Junk"}).run.output,
              "3|3|false|false\n");
}

TEST_F(BulkMove, AMailProgramThatQuitsDuringTheLookupIsAnError) {
    home.behaviour().quitsAfterEvents = 1;
    home.finish();
    const auto outcome = home.bulk(home.rows(3));
    EXPECT_EQ(outcome.run.status, 1);
    EXPECT_EQ(said(outcome.run),
              "execution error: Mail got an error: Connection is invalid. (-609)\n");
    EXPECT_FALSE(sample::mailIsRunning(home.home.home()));
}

TEST_F(BulkMove, AMailProgramThatQuitsInMidLoopLooksLikeAShortMove) {
    home.behaviour().quitsAfterEvents = 20;
    home.finish();
    const auto outcome = home.bulk(home.rows(12));
    EXPECT_EQ(outcome.run.status, 0);
    EXPECT_EQ(outcome.run.output, "4|-1|false|false\n");
    EXPECT_EQ(outcome.done.size(), 4u);
    EXPECT_EQ(home.countIn(ScriptHome::work, "INBOX"), 21u);
    EXPECT_FALSE(sample::mailIsRunning(home.home.home()));
    // Told something again, it starts.
    home.listing("list-mailbox-names.applescript");
    EXPECT_TRUE(sample::mailIsRunning(home.home.home()));
}

TEST_F(BulkMove, ARefusedAutomationIsAnError) {
    home.behaviour().refusesAutomation = true;
    home.finish();
    const auto outcome = home.bulk(home.rows(3));
    EXPECT_EQ(outcome.run.status, 1);
    EXPECT_EQ(said(outcome.run),
              "execution error: Not authorized to send Apple events to Mail. (-1743)\n");
    EXPECT_EQ(home.countIn(ScriptHome::work, "INBOX"), 25u);
}

TEST_F(BulkMove, AnAccountThatIsSwitchedOffHasNoFolders) {
    home.home.settings.accounts[ScriptHome::work].enabled = false;
    home.finish();
    const auto outcome = home.bulk(home.rows(1));
    EXPECT_EQ(said(outcome.run),
              "execution error: Mail got an error: AppleEvent handler failed. (-10000)\n");
}

TEST_F(BulkMove, AMissingIdFileEndsTheRun) {
    home.finish();
    auto arguments = home.bulkArguments(home.rows(1), {});
    arguments[4] += "-gone";
    ScriptChild child(home.directories.temporary(), home.home.home(), arguments,
                      moveScript("bulk-move.applescript"));
    EXPECT_EQ(said(child.wait()),
              "execution error: File " + arguments[4] + " wasn’t found. (-43)\n");
}

TEST_F(BulkMove, AnEmptyIdFileEndsTheRun) {
    home.finish();
    EXPECT_EQ(said(home.bulk({}, {.idFile = ""}).run),
              "execution error: End of file error. (-39)\n");
}

TEST_F(BulkMove, TakesMessagesAnywhereTheyCanBeListed) {
    home.finish();
    // Mail that Gmail has under a label is filed in All Mail, and found by its row id all the same.
    EXPECT_EQ(home.bulk({{home.gmailRows[4], "g5@h"}},
                        {.address = "me@gmail.example", .destination = "[Gmail]/Spam"})
                  .run.output,
              "1|1|false|false\n");
}

}  // namespace
}  // namespace brindlet::osascript
