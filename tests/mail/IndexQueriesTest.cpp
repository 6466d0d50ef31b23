#include "mail/IndexQueries.h"

#include <gtest/gtest.h>

#include <filesystem>

#include "base/Files.h"
#include "mail/MailHome.h"

namespace brindlet {
namespace {

using testing::account;
using testing::IndexWriter;
using testing::MailHome;

std::vector<std::int64_t> ids(const std::vector<MailMessage>& rows) {
    std::vector<std::int64_t> found;
    for (const MailMessage& row : rows) found.push_back(row.id);
    return found;
}

using Ids = std::vector<std::int64_t>;

/// Mailbox 1 holds messages 1 to 4 by filing and 5 by label; mailbox 2 holds 1 and 5 by label
/// alone; mailbox 3 is empty.
constexpr const char* smallMailbox =
    "INSERT INTO addresses VALUES (1, 'ann@x.example', 'Ann'), (2, 'bob@x.example', ''),"
    "  (3, NULL, 'Ghost'), (4, 'nul@x.example', NULL), (5, 'c@x.example', ' ');"
    "INSERT INTO subjects VALUES (1, 'Hello'), (2, NULL);"
    "INSERT INTO messages (ROWID, sender, subject, date_sent, mailbox) VALUES"
    "  (1, 1, 1, 1000, 1), (2, 2, 2, 4000, 1), (3, NULL, NULL, 3000, 1), (4, 3, 1, 2000, 1),"
    "  (5, 4, 1, 5000, 9), (6, 5, 99, NULL, 8);"
    "INSERT INTO labels VALUES (5, 1), (1, 2), (5, 2);";

TEST(Messages, ComeNewestFirstWithTheirTexts) {
    MailHome home;
    home.makeIndex(smallMailbox);
    const std::vector<MailMessage> expected = {
        {2, "bob@x.example", "", 4000},
        {3, "", "", 3000},
        {4, "Ghost <>", "Hello", 2000},
        {1, "Ann <ann@x.example>", "Hello", 1000},
    };
    EXPECT_EQ(home.store.messages(1, 0, 0), expected);
}

TEST(Messages, ANullDisplayNameIsNoneAndABlankOneIsOne) {
    MailHome home;
    home.makeIndex(smallMailbox);
    EXPECT_EQ(home.store.messages(9, 0, 0).at(0).sender, "nul@x.example");
    EXPECT_EQ(home.store.messages(8, 0, 0).at(0), (MailMessage{6, "  <c@x.example>", "", 0}));
}

TEST(Messages, AFolderWithFiledMailIsNeverLookedUpAmongTheLabels) {
    MailHome home;
    home.makeIndex(smallMailbox);
    EXPECT_EQ(ids(home.store.messages(1, 0, 0)), (Ids{2, 3, 4, 1}));
}

TEST(Messages, ALabelGivesTheRowsThatAreFiledElsewhere) {
    MailHome home;
    home.makeIndex(smallMailbox);
    EXPECT_EQ(ids(home.store.messages(2, 0, 0)), (Ids{5, 1}));
    EXPECT_EQ(ids(home.store.messages(2, 1, 0)), (Ids{5}));
    EXPECT_EQ(ids(home.store.messages(2, 0, 1001)), (Ids{5}));
}

TEST(Messages, AnEmptyMailboxGivesNothing) {
    MailHome home;
    home.makeIndex(smallMailbox);
    EXPECT_TRUE(home.store.messages(3, 0, 0).empty());
    EXPECT_TRUE(home.store.messages(-7, 0, 0).empty());
}

TEST(Messages, LimitAndSinceBelowOneMeanNone) {
    MailHome home;
    home.makeIndex(smallMailbox);
    EXPECT_EQ(home.store.messages(1, -5, -5).size(), 4u);
    EXPECT_EQ(ids(home.store.messages(1, 2, 0)), (Ids{2, 3}));
    EXPECT_EQ(ids(home.store.messages(1, 0, 3000)), (Ids{2, 3}));
    EXPECT_EQ(ids(home.store.messages(1, 1, 2000)), (Ids{2}));
    EXPECT_TRUE(home.store.messages(2, 0, 9'000'000'000).empty());
}

TEST(Messages, WhenAllFiledMailIsTooOldTheLabelledMailShows) {
    MailHome home;
    home.makeIndex(smallMailbox);
    EXPECT_EQ(ids(home.store.messages(1, 0, 4500)), (Ids{5}));
}

TEST(MessageQueries, HaveNeitherClauseWithoutLimitAndSince) {
    for (const auto& query : {filedMessagesQuery(0, 0), labelledMessagesQuery(0, 0)}) {
        EXPECT_EQ(query.find("LIMIT"), std::string::npos) << query;
        EXPECT_EQ(query.find(">="), std::string::npos) << query;
        EXPECT_TRUE(query.ends_with(" = ? ORDER BY m.date_sent DESC")) << query;
    }
    for (const auto& query : {filedMessagesQuery(7, 8), labelledMessagesQuery(7, 8)})
        EXPECT_TRUE(query.ends_with(" = ? AND m.date_sent >= 8 ORDER BY m.date_sent DESC LIMIT 7"))
            << query;
}

TEST(Messages, BytesThatAreNoUtf8AreRepairedAndTextEndsAtANul) {
    MailHome home;
    home.makeIndex(
        "INSERT INTO addresses VALUES (1, CAST(x'61C0AF40' AS TEXT), CAST(x'E282' AS TEXT));"
        "INSERT INTO subjects VALUES (1, CAST(x'610062' AS TEXT)), (2, 42);"
        "INSERT INTO messages (ROWID, sender, subject, date_sent, mailbox) VALUES"
        "  (1, 1, 1, 2, 1), (2, NULL, 2, '1', 1);");
    const auto rows = home.store.messages(1, 0, 0);
    ASSERT_EQ(rows.size(), 2u);
    EXPECT_EQ(rows[0].sender, "\uFFFD <a\uFFFD\uFFFD@>");
    EXPECT_EQ(rows[0].subject, "a");
    EXPECT_EQ(rows[1].subject, "42");
    EXPECT_EQ(rows[1].dateSent, 1);
}

TEST(Messages, AnErrorMidwayKeepsTheRowsSoFar) {
    MailHome home;
    std::string sql = "BEGIN;";
    for (int id = 1; id <= 4000; ++id)
        sql += "INSERT INTO messages (ROWID, document_id, date_sent, mailbox) VALUES (" +
               std::to_string(id) + ", 'document-" + std::to_string(10'000 + id) + "', " +
               std::to_string(id) + ", 1);";
    home.makeIndex(sql + "COMMIT;");
    std::string bytes = files::read(home.index()).value();
    const auto at = bytes.find("document-12000");
    ASSERT_NE(at, std::string::npos);
    bytes.replace(at / 4096 * 4096, 64, std::string(64, '\xFF'));
    files::write(home.index(), bytes);

    const auto rows = home.store.messages(1, 0, 0);
    ASSERT_FALSE(rows.empty());
    EXPECT_LT(rows.size(), 4000u);
    EXPECT_EQ(rows.front().id, 4000);
    EXPECT_EQ(rows.back().id, 4001 - static_cast<std::int64_t>(rows.size()));
}

TEST(Correspondents, AreTheLowerCasedAddressesOfSentMail) {
    MailHome home;
    home.makeIndex(
        "INSERT INTO mailboxes (ROWID, url) VALUES (1, 'imap://a/INBOX'),"
        "  (2, 'imap://a/Sent%20Messages'), (3, 'imap://a/Presents');"
        "INSERT INTO addresses (ROWID, address) VALUES (1, 'Ann@X.Example'), (2, ' bob@x.example'),"
        "  (3, 'nobody'), (4, NULL), (5, 'in@x.example'), (6, 'gift@x.example'),"
        "  (7, 'ann@x.example');"
        "INSERT INTO messages (ROWID, mailbox) VALUES (1, 1), (2, 2), (3, 3);"
        "INSERT INTO recipients (message, address) VALUES (2, 1), (2, 2), (2, 3), (2, 4), (1, 5),"
        "  (3, 6), (2, 7), (2, 1);");
    // Letter case does not count in the URL either, so a folder of presents is one of sent mail.
    EXPECT_EQ(home.store.correspondents(),
              (std::set<std::string>{"ann@x.example", "bob@x.example", "gift@x.example"}));
}

std::vector<MailAccount> accountsOf(std::string_view url) {
    std::vector<MailAccount> accounts;
    MailStore::parseMailboxRow(7, url, 3, 5, accounts);
    return accounts;
}

TEST(MailboxRow, BecomesAFolderOfItsAccount) {
    const auto accounts = accountsOf("imap://" + std::string(account) + "/Archive/2019");
    ASSERT_EQ(accounts.size(), 1u);
    EXPECT_EQ(accounts[0].id, account);
    EXPECT_EQ(accounts[0].folders,
              (std::vector{MailFolder{7, "Archive/2019", 5, MailFolder::Role::custom}}));
}

TEST(MailboxRow, CountsTheLargerOfFiledAndLabelled) {
    std::vector<MailAccount> accounts;
    const std::string url = "imap://" + std::string(account) + "/INBOX";
    MailStore::parseMailboxRow(1, url, 9, 2, accounts);
    MailStore::parseMailboxRow(2, url, 0, 0, accounts);
    EXPECT_EQ(accounts.at(0).folders,
              (std::vector{MailFolder{1, "INBOX", 9, MailFolder::Role::inbox},
                           MailFolder{2, "INBOX", 0, MailFolder::Role::inbox}}));
}

TEST(MailboxRow, OfAnotherFormIsDropped) {
    const std::string id(account);
    for (const std::string& url :
         std::vector<std::string>{"", id + "/INBOX", "imap:/" + id + "/INBOX", "imap://" + id,
                                  "imap://" + id + "x/INBOX", "imap://" + id.substr(1) + "/INBOX",
                                  "local:///INBOX", "imap://user@host/INBOX"})
        EXPECT_TRUE(accountsOf(url).empty()) << url;
}

TEST(MailboxRow, AnyThirtySixCharactersAreAnAccount) {
    EXPECT_EQ(accountsOf("x://" + std::string(36, 'z') + "/A").at(0).id, std::string(36, 'z'));
    std::string accented;
    for (int i = 0; i < 36; ++i) accented += "e\u0301";
    EXPECT_EQ(accountsOf("x://" + accented + "/A").size(), 1u);
    EXPECT_TRUE(accountsOf("x://" + accented.substr(0, 36) + "/A").empty());
}

TEST(MailboxRow, TheFirstSeparatorCountsWhateverStandsBefore) {
    EXPECT_EQ(accountsOf("a/b c://" + std::string(account) + "/A://B").at(0).folders.at(0).name,
              "A://B");
}

TEST(MailboxRow, AnEmptyPathIsAFolderWithoutAName) {
    EXPECT_EQ(accountsOf("imap://" + std::string(account) + "/").at(0).folders,
              (std::vector{MailFolder{7, "", 5, MailFolder::Role::custom}}));
}

TEST(MailboxRow, NamesAreDecodedAsAWholeOrKeptRaw) {
    const std::pair<const char*, std::string> rows[] = {
        {"%5BGmail%5D/All%20Mail", "[Gmail]/All Mail"},
        {"a+b", "a+b"},
        {"A%2FB", "A/B"},
        {"caf%C3%A9", "caf\u00e9"},
        {"caf%c3%a9", "caf\u00e9"},
        {"x%00y", std::string("x\0y", 3)},
        {"100%", "100%"},
        {"%4", "%4"},
        {"%zz%41", "%zz%41"},
        {"%41%+1", "%41%+1"},
        {"caf%E9", "caf%E9"},
        {"%C0%AF", "%C0%AF"},
        {"%ED%A0%80", "%ED%A0%80"},
    };
    for (const auto& [path, name] : rows)
        EXPECT_EQ(
            accountsOf("imap://" + std::string(account) + '/' + path).at(0).folders.at(0).name,
            name)
            << path;
}

TEST(LoadAccounts, GivesAccountsAndFoldersInTheirOrder) {
    MailHome home;
    const std::string small(36, 's');
    const std::string large(36, 'l');
    home.makeIndex("INSERT INTO mailboxes (ROWID, url) VALUES (1, 'imap://" + small +
                   "/INBOX'),"
                   "  (2, 'imap://" +
                   large + "/Trash'), (3, 'imap://" + large +
                   "/Bills'),"
                   "  (4, 'imap://" +
                   large +
                   "/INBOX'), (5, 'imap://short/INBOX'), (6, NULL);"
                   "INSERT INTO messages (ROWID, mailbox) VALUES (1, 1), (2, 2), (3, 2), (4, 3);"
                   "INSERT INTO labels VALUES (1, 4), (2, 4), (3, 3), (4, 3), (5, 3);");
    for (const bool flag : {false, true}) {
        const auto accounts = home.store.loadAccounts(flag, flag);
        ASSERT_EQ(accounts.size(), 2u);
        EXPECT_EQ(accounts[0], (MailAccount{large,
                                            "",
                                            "",
                                            {{4, "INBOX", 2, MailFolder::Role::inbox},
                                             {3, "Bills", 3, MailFolder::Role::custom},
                                             {2, "Trash", 2, MailFolder::Role::trash}}}));
        EXPECT_EQ(accounts[1],
                  (MailAccount{small, "", "", {{1, "INBOX", 1, MailFolder::Role::inbox}}}));
    }
}

TEST(LoadAccounts, KeepsTheLetterCaseOfTheId) {
    MailHome home;
    home.makeIndex("INSERT INTO mailboxes (ROWID, url) VALUES (1, 'imap://" + std::string(account) +
                   "/INBOX')");
    EXPECT_EQ(home.store.loadAccounts(false, false).at(0).id, account);
}

/// Every read of a home whose index is unusable is empty.
void expectEmptyReads(const MailHome& home) {
    EXPECT_TRUE(home.store.messages(1, 0, 0).empty());
    EXPECT_TRUE(home.store.correspondents().empty());
    EXPECT_TRUE(home.store.loadAccounts(false, false).empty());
}

TEST(BadIndex, MissingGivesEmptyReads) {
    MailHome home;
    expectEmptyReads(home);
    EXPECT_FALSE(home.store.canReadIndex());
}

TEST(BadIndex, VanishedAfterTheRootWasFoundGivesEmptyReads) {
    MailHome home;
    home.makeIndex(smallMailbox);
    ASSERT_TRUE(home.store.mailRoot());
    std::filesystem::remove_all(home.root());
    expectEmptyReads(home);
    EXPECT_FALSE(home.store.canReadIndex());
}

TEST(BadIndex, ThatCannotBeCopiedGivesEmptyReads) {
    MailHome home;
    home.makeIndex(smallMailbox);
    std::filesystem::remove_all(home.world.directories.temporary());
    expectEmptyReads(home);
    EXPECT_TRUE(home.store.canReadIndex());
}

TEST(BadIndex, EmptyOrNoDatabaseGivesEmptyReads) {
    for (const std::string& bytes :
         {std::string(), std::string("not a database"), std::string(100'000, 'x'),
          std::string("SQLite format 3\0", 16), std::string(4096, '\0')}) {
        MailHome home;
        MailHome::put(home.index(), bytes);
        expectEmptyReads(home);
        EXPECT_EQ(home.store.canReadIndex(), !bytes.empty());
    }
}

TEST(BadIndex, WithAForeignSchemaGivesEmptyReads) {
    MailHome home;
    files::createDirectories(home.root() + "/MailData");
    IndexWriter(home.index())
        .run(
            "CREATE TABLE mailboxes (ROWID INTEGER PRIMARY KEY, path TEXT);"
            "CREATE TABLE messages (ROWID INTEGER PRIMARY KEY, mailbox INTEGER);");
    expectEmptyReads(home);
}

TEST(BadIndex, TruncatedAtAnyPlaceGivesAtMostItsRows) {
    MailHome home;
    std::string sql = smallMailbox;
    for (int id = 100; id < 1100; ++id)
        sql += "INSERT INTO messages (ROWID, date_sent, mailbox) VALUES (" + std::to_string(id) +
               ", 1, 1);";
    home.makeIndex("BEGIN;" + sql + "COMMIT;");
    const std::string bytes = files::read(home.index()).value();
    for (std::size_t size = 0; size < bytes.size(); size += 1000) {
        files::write(home.index(), std::string_view(bytes).substr(0, size));
        EXPECT_LE(home.store.messages(1, 0, 0).size(), 1004u) << size;
        home.store.correspondents();
        home.store.loadAccounts(false, false);
    }
}

TEST(BadIndex, LockedByTheMailProgramIsReadAllTheSame) {
    MailHome home;
    home.makeIndex(smallMailbox);
    IndexWriter writer(home.index());
    writer.run("BEGIN EXCLUSIVE");
    EXPECT_EQ(home.store.messages(1, 0, 0).size(), 4u);
    writer.run("ROLLBACK");
}

}  // namespace
}  // namespace brindlet
