#include "words/ResultsWords.h"

#include <gtest/gtest.h>

#include "words/Session.h"

namespace brindlet {
namespace {

using Role = MailFolder::Role;

TEST(ResultsWords, TitleCountsWhatTheScanLookedFor) {
    const struct {
        Role role;
        int junk;
        int kept;
        int vetoed;
        const char* title;
    } rows[] = {
        {Role::inbox, 1234, 5, 0, "1,234 look like junk"},
        {Role::custom, 1, 0, 0, "1 look like junk"},
        {Role::inbox, 0, 5, 2, "Nothing to sort"},
        {Role::inbox, 0, 0, 0, "Nothing to sort"},
        {Role::junk, 5, 1234, 0, "1,234 look like real mail"},
        // What protection kept is real mail in a junk folder, and comes out.
        {Role::junk, 5, 0, 2, "2 look like real mail"},
        {Role::junk, 5, 0, 0, "Nothing to sort"},
    };
    for (const auto& row : rows) {
        SCOPED_TRACE(testing::Message() << rawValue(row.role) << " " << row.title);
        Session session;
        session.select(Session::folder(row.role));
        session.publish(row.junk, row.kept, row.vetoed);
        EXPECT_EQ(resultsWords(session).title, row.title);
    }
}

TEST(ResultsWords, SummaryBeginsWithTheNumberOfTheTitle) {
    Session session;
    session.select(Session::folder(Role::inbox, "INBOX"));
    session.publish(1500, 1500);
    EXPECT_EQ(resultsWords(session).summary, "1,500 out of 3,000 in INBOX");
    session.select(Session::folder(Role::junk, "Junk"));
    session.publish(1, 3);
    EXPECT_EQ(resultsWords(session).summary, "3 out of 4 in Junk");
    session->folder.set(std::nullopt);
    EXPECT_EQ(resultsWords(session).summary, "1 out of 4");
}

TEST(ResultsWords, SummaryPiecesInOrder) {
    Session session;
    session.select(Session::folder(Role::inbox, "INBOX"));
    session.publish(2, 3, 1360);
    session->learned.set(3);
    session->skipped.set(1212);
    Rule held;
    held.legacy = true;
    session->rules.all.set({held, Rule{}, held});
    session->correspondentCount.set(1042);
    session.flip(Category::newsletterOrDigest, Rule::Verdict::keep, 20);
    session.flip(Category::accountWelcomeOrInvitation, Rule::Verdict::junk, 12);
    EXPECT_EQ(resultsWords(session).summary,
              "2 out of 1,365 in INBOX · 1,360 protected from being moved · learned 3 rules · "
              "skipped 1,212 already sorted · 2 rules await review and were NOT applied · 1,042 "
              "people you've written "
              "to were protected · Newsletters & digests treated as keep (learned) · Accounts & "
              "invitations treated as junk (learned)");
}

TEST(ResultsWords, OneLearnedRuleIsWordedInTheSingular) {
    const std::pair<std::int64_t, const char*> rows[] = {
        {0, "0 out of 0"},
        {1, "0 out of 0 · learned 1 rule"},
        {2, "0 out of 0 · learned 2 rules"},
        {1234, "0 out of 0 · learned 1,234 rules"},
    };
    for (const auto& [learned, line] : rows) {
        Session session;
        session->learned.set(learned);
        EXPECT_EQ(resultsWords(session).summary, line);
    }
}

TEST(ResultsWords, WhatHasMovedIsNotCountedInTheTitleButIsInTheWhole) {
    Session session;
    session.select(Session::folder(Role::inbox, "INBOX"));
    session.publish(3, 2);
    session->movedAlready.set({"1@x.com", "4@x.com"});
    const auto words = resultsWords(session);
    EXPECT_EQ(words.title, "2 look like junk");
    EXPECT_EQ(words.summary, "2 out of 5 in INBOX");
    EXPECT_EQ(words.nothing, "");
    EXPECT_FALSE(words.allMoved);
}

TEST(ResultsWords, AMoveThatTookEverythingIsAllDone) {
    Session session;
    session.select(Session::folder(Role::inbox, "INBOX"));
    session.publish(2, 1);
    session->movedAlready.set({"1@x.com", "2@x.com"});
    auto words = resultsWords(session);
    EXPECT_EQ(words.title, "All done");
    EXPECT_EQ(words.nothing, "2 moved. Nothing else here needs a look.");
    ASSERT_TRUE(words.allMoved);
    EXPECT_EQ(
        words.allMoved->text,
        "They're in your junk folder - nothing was deleted, so you can put any of them back.");

    session->pastMove.set(AppState::PastMove{"INBOX", "Brindlet Junk"});
    EXPECT_EQ(resultsWords(session).allMoved->text,
              "They're in Brindlet Junk - nothing was deleted, so you can put any of them back.");
    session->scanError.set("It broke.");
    words = resultsWords(session);
    EXPECT_FALSE(words.allMoved);
    EXPECT_EQ(words.nothing, "");
}

TEST(ResultsWords, TheFolderIsThatOfTheScanAndNotTheOneSelectedSince) {
    Session session;
    session.select(Session::folder(Role::inbox, "INBOX"));
    session.publish(2, 1);
    ScanRecord record;
    record.folder = "INBOX";
    record.scanned = 3;
    session->currentRecord = record;
    session->folder.set(Session::folder(Role::custom, "Travel"));
    EXPECT_EQ(resultsWords(session).summary, "2 out of 3 in INBOX");
    session.publish(0, 3);
    EXPECT_EQ(resultsWords(session).nothing,
              "Brindlet went through your inbox and found nothing worth moving.");
}

TEST(ResultsWords, AScanWithoutARecordOfItsOwnIsThatOfTheSelectedFolder) {
    Session session;
    session.select(Session::folder(Role::custom, "Travel"));
    ScanRecord older;
    older.folder = "INBOX";
    older.scanned = 9;
    session->currentRecord = older;
    // One that is being stopped.
    session.publish(2, 1);
    EXPECT_EQ(resultsWords(session).summary, "2 out of 3 in Travel");
    // One that found nothing new to sort.
    session->currentRecord->scanned = 0;
    session.publish(0, 0);
    EXPECT_EQ(resultsWords(session).summary, "0 out of 0 in Travel");
}

TEST(ResultsWords, RulesAreCountedWhereThereAreAny) {
    Session session;
    EXPECT_EQ(resultsWords(session).rules, "Rules");
    Rule held;
    held.legacy = true;
    session->rules.all.set({Rule{}, held});
    session->rules.session.set({Rule{}});
    EXPECT_EQ(resultsWords(session).rules, "Rules (3)");
    session->rules.session.set(std::vector<Rule>(1232));
    EXPECT_EQ(resultsWords(session).rules, "Rules (1,234)");
}

// Here the switch alone counts: a schedule with nothing picked is on all the same.
TEST(ResultsWords, TheWayToTheScheduleTellsWhetherItIsOn) {
    Session session;
    session->schedule.toggle("ann", "INBOX");
    EXPECT_EQ(resultsWords(session).automatic, "Run automatically");
    session->schedule.toggle("ann", "INBOX");
    session->schedule.setEnabled(true);
    EXPECT_EQ(resultsWords(session).automatic, "Automatic on");
}

TEST(ResultsWords, OneHeldRuleIsWordedLikeSeveral) {
    Session session;
    Rule held;
    held.legacy = true;
    session->rules.all.set({held});
    EXPECT_EQ(resultsWords(session).summary,
              "0 out of 0 · 1 rules await review and were NOT applied");
}

TEST(ResultsWords, ProtectedAreCountedAsNotMovedEvenInAJunkFolder) {
    Session session;
    session.select(Session::folder(Role::junk, "Junk"));
    session.publish(1, 0, 2);
    EXPECT_EQ(resultsWords(session).summary, "2 out of 3 in Junk · 2 protected from being moved");
}

TEST(ResultsWords, AnEmptyResultSaysWhy) {
    const struct {
        Role role;
        const char* name;
        std::int64_t skipped;
        const char* text;
    } rows[] = {
        {Role::inbox, "INBOX", 3,
         "Brindlet went through your inbox and found nothing worth moving."},
        {Role::custom, "Work/Bills", 0,
         "Brindlet went through Work/Bills and found nothing worth moving."},
        {Role::junk, "Junk", 0,
         "This folder is already junk, so Brindlet looked for the opposite: real mail that got "
         "filtered by mistake."},
        {Role::junk, "Junk", 1234,
         "This folder is already junk, so Brindlet looked for the opposite: real mail that got "
         "filtered by mistake. Skipped 1,234 it had already decided about."},
    };
    for (const auto& row : rows) {
        SCOPED_TRACE(row.text);
        Session session;
        session.select(Session::folder(row.role, row.name));
        session->skipped.set(row.skipped);
        EXPECT_EQ(resultsWords(session).nothing, row.text);
    }
}

TEST(ResultsWords, MailToKeepAloneIsAnEmptyResult) {
    Session session;
    session.select(Session::folder(Role::inbox));
    session.publish(0, 7);
    EXPECT_NE(resultsWords(session).nothing, "");
    session.publish(1, 7);
    EXPECT_EQ(resultsWords(session).nothing, "");
}

TEST(ResultsWords, AStoppedScanSaysWhyInsteadOfHavingFoundNothing) {
    Session session;
    session.select(Session::folder(Role::inbox));
    EXPECT_FALSE(resultsWords(session).scanError);
    session->scanError.set("It broke.");
    const auto words = resultsWords(session);
    ASSERT_TRUE(words.scanError);
    EXPECT_EQ(words.scanError->sentence, "It broke.");
    EXPECT_EQ(words.nothing, "");
}

}  // namespace
}  // namespace brindlet
