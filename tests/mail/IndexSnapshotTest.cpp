#include <gtest/gtest.h>

#include <atomic>
#include <filesystem>
#include <thread>

#include "base/Files.h"
#include "mail/MailHome.h"

namespace brindlet {
namespace {

using testing::account;
using testing::contents;
using testing::IndexWriter;
using testing::MailHome;

void fileMessages(IndexWriter& writer, int from, int to) {
    writer.run("BEGIN");
    for (int id = from; id < to; ++id)
        writer.run("INSERT INTO messages (ROWID, date_sent, mailbox) VALUES (" +
                   std::to_string(id) + ", " + std::to_string(id) + ", 1)");
    writer.run("COMMIT");
}

TEST(IndexSnapshot, SeesWhatStandsInTheWriteAheadLogAlone) {
    MailHome home;
    home.makeIndex("PRAGMA journal_mode = WAL");
    IndexWriter writer(home.index());
    fileMessages(writer, 1, 11);
    ASSERT_GT(std::filesystem::file_size(home.index() + "-wal"), 0u);
    EXPECT_EQ(home.store.messages(1, 0, 0).size(), 10u);
    fileMessages(writer, 11, 31);
    EXPECT_EQ(home.store.messages(1, 0, 0).size(), 30u);
}

TEST(IndexSnapshot, IsReadableByItsOwnerAloneAndStays) {
    MailHome home;
    home.makeIndex("PRAGMA journal_mode = WAL");
    IndexWriter writer(home.index());
    fileMessages(writer, 1, 2);
    std::filesystem::permissions(home.index(), std::filesystem::perms(0644));
    home.store.messages(1, 0, 0);
    for (const char* suffix : {"", "-wal", "-shm"})
        EXPECT_EQ(std::filesystem::status(home.copy() + suffix).permissions(),
                  std::filesystem::perms(0600))
            << suffix;
}

TEST(IndexSnapshot, NeverOutlivesTheIndexItself) {
    MailHome home;
    home.makeIndex("INSERT INTO messages (ROWID, mailbox) VALUES (1, 1)");
    EXPECT_EQ(home.store.messages(1, 0, 0).size(), 1u);
    IndexWriter(home.index()).run("DELETE FROM messages");
    EXPECT_TRUE(home.store.messages(1, 0, 0).empty());
}

TEST(IndexSnapshot, AMissingSideFileLeavesTheOlderCopyOfIt) {
    MailHome home;
    home.makeIndex("INSERT INTO messages (ROWID, mailbox) VALUES (1, 1)");
    const std::string stale = "left from before";
    MailHome::put(home.copy() + "-wal", stale);
    // The database tells by itself that this is no log of its own.
    EXPECT_EQ(home.store.messages(1, 0, 0).size(), 1u);
    EXPECT_TRUE(files::read(home.copy() + "-wal") == stale);
}

TEST(IndexSnapshot, AnOlderCopyThatWillNotGoMakesTheReadEmpty) {
    MailHome home;
    home.makeIndex("INSERT INTO messages (ROWID, mailbox) VALUES (1, 1)");
    MailHome::put(home.copy() + "/in the way", "x");
    EXPECT_TRUE(home.store.messages(1, 0, 0).empty());
}

TEST(IndexSnapshot, ASideFileThatCannotBeCopiedMakesTheReadEmpty) {
    MailHome home;
    home.makeIndex("INSERT INTO messages (ROWID, mailbox) VALUES (1, 1)");
    files::createDirectories(home.index() + "-wal");
    EXPECT_TRUE(home.store.messages(1, 0, 0).empty());
}

/// Counts how often the place for a copy is asked for, which is once a copy.
class CountingDirectories : public Directories {
  public:
    explicit CountingDirectories(Directories& real) : real_(real) {}
    std::string home() const override { return real_.home(); }
    std::string temporary() const override {
        ++copies;
        return real_.temporary();
    }
    std::string store() const override { return real_.store(); }

    mutable int copies = 0;

