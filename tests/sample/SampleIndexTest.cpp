#include <gtest/gtest.h>
#include <sqlite3.h>

#include <filesystem>

#include "SampleHome.h"
#include "base/Files.h"
#include "sample/IndexWriter.h"

namespace brindlet::sample {
namespace {

/// All rows of a query, fields divided by bars, on a copy so that the sample's own files stay.
std::vector<std::string> rowsOf(const std::string& index, const std::string& query,
                                bool withWal = true) {
    const doubles::TemporaryDirectories directories;
    const std::string copy = directories.temporary() + "/index";
    std::filesystem::copy_file(index, copy);
    if (withWal) std::filesystem::copy_file(index + "-wal", copy + "-wal");
    sqlite3* database = nullptr;
    EXPECT_EQ(sqlite3_open(copy.c_str(), &database), SQLITE_OK);
    sqlite3_stmt* statement = nullptr;
    EXPECT_EQ(sqlite3_prepare_v2(database, query.c_str(), -1, &statement, nullptr), SQLITE_OK)
        << sqlite3_errmsg(database);
    std::vector<std::string> rows;
    while (sqlite3_step(statement) == SQLITE_ROW) {
        std::string row;
        for (int column = 0; column < sqlite3_column_count(statement); ++column) {
            const auto* text =
                reinterpret_cast<const char*>(sqlite3_column_text(statement, column));
            row.append(column > 0 ? "|" : "").append(text ? text : "NULL");
        }
        rows.push_back(std::move(row));
    }
    sqlite3_finalize(statement);
    sqlite3_close(database);
    return rows;
}

std::string one(const std::string& query, bool withWal = true) {
    const auto rows = rowsOf(SampleHome::shared().indexPath(), query, withWal);
    return rows.size() == 1 ? rows.front() : std::to_string(rows.size()) + " rows";
}

TEST(SampleIndex, NewestRowsAreInTheWriteAheadLogAlone) {
    const std::string index = SampleHome::shared().indexPath();
    EXPECT_TRUE(files::exists(index + "-wal"));
    EXPECT_TRUE(files::exists(index + "-shm"));
    EXPECT_EQ(one("PRAGMA journal_mode"), "wal");
    EXPECT_EQ(one("SELECT COUNT(*) FROM messages"), "2000");
    EXPECT_EQ(one("SELECT COUNT(*) FROM messages", false), "1960");
}

TEST(SampleIndex, TheSameOptionsMakeTheSameRows) {
    const SampleOptions options{.messages = 250, .seed = 9};
    const SampleHome first(options);
    const SampleHome second(options);
    for (const std::string table :
         {"mailboxes", "messages", "addresses", "subjects", "summaries", "recipients", "labels",
          "attachments", "message_global_data", "properties"}) {
        const auto rows = rowsOf(first.indexPath(), "SELECT * FROM " + table);
        EXPECT_FALSE(rows.empty()) << table;
        EXPECT_EQ(rows, rowsOf(second.indexPath(), "SELECT * FROM " + table)) << table;
    }
}

TEST(SampleIndex, PrefixesStandApartFromSubjects) {
    EXPECT_NE(one("SELECT COUNT(*) FROM messages WHERE subject_prefix = 'Re: '"), "0");
    EXPECT_EQ(one("SELECT COUNT(*) FROM subjects WHERE subject LIKE 'Re: %'"), "0");
}

TEST(SampleIndex, MailboxesKnowTheirOwnTallies) {
    EXPECT_EQ(one("SELECT COUNT(*) FROM mailboxes b WHERE total_count <> (SELECT COUNT(*) FROM"
                  " messages m WHERE m.mailbox = b.ROWID) + (SELECT COUNT(*) FROM labels l WHERE"
                  " l.mailbox_id = b.ROWID)"),
              "0");
    EXPECT_EQ(one("SELECT unread_count > 0 AND unread_count < total_count FROM mailboxes"
                  " WHERE url LIKE '%7F913/INBOX'"),
              "1");
}

TEST(SampleIndex, SomeSendersAreMissingAndSomePointNowhere) {
    EXPECT_NE(one("SELECT COUNT(*) FROM messages WHERE sender IS NULL OR sender NOT IN"
                  " (SELECT ROWID FROM addresses)"),
              "0");
    EXPECT_NE(one("SELECT COUNT(*) FROM messages WHERE subject IS NULL"), "0");
}

TEST(SampleIndex, GmailHoldsItsInboxByLabelsAlone) {
    const SampleFacts& facts = SampleHome::shared().outcome.facts;
    const auto& gmail = facts.accounts[1];
    for (const auto& folder : gmail.folders) {
        const std::string filed =
            one("SELECT COUNT(*) FROM messages WHERE mailbox = " + std::to_string(folder.id));
        const bool holdsRows = folder.name == "[Gmail]/All Mail" || folder.name == "[Gmail]/Spam" ||
                               folder.name == "[Gmail]/Trash";
        EXPECT_EQ(filed != "0", holdsRows) << folder.name;
    }
    EXPECT_EQ(gmail.folders[2].name, "INBOX");
    EXPECT_GT(gmail.folders[2].count, 100);
}

TEST(IndexWriter, APathThatCannotBeOpenedFailsAndStaysFailed) {
    const doubles::TemporaryDirectories directories;
    IndexWriter index(directories.home() + "/no/such/folder/index");
    EXPECT_FALSE(index.ok());
    index.begin();
    EXPECT_EQ(index.addMailbox("imap://x/y"), 0);
    EXPECT_EQ(index.address("a@b.example", ""), 0);
    index.commit();
    EXPECT_FALSE(index.ok());
}

TEST(IndexWriter, AddressesOfOnePersonShareARowWhateverTheirLetterCase) {
    const doubles::TemporaryDirectories directories;
    IndexWriter index(directories.home() + "/index");
    const std::int64_t nora = index.address("nora@pinebrook.example", "Nora");
    EXPECT_EQ(index.address("Nora@Pinebrook.example", "Nora"), nora);
    EXPECT_NE(index.address("nora@pinebrook.example", ""), nora);
    EXPECT_EQ(index.subject("Hello"), index.subject("Hello  "));
    EXPECT_TRUE(index.ok());
}

}  // namespace
}  // namespace brindlet::sample
