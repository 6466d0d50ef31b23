#include "words/MoveWords.h"

#include <gtest/gtest.h>

#include "words/Session.h"

namespace brindlet {
namespace {

using Role = MailFolder::Role;
using State = MoveStatusWords::State;

void tickAll(Session& session) {
    IdSet ticked;
    for (const auto& verdict : *session->verdicts) ticked.insert(verdict.id);
    session->approved.set(ticked);
}

/// The selected account's, which has these folders beside the selected one.
void giveFolders(Session& session, const std::vector<MailFolder>& folders) {
    session->account.mutate([&](auto& account) {
        account->folders.insert(account->folders.end(), folders.begin(), folders.end());
    });
}

TEST(MoveWords, TheButtonCountsWhatAMoveWouldTake) {
    const struct {
        Role role;
        int ticked;
        const char* label;
    } rows[] = {
        {Role::inbox, 1234, "Move 1,234 to Brindlet Junk"},
        {Role::custom, 1, "Move 1 to Brindlet Junk"},
        {Role::inbox, 0, "Move 0 to Brindlet Junk"},
        {Role::junk, 1234, "Move 1,234 to the inbox"},
        {Role::junk, 0, "Move 0 to the inbox"},
    };
    for (const auto& row : rows) {
        SCOPED_TRACE(row.label);
        Session session;
        session.select(Session::folder(row.role));
        giveFolders(session, {{2, "Brindlet Junk", 3, Role::custom}});
        session->destinations.set("A1", "Brindlet Junk");
        session.publish(row.ticked, 0);
        tickAll(session);
        const auto words = moveWords(session);
        EXPECT_EQ(words.label, row.label);
        EXPECT_EQ(words.canMove, row.ticked > 0);
    }
}

TEST(MoveWords, ATickedMessageWithoutAnIdCountsForNothing) {
    Session session;
    session.select(Session::folder(Role::inbox));
    session->verdicts.set(
        VerdictList({{1, std::nullopt, "a@x.com", "Sale", {}, true, false, false}}));
    tickAll(session);
    const auto words = moveWords(session);
    EXPECT_TRUE(words.offered);
    EXPECT_EQ(words.label, "Move 0 to Brindlet Junk");
    EXPECT_FALSE(words.canMove);
}

TEST(MoveWords, TheButtonStandsWhileThereIsAnythingToMoveOrAMoveRuns) {
    Session session;
    session.select(Session::folder(Role::inbox));
    EXPECT_FALSE(moveWords(session).offered);
    session.publish(0, 1);
    EXPECT_TRUE(moveWords(session).offered) << "what is kept can be ticked as well";
    session->movedAlready.set({"1@x.com"});
    EXPECT_FALSE(moveWords(session).offered);
    session->moving.set(true);
    EXPECT_TRUE(moveWords(session).offered) << "to be stopped";
}

TEST(MoveWords, WhileAMoveRunsThereIsNothingToPressButStop) {
    Session session;
    session.select(Session::folder(Role::inbox));
    session.publish(2, 0);
    tickAll(session);
    EXPECT_FALSE(moveWords(session).moving);
    session->moving.set(true);
    const auto words = moveWords(session);
    EXPECT_TRUE(words.moving);
    EXPECT_FALSE(words.canMove);
    EXPECT_TRUE(words.destinations.empty());
}

TEST(MoveWords, TheMenuListsTheJunkFoldersFullestFirst) {
    Session session;
    session.select(Session::folder(Role::inbox));
    giveFolders(session, {{2, "Spam", 3, Role::junk},
                          {3, "Bulk", 44, Role::junk},
                          {4, "Receipts", 99, Role::custom}});
    const std::vector<DestinationWords> all{
        {"Bulk", "Bulk", "", true, "checkmark"},
        {"Spam", "Spam", "", false, ""},
        {"Brindlet Junk", "Brindlet Junk (new folder)",
         "This folder doesn't exist yet - Brindlet will create it", false, ""}};
    EXPECT_EQ(moveWords(session).destinations, all);
}

TEST(MoveWords, AFolderThatExistsIsNotNew) {
    for (const auto role : {Role::junk, Role::custom}) {
        SCOPED_TRACE(rawValue(role));
        Session session;
        session.select(Session::folder(Role::inbox));
        giveFolders(session, {{2, "Brindlet Junk", 3, role}});
        const std::vector<DestinationWords> one{
            {"Brindlet Junk", "Brindlet Junk", "", true, "checkmark"}};
        EXPECT_EQ(moveWords(session).destinations, one);
    }
}

TEST(MoveWords, AFolderOfTheSameNameInSmallLettersDoesNotCount) {
    Session session;
    session.select(Session::folder(Role::inbox));
    giveFolders(session, {{2, "brindlet junk", 3, Role::junk}});
    const auto words = moveWords(session);
    ASSERT_EQ(words.destinations.size(), 2U);
    EXPECT_EQ(words.destinations[0].label, "brindlet junk");
    EXPECT_EQ(words.destinations[1].label, "Brindlet Junk (new folder)");
}

TEST(MoveWords, TheChosenFolderIsMarkedAndNamed) {
    Session session;
    session.select(Session::folder(Role::inbox));
    giveFolders(session, {{2, "Bulk", 44, Role::junk}, {3, "Club", 1, Role::custom}});
    session->destinations.set("A1", "Brindlet Junk");
    auto words = moveWords(session);
    EXPECT_EQ(words.label, "Move 0 to Brindlet Junk");
    EXPECT_FALSE(words.destinations[0].chosen);
    EXPECT_TRUE(words.destinations[1].chosen);

    // Chosen once, and no junk folder since: it stays chosen but is not on the list.
    session->destinations.set("A1", "Club");
    words = moveWords(session);
    EXPECT_EQ(words.label, "Move 0 to Club");
    EXPECT_EQ(words.destinations.size(), 2U);
    for (const auto& destination : words.destinations) EXPECT_FALSE(destination.chosen);

    session->destinations.set("another account", "Bulk");
    EXPECT_EQ(moveWords(session).label, "Move 0 to Club");
}

TEST(MoveWords, OutOfAJunkFolderThereIsNoChoice) {
    Session session;
    session.select(Session::folder(Role::junk));
    session.publish(1, 1);
    EXPECT_TRUE(moveWords(session).destinations.empty());
}

TEST(MoveWords, WithoutAnAccountTheButtonStandsAndTheMenuDoesNot) {
    Session session;
    session.publish(2, 0);
    tickAll(session);
    const auto words = moveWords(session);
    EXPECT_EQ(words.label, "Move 2 to Brindlet Junk");
    EXPECT_TRUE(words.canMove) << "the press looks for the account";
    EXPECT_TRUE(words.destinations.empty());
}

TEST(MoveStatusWords, ThereAreNoneBeforeTheFirstMove) {
    Session session;
    session.publish(2, 0);
    EXPECT_FALSE(moveWords(session).status);
}

TEST(MoveStatusWords, ARunningMoveTellsItsStageAndItsCount) {
    const struct {
        const char* stage;
        std::int64_t moved;
        std::int64_t total;
        const char* title;
        const char* count;
        double share;
    } rows[] = {
        {"", 0, 0, "Working", "", 0},
        {"Finding them in Mail", 0, 40, "Finding them in Mail", "0 of 40 moved", 0},
        {"Moving into Bulk", 10, 40, "Moving into Bulk", "10 of 40 moved", 0.25},
        {"Moving into Bulk", 19988, 31560, "Moving into Bulk", "19,988 of 31,560 moved",
         19988.0 / 31560.0},
        // What the script says is told as it is; the bar ends at its ends.
        {"", 41, 40, "Working", "41 of 40 moved", 1},
        {"", -1, 40, "Working", "-1 of 40 moved", 0},
    };
    for (const auto& row : rows) {
        SCOPED_TRACE(testing::Message() << row.title << " " << row.count);
        Session session;
        session->moving.set(true);
        session->moveStage.set(row.stage);
        session->movedCount.set(row.moved);
        session->moveTotal.set(row.total);
        session->moveError.set("of the move before");
        const auto status = moveWords(session).status;
        ASSERT_TRUE(status);
        EXPECT_EQ(status->state, State::running);
        EXPECT_EQ(status->symbol, "");
        EXPECT_EQ(status->title, row.title);
        EXPECT_EQ(status->text, "");
        EXPECT_EQ(status->count, row.count);
        EXPECT_DOUBLE_EQ(status->share, row.share);
    }
}

TEST(MoveStatusWords, AnEndedMoveTellsHow) {
    const struct {
        const char* error;
        const char* note;
        std::int64_t moved;
        MoveStatusWords words;
    } rows[] = {
        {nullptr,
         "Moved 3 into Bulk",
         3,
         {State::done, "checkmark.circle.fill", "", "Moved 3 into Bulk", "", 0}},
        // The error alone says why; the note of it is not told as well.
        {"Mail closed before it finished.",
         "Moved 3 before it stopped",
         3,
         {State::partFailed, "exclamationmark.triangle.fill", "", "Mail closed before it finished.",
          "", 0}},
        {"Mail refused the move.",
         "",
         0,
         {State::allFailed, "exclamationmark.triangle.fill", "Nothing moved",
          "Mail refused the move.", "", 0}},
    };
    for (const auto& row : rows) {
        SCOPED_TRACE(row.words.text);
        Session session;
        if (row.error) session->moveError.set(row.error);
        session->moveNote.set(row.note);
        session->movedCount.set(row.moved);
        session->moveTotal.set(9);
        EXPECT_EQ(moveWords(session).status, row.words);
    }
}

TEST(MoveStatusWords, StandWithoutAnythingLeftToMove) {
    Session session;
    session.publish(1, 0);
    session->movedAlready.set({"1@x.com"});
    session->moveNote.set("Moved 1 into Bulk");
    const auto words = moveWords(session);
    EXPECT_FALSE(words.offered);
    EXPECT_TRUE(words.status);
}

}  // namespace
}  // namespace brindlet
