#include "words/PickWords.h"

#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>

#include "words/Session.h"

namespace brindlet {
namespace {

using Role = MailFolder::Role;
using Labels = std::vector<std::string>;

void makeReadable(const doubles::World& world) {
    const auto data = world.directories.home() + "/Library/Mail/V10/MailData";
    std::filesystem::create_directories(data);
    std::ofstream(data + "/Envelope Index") << "x";
}

TEST(PickWords, WhileAccountsLoad) {
    Session session;
    session->loadingAccounts.set(true);
    const auto words = pickWords(session);
    EXPECT_EQ(words.content, PickWords::Content::finding);
    EXPECT_EQ(words.notice,
              (PickNotice{"Finding your mailboxes",
                          "Asking Mail for your accounts. A couple of seconds.", "", "", ""}));
}

TEST(PickWords, WithoutPermission) {
    Session session;
    const auto words = pickWords(session);
    EXPECT_EQ(words.content, PickWords::Content::unreadable);
    EXPECT_EQ(words.notice,
              (PickNotice{"Brindlet can't read Mail's files",
                          "Your accounts are there, but macOS keeps Mail's files behind Full Disk "
                          "Access. Switch Brindlet on in Privacy & Security, then press Check "
                          "again.",
                          "Open Settings", "", "Check again"}));
}

TEST(PickWords, WithoutAccounts) {
    Session session;
    makeReadable(session.world);
    const auto words = pickWords(session);
    EXPECT_EQ(words.content, PickWords::Content::noAccounts);
    EXPECT_EQ(words.notice,
              (PickNotice{"No accounts set up in Mail yet",
                          "Brindlet sorts the accounts you have already added to Apple Mail - it "
                          "never asks for an email password. Add your account in Mail → Settings → "
                          "Accounts, let it finish downloading, then come back.",
                          "", "Open Mail", "Check again"}));
}

TEST(PickWords, AccountsStayOnShowWhileTheyLoadAgain) {
    Session session;
    session.select(Session::folder(Role::inbox));
    session->loadingAccounts.set(true);
    const auto words = pickWords(session);
    EXPECT_EQ(words.content, PickWords::Content::accounts);
    EXPECT_EQ(words.notice, PickNotice{});
}

TEST(PickWords, AccountsAreNamedByTheirLabels) {
    Session session;
    const std::vector<MailAccount> accounts = {
        {"A1", "ann@x.com", "Ann", {}}, {"A2", "", "Home", {}}, {"0123456789", "", "", {}}};
    session->accounts.set(accounts);
    EXPECT_EQ(pickWords(session).accounts, (PickMenu{{"ann@x.com", "Home", "01234567"}, -1}));
    session->account.set(accounts[1]);
    EXPECT_EQ(pickWords(session).accounts.chosen, 1);
}

TEST(PickWords, FoldersOfTheSelectedAccountInItsOrder) {
    Session session;
    const std::vector<MailAccount> accounts = {
        {"A1", "ann@x.com", "", {Session::folder(Role::inbox, "INBOX", 3, 1)}},
        {"A2",
         "bob@x.com",
         "",
         {Session::folder(Role::inbox, "Inbox", 3, 2),
          Session::folder(Role::custom, "Work", 9, 3)}}};
    session->accounts.set(accounts);
    EXPECT_TRUE(pickWords(session).folders.empty());
    session->account.set(accounts[1]);
    const auto words = pickWords(session);
    ASSERT_EQ(words.folders.size(), 2U);
    EXPECT_EQ(words.folders[0].name, "Inbox");
    EXPECT_EQ(words.folders[1].name, "Work");
}

TEST(PickWords, SaysWhenMailboxesAreChecked) {
    Session session;
    session.select(Session::folder(Role::inbox));
    EXPECT_EQ(pickWords(session).checking, "");
    session->refreshingFolders.set(true);
    EXPECT_EQ(pickWords(session).checking, "Checking mailboxes");
}

TEST(PickWords, AVanishedFolderIsNamed) {
    Session session;
    session.select(Session::folder(Role::inbox));
    EXPECT_EQ(pickWords(session).vanished, "");
    session->folder.set(std::nullopt);
    session->folderVanished.set("Work/Bills");
    const auto words = pickWords(session);
    EXPECT_EQ(words.vanished, "Work/Bills isn't in Mail any more - pick another folder.");
    EXPECT_FALSE(words.canSort);
}

TEST(PickWords, AVanishedFolderIsNamedUntilThatIsDismissedWhateverElseStands) {
    Session session;
    session->folderVanished.set("Bills");
    EXPECT_EQ(pickWords(session).content, PickWords::Content::unreadable);
    EXPECT_EQ(pickWords(session).vanished, "Bills isn't in Mail any more - pick another folder.");
    session.select(Session::folder(Role::inbox));
    EXPECT_NE(pickWords(session).vanished, "") << "though another is picked";
    session->dismissVanished();
    EXPECT_EQ(pickWords(session).vanished, "");
}

TEST(PickWords, ReachMenu) {
    Session session;
    session.select(Session::folder(Role::inbox));
    const Labels labels = {"Past week", "Past month", "Past 3 months", "Past year", "Everything"};
    EXPECT_EQ(pickWords(session).reach, (PickMenu{labels, 1}));
    session->reach.set(Reach::everything);
    EXPECT_EQ(pickWords(session).reach, (PickMenu{labels, 4}));
}

TEST(PickWords, LimitMenu) {
    const struct {
        std::int64_t stored;
        Labels labels;
        std::vector<std::int64_t> limits;
        int chosen;
    } rows[] = {
        {500, {"First 500 - quick look", "First 2,000", "Everything"}, {500, 2000, 0}, 0},
        {2000, {"First 500 - quick look", "First 2,000", "Everything"}, {500, 2000, 0}, 1},
        {0, {"First 500 - quick look", "First 2,000", "Everything"}, {500, 2000, 0}, 2},
        {-3, {"First 500 - quick look", "First 2,000", "Everything"}, {500, 2000, 0}, 2},
        {40,
         {"First 40", "First 500 - quick look", "First 2,000", "Everything"},
         {40, 500, 2000, 0},
         0},
        {1000,
         {"First 500 - quick look", "First 1,000", "First 2,000", "Everything"},
         {500, 1000, 2000, 0},
         1},
        {5000,
         {"First 500 - quick look", "First 2,000", "First 5,000", "Everything"},
         {500, 2000, 5000, 0},
         2},
    };
    Session session;
    session.select(Session::folder(Role::inbox));
    for (const auto& row : rows) {
        SCOPED_TRACE(row.stored);
        session->limit.set(row.stored);
        const auto words = pickWords(session);
        EXPECT_EQ(words.limit, (PickMenu{row.labels, row.chosen}));
        EXPECT_EQ(words.limits, row.limits);
    }
}

TEST(PickWords, NewToSortOnlyWhereSomethingIsLeftOut) {
    const struct {
        std::optional<std::int64_t> inReach;
        bool skipSeen;
        int seen;
        const char* line;
    } rows[] = {
        {std::nullopt, true, 3, ""},      {1234, true, 3, "1,234 new to sort"},
        {1234, true, 0, "1,234 to sort"}, {1234, false, 3, "1,234 to sort"},
        {0, true, 3, "0 new to sort"},    {1, false, 0, "1 to sort"},
    };
    for (const auto& row : rows) {
        SCOPED_TRACE(row.line);
        Session session;
        session.select(Session::folder(Role::inbox, "INBOX"));
        session.markSeen("INBOX", row.seen);
        session->seen.setSkipSeen(row.skipSeen);
        session->inReach.set(row.inReach);
        EXPECT_EQ(pickWords(session).count, row.line);
    }
}

TEST(PickWords, SkipLine) {
    Session session;
    EXPECT_EQ(skipLine(session), "Skip anything I've already sorted");
    session.select(Session::folder(Role::inbox, "INBOX"));
    EXPECT_EQ(skipLine(session), "Nothing here has been sorted yet");
    session.markSeen("INBOX", 1234);
    EXPECT_EQ(skipLine(session), "Skip the 1,234 already sorted in this folder");

    session.select(Session::folder(Role::junk, "Junk"));
    session.markSeen("Junk", 5, false);
    EXPECT_EQ(skipLine(session), "Nothing here was filed by Brindlet yet");
    session.markSeen("Junk", 2, true);
    EXPECT_EQ(skipLine(session), "Skip the 2 Brindlet filed here");
}

TEST(PickWords, TheSkipSwitchStandsAsStored) {
    Session session;
    session.select(Session::folder(Role::inbox));
    for (const bool skips : {false, true}) {
        session->seen.setSkipSeen(skips);
        EXPECT_EQ(pickWords(session).skips, skips);
    }
}

TEST(PickWords, AnotherAccountTurnsSortingOff) {
    Session session;
    session.select(Session::folder(Role::inbox));
    EXPECT_TRUE(pickWords(session).canSort);
    session->selectAccount({"A2", "bob@x.com", "", {}});
    EXPECT_FALSE(pickWords(session).canSort);
    EXPECT_EQ(pickWords(session).count, "");
}

}  // namespace
}  // namespace brindlet