  private:
    Directories& real_;
};

TEST(IndexSnapshot, IsTakenAfreshForEveryReadAndTwiceForAnEmptyMailbox) {
    MailHome home;
    home.makeIndex("INSERT INTO messages (ROWID, mailbox) VALUES (1, 1)");
    CountingDirectories directories(home.world.directories);
    doubles::World& world = home.world;
    const MailStore store({world.clock, directories, world.mainQueue, world.defaults, world.model,
                           world.power, world.desktop, world.locale, world.processes,
                           world.runningApps, world.keys, world.tls, world.scriptHost});
    EXPECT_EQ(store.messages(1, 0, 0).size(), 1u);
    EXPECT_EQ(directories.copies, 1);
    store.correspondents();
    EXPECT_EQ(directories.copies, 2);
    store.loadAccounts(false, false);
    EXPECT_EQ(directories.copies, 4) << "the accounts' database is the other";
    EXPECT_TRUE(store.messages(2, 0, 0).empty());
    EXPECT_EQ(directories.copies, 6);
}

TEST(Reading, LeavesTheMailFolderByteForByte) {
    MailHome home;
    home.makeIndex(
        "PRAGMA journal_mode = WAL;"
        "INSERT INTO mailboxes (ROWID, url) VALUES (1, 'imap://" +
        std::string(account) + "/Sent')");
    home.putMessage("Sent.mbox/Data/Messages/1.emlx", "3\nMessage-ID: <a@b>\n\nHi\n");
    IndexWriter writer(home.index());
    fileMessages(writer, 1, 50);
    const auto before = contents(home.world.directories.home());
    ASSERT_TRUE(before.contains(home.index() + "-wal"));
    ASSERT_TRUE(before.contains(home.index() + "-shm"));

    EXPECT_EQ(home.store.loadAccounts(true, true).size(), 1u);
    EXPECT_EQ(home.store.messages(1, 0, 0).size(), 49u);
    home.store.correspondents();
    home.store.canReadIndex();
    home.store.touchMailData();
    const auto paths = home.store.locateMessageFiles(account);
    EXPECT_EQ(MailStore::parseMessageFile(paths.find(1).value(), 700).messageID, "a@b");
    EXPECT_EQ(contents(home.world.directories.home()), before);
}

TEST(Reading, TwoHundredReadsAtOnceAreAllWhole) {
    MailHome home;
    home.makeIndex(
        "PRAGMA journal_mode = WAL;"
        "INSERT INTO mailboxes (ROWID, url) VALUES (1, 'imap://" +
        std::string(account) + "/INBOX')");
    IndexWriter writer(home.index());
    fileMessages(writer, 1, 501);
    std::atomic<int> whole{0};
    std::vector<std::thread> threads;
    for (int thread = 0; thread < 8; ++thread)
        threads.emplace_back([&] {
            for (int read = 0; read < 25; ++read) {
                const bool good =
                    read % 5 == 0
                        ? home.store.loadAccounts(false, false).at(0).folders.at(0).count == 500
                        : home.store.messages(1, 0, 0).size() == 500;
                whole += good ? 1 : 0;
            }
        });
    for (std::thread& thread : threads) thread.join();
    EXPECT_EQ(whole, 200);
}

TEST(Reading, AWriterDuringTheCopyDoesNoHarm) {
    MailHome home;
    home.makeIndex("PRAGMA journal_mode = WAL");
    // A second connection, so that the log outlives the writer's.
    IndexWriter idle(home.index());
    idle.run("SELECT COUNT(*) FROM messages");
    std::atomic<bool> written{false};
    std::thread mailProgram([&] {
        IndexWriter writer(home.index());
        for (int round = 0; round < 40; ++round) {
            fileMessages(writer, round * 50 + 1, round * 50 + 51);
            if (round % 8 == 0) writer.run("PRAGMA wal_checkpoint(TRUNCATE)");
        }
        written = true;
    });
    while (!written) {
        const auto rows = home.store.messages(1, 0, 0);
        EXPECT_LE(rows.size(), 2000u);
        for (const MailMessage& row : rows) EXPECT_EQ(row.id, row.dateSent);
    }
    mailProgram.join();
    EXPECT_EQ(home.store.messages(1, 0, 0).size(), 2000u) << "at rest it reads whole";
}

}  // namespace
}  // namespace brindlet
