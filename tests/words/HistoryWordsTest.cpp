#include "words/HistoryWords.h"

#include <gtest/gtest.h>

#include <vector>

#include "words/Session.h"

namespace brindlet {
namespace {

ScanRecord record(std::int64_t scanned, std::size_t moved = 0) {
    ScanRecord made;
    made.started = Date::fromUnix(1'700'000'000);
    made.account = "ann@x.com";
    made.folder = "INBOX";
    made.scanned = scanned;
    made.moved.resize(moved);
    return made;
}

TEST(HistoryWords, CountLineTellsScansAndWhatTheyMoved) {
    const struct {
        std::vector<std::size_t> movedPerScan;
        const char* line;
    } rows[] = {
        {{0}, "1 scan"},
        {{0, 0}, "2 scans"},
        {{3}, "1 scan · 3 messages moved in total"},
        {{1, 0}, "2 scans · 1 messages moved in total"},
        {{1000, 234, 0}, "3 scans · 1,234 messages moved in total"},
        {std::vector<std::size_t>(1200), "1,200 scans"},
    };
    for (const auto& row : rows) {
        SCOPED_TRACE(row.line);
        Session session;
        std::vector<ScanRecord> records;
        for (const auto moved : row.movedPerScan) records.push_back(record(1, moved));
        session->history.records.set(records);
        const auto words = historyWords(session);
        EXPECT_EQ(words.count, row.line);
        EXPECT_EQ(words.nothing, "");
    }
}

TEST(HistoryWords, WithoutAScanItSaysSoAndCountsNothing) {
    Session session;
    session->history.deleted.set({record(5, 5)});
    const auto words = historyWords(session);
    EXPECT_EQ(words.nothing, "Nothing sorted yet.");
    EXPECT_EQ(words.count, "");
}

TEST(HistoryWords, ForgettingIsOfferedWhileThereIsAnythingToForget) {
    for (const auto& [count, label] : {std::pair(0, ""),
                                       {1, "Forget 1 sorted messages"},
                                       {1234, "Forget 1,234 sorted messages"}}) {
        SCOPED_TRACE(label);
        Session session;
        session.markSeen("INBOX", count);
        const auto words = historyWords(session);
        EXPECT_EQ(words.forget, label);
        EXPECT_EQ(words.forgetNote, count == 0 ? "" : "Next scan will look at everything again");
    }
}

TEST(HistoryWords, TheBinTellsHowLongItKeeps) {
    Session session;
    EXPECT_EQ(historyWords(session).binNote, "kept for 30 days, then cleared");
}

TEST(ScanWords, AClosedRowTellsWhenWhereAndHowMany) {
    Session session;
    const auto words = scanWords(record(1234), false, session.world.locale);
    EXPECT_EQ(words.date, "2023-11-14 22:13");
    EXPECT_EQ(words.place, "INBOX - ann@x.com");
    EXPECT_EQ(words.sorted, "1,234 sorted");
    EXPECT_EQ(words.moved, "");
    EXPECT_EQ(words.chevron, "chevron.down");
    EXPECT_EQ(scanWords(record(1234), true, session.world.locale).chevron, "chevron.up");
}

TEST(ScanWords, WhatWasMovedIsCountedOnlyWhereThereIsAny) {
    Session session;
    const struct {
        std::size_t moved;
        const char* text;
        const char* title;
    } rows[] = {{0, "", ""}, {1, "1 moved", "1 MOVED"}, {20'000, "20,000 moved", "20,000 MOVED"}};
    for (const auto& row : rows) {
        const auto words = scanWords(record(9, row.moved), true, session.world.locale);
        EXPECT_EQ(words.moved, row.text) << row.moved;
        EXPECT_EQ(words.movedTitle, row.title) << row.moved;
    }
}

TEST(ScanWords, TheExpansionTellsTheJunkAndWhereItWent) {
    Session session;
    auto scan = record(2000);
    scan.junk = 1999;
    EXPECT_EQ(scanWords(scan, true, session.world.locale).junk, "1,999 junk of 2,000");
    EXPECT_EQ(scanWords(scan, true, session.world.locale).movedInto, "");
    scan.movedTo = "Brindlet Junk";
    EXPECT_EQ(scanWords(scan, true, session.world.locale).movedInto, "moved into Brindlet Junk")
        << "also when every single message failed to move";
}

TEST(ScanWords, NamesOfAnyScriptStandAsTheyAre) {
    Session session;
    auto scan = record(1);
    scan.folder = "דואר נכנס";
    scan.account = "e\u0301lodie@x.com";
    EXPECT_EQ(scanWords(scan, false, session.world.locale).place, "דואר נכנס - e\u0301lodie@x.com");
}

TEST(MovedWords, AMessageWithoutASubjectSaysSo) {
    EXPECT_EQ(movedWords({"1@x.com", "Shop <shop@x.com>", "Sale"}),
              (MovedWords{"Sale", "Shop <shop@x.com>"}));
    for (const std::string subject : {"", " ", "\t\n"})
        EXPECT_EQ(movedWords({"1@x.com", "", subject}).subject, "(no subject)");
}

TEST(DeletedScanWords, DaysLeftAreWholeAndOfThirty) {
    constexpr double day = 86400;
    const struct {
        double age;
        const char* left;
    } rows[] = {
        {0, " - 30 days left"},
        {1, " - 29 days left"},
        {day, " - 29 days left"},
        {28 * day, " - 2 days left"},
        {28.5 * day, " - 1 day left"},
        {29 * day, " - 1 day left"},
        {29 * day + 1, " - 0 days left"},
        // Only the next start clears what is older, and a clock can be set back.
        {31 * day, " - 0 days left"},
        {1e300, " - 0 days left"},
        {-day, " - 30 days left"},
    };
    Session session;
    for (const auto& row : rows) {
        auto scan = record(12);
        scan.deletedAt = session.now() - row.age;
        EXPECT_EQ(deletedScanWords(scan, session.now(), session.world.locale).line,
                  std::string("12 sorted") + row.left)
            << row.age;
    }
}

TEST(DeletedScanWords, WithoutADateOfDeletionAllThirtyAreLeft) {
    Session session;
    EXPECT_EQ(deletedScanWords(record(1), session.now(), session.world.locale).line,
              "1 sorted - 30 days left");
}

TEST(DeletedScanWords, TellsPlaceAndWhatWasMoved) {
    Session session;
    const auto words = deletedScanWords(record(1234, 5), session.now(), session.world.locale);
    EXPECT_EQ(words.place, "INBOX - ann@x.com");
    EXPECT_EQ(words.line, "1,234 sorted · 5 moved - 30 days left");
}

TEST(TwoSteps, AskBeforeTheyDo) {
    EXPECT_EQ(emptyBinLabel(Step::first), "Empty");
    EXPECT_EQ(emptyBinLabel(Step::second), "Really delete all?");
    EXPECT_EQ(purgeLabel(Step::first), "Delete");
    EXPECT_EQ(purgeLabel(Step::second), "Really?");
}

}  // namespace
}  // namespace brindlet
