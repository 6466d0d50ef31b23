#include "words/FolderWords.h"

#include <gtest/gtest.h>

#include "words/Session.h"

namespace brindlet {
namespace {

using Role = MailFolder::Role;

FolderWords row(Session& session, const MailFolder& folder) {
    return folderWords(session, folder, session->history.lastScans());
}

void recordScan(Session& session, const std::string& account, const std::string& folder,
                Date started) {
    ScanRecord record;
    record.started = started;
    record.account = account;
    record.folder = folder;
    session->history.add(record);
}

TEST(FolderWords, OnlyInboxArchiveAndJunkHaveATag) {
    Session session;
    for (const auto role : allCases<Role>()) {
        SCOPED_TRACE(rawValue(role));
        const auto words = row(session, Session::folder(role));
        Mark expected;
        if (role == Role::inbox) expected = {"START HERE", Tone::green, ""};
        if (role == Role::archive) expected = {"CAREFUL", Tone::orange, ""};
        if (role == Role::junk) expected = {"JUNK", Tone::plain, ""};
        EXPECT_EQ(words.tag, expected);
        EXPECT_EQ(words.note, folderNote(role));
    }
}

TEST(FolderWords, ShowsTheWholePath) {
    Session session;
    EXPECT_EQ(row(session, Session::folder(Role::custom, "Work/Bills")).name, "Work/Bills");
}

TEST(FolderWords, NeverSortedWithoutARecordOfThisAccountAndFolder) {
    Session session;
    session.select(Session::folder(Role::inbox, "INBOX"));
    recordScan(session, "bob@x.com", "INBOX", session.now());
    recordScan(session, "ann@x.com", "Work", session.now());
    EXPECT_EQ(row(session, Session::folder(Role::inbox, "INBOX")).status, "never sorted");
}

TEST(FolderWords, LastSortedInRelativeWords) {
    const struct {
        double secondsAgo;
        const char* status;
    } rows[] = {
        {0, "sorted just now"},
        {59.9, "sorted just now"},
        {60, "sorted X"},
        {86400, "sorted X"},
        // The clock was set back: no "in 5 hours" for something that is over.
        {-18000, "sorted just now"},
    };
    for (const auto& each : rows) {
        SCOPED_TRACE(each.secondsAgo);
        Session session;
        session.select(Session::folder(Role::inbox, "INBOX"));
        recordScan(session, "ann@x.com", "INBOX", session.now() - each.secondsAgo);
        EXPECT_EQ(row(session, Session::folder(Role::inbox, "INBOX")).status, each.status);
    }
}

TEST(FolderWords, RelativeWordsAreFromNowBackToTheScan) {
    struct SpanLocale : doubles::FixedLocale {
        std::string relative(Date date, Date now) const override {
            return std::to_string(static_cast<int>(now - date)) + " seconds ago";
        }
    } locale;
    doubles::World world;
    auto& w = world;
    const auto state = AppState::make(Services{w.clock, w.directories, w.mainQueue, w.defaults,
                                               w.model, w.power, w.desktop, locale, w.processes,
                                               w.runningApps, w.keys, w.tls, w.scriptHost});
    state->account.set(MailAccount{"A1", "ann@x.com", "", {}});
    const auto words = folderWords(*state, Session::folder(Role::inbox, "INBOX"),
                                   {{"ann@x.com|INBOX", world.clock.now() - 3600}});
    EXPECT_EQ(words.status, "sorted 3600 seconds ago");
}

TEST(FolderWords, TagTellsWhatIsLeft) {
    const struct {
        std::int64_t count;
        int seen;
        Mark tag;
    } rows[] = {
        {0, 0, {"empty", Tone::plain, ""}},
        {0, 3, {"empty", Tone::plain, ""}},
        {3, 0, {"3 new", Tone::plain, ""}},
        {1237, 3, {"1,234 new", Tone::plain, ""}},
        {3, 2, {"1 new", Tone::plain, ""}},
        {3, 3, {"all sorted", Tone::green, ""}},
        // What was seen there may have left since.
        {3, 5, {"all sorted", Tone::green, ""}},
    };
    for (const auto& each : rows) {
        SCOPED_TRACE(testing::Message() << each.count << " with " << each.seen << " seen");
        Session session;
        const auto folder = Session::folder(Role::custom, "Work", each.count);
        session.select(folder);
        session.markSeen("Work", each.seen);
        session.markSeen("Other", 7);
        EXPECT_EQ(row(session, folder).statusTag, each.tag);
    }
}

TEST(FolderWords, AFolderWithoutMessagesCannotBeSelected) {
    Session session;
    EXPECT_FALSE(row(session, Session::folder(Role::inbox, "INBOX", 0)).selectable);
    EXPECT_TRUE(row(session, Session::folder(Role::inbox, "INBOX", 1)).selectable);
}

TEST(FolderWords, TheSelectedFolderIsToldByItsId) {
    Session session;
    session.select(Session::folder(Role::custom, "Work", 10, 7));
    EXPECT_TRUE(row(session, Session::folder(Role::custom, "Renamed", 12, 7)).selected);
    EXPECT_FALSE(row(session, Session::folder(Role::custom, "Work", 10, 8)).selected);
}

}  // namespace
}  // namespace brindlet
