#include <gtest/gtest.h>
#include <sys/stat.h>

#include <filesystem>

#include "base/Files.h"
#include "mail/MailHome.h"
#include "mail/MessageReaders.h"

namespace brindlet {
namespace {

using testing::account;
using testing::MailHome;

std::string message(const std::string& id) {
    return "9         \nMessage-ID: <" + id + ">\n\nbody of " + id + "\n";
}

struct MessageFiles : ::testing::Test {
    MessageFiles() { home.makeIndex(""); }
    MessagePaths locate() const { return home.store.locateMessageFiles(account); }
    std::string folder() const { return home.root() + '/' + std::string(account); }
    MailHome home;
};

TEST_F(MessageFiles, AreFoundAtAnyDepthHiddenFoldersIncluded) {
    const std::string first = home.putMessage("INBOX.mbox/U/Data/Messages/1.emlx", "x");
    const std::string second = home.putMessage("INBOX.mbox/U/Data/2/1/Messages/12002.emlx", "x");
    const std::string third = home.putMessage("A.mbox/B.mbox/.hidden/3.partial.emlx", "x");
    const std::string fourth = home.putMessage("4.emlx", "x");
    home.putMessage("A.mbox/Attachments/5/2/picture.png", "x");
    home.putMessage("A.mbox/6.emlxpart", "x");
    home.putMessage("A.mbox/note.emlx", "x");
    const auto paths = locate();
    EXPECT_EQ(paths.size(), 4u);
    EXPECT_EQ(paths.find(1), first);
    EXPECT_EQ(paths.find(12002), second);
    EXPECT_EQ(paths.find(3), third);
    EXPECT_EQ(paths.find(4), fourth);
}

TEST_F(MessageFiles, OneOfAWholeAndAPartialFileIsGiven) {
    const std::string whole = home.putMessage("A.mbox/5.emlx", "x");
    const std::string partial = home.putMessage("A.mbox/5.partial.emlx", "x");
    const auto paths = locate();
    EXPECT_EQ(paths.size(), 1u);
    EXPECT_TRUE(paths.find(5) == whole || paths.find(5) == partial);
}

TEST_F(MessageFiles, OfAnotherAccountOrLetterCaseAreNotFound) {
    home.putMessage("A.mbox/5.emlx", "x");
    EXPECT_EQ(home.store.locateMessageFiles(std::string(36, 'x')).size(), 0u);
    EXPECT_EQ(home.store.locateMessageFiles("0a1b2c3d-0000-4000-8000-00000000000f").size(), 0u);
}

TEST(MessageFilesWithoutMail, AreNone) {
    MailHome home;
    EXPECT_EQ(home.store.locateMessageFiles(account).size(), 0u);
}

TEST_F(MessageFiles, ANameCountsWhateverStandsBehindIt) {
    files::createDirectories(folder() + "/A.mbox/7.emlx");
    const std::string inside = home.putMessage("A.mbox/8.emlx/9.emlx", message("in"));
    std::filesystem::create_symlink("nowhere", folder() + "/10.emlx");
    std::filesystem::create_symlink(inside, folder() + "/11.emlx");
    const auto paths = locate();
    EXPECT_EQ(paths.size(), 5u);
    EXPECT_EQ(MailStore::parseMessageFile(*paths.find(7), 700), MailStore::Parsed());
    EXPECT_EQ(MailStore::parseMessageFile(*paths.find(9), 700).messageID, "in");
    EXPECT_EQ(MailStore::parseMessageFile(*paths.find(10), 700), MailStore::Parsed());
    EXPECT_EQ(MailStore::parseMessageFile(*paths.find(11), 700).messageID, "in");
}

TEST_F(MessageFiles, LinkedFoldersAreNotFollowedSoThatLoopsEnd) {
    const std::string real = home.putMessage("A.mbox/1.emlx", "x");
    std::filesystem::create_directory_symlink(folder(), folder() + "/A.mbox/up");
    std::filesystem::create_directory_symlink(".", folder() + "/A.mbox/self");
    std::filesystem::create_directory_symlink(folder() + "/b", folder() + "/a");
    std::filesystem::create_directory_symlink(folder() + "/a", folder() + "/b");
    std::filesystem::create_directory_symlink(folder() + "/A.mbox", folder() + "/2.emlx");
    const auto paths = locate();
    EXPECT_EQ(paths.size(), 2u);
    EXPECT_EQ(paths.find(1), real);
}

TEST_F(MessageFiles, TheAccountFolderItselfMayBeALink) {
    MailHome::put(home.world.directories.root() + "/elsewhere/3.emlx", message("away"));
    std::filesystem::create_directory_symlink(home.world.directories.root() + "/elsewhere",
                                              folder());
    EXPECT_EQ(MailStore::parseMessageFile(*locate().find(3), 700).messageID, "away");
}

TEST(ParseMessageFile, MissingOrUnreadableGivesNothing) {
    MailHome home;
    EXPECT_EQ(MailStore::parseMessageFile("", 700), MailStore::Parsed());
    EXPECT_EQ(MailStore::parseMessageFile(home.root() + "/none.emlx", 700), MailStore::Parsed());
}

TEST(ParseMessageFile, APipeThatNobodyWritesToDoesNotHang) {
    MailHome home;
    const std::string path = home.world.directories.root() + "/1.emlx";
    ASSERT_EQ(::mkfifo(path.c_str(), 0600), 0);
    EXPECT_EQ(MailStore::parseMessageFile(path, 700), MailStore::Parsed());
}

TEST(ParseMessageFile, EmptyGivesNothing) {
    MailHome home;
    EXPECT_EQ(MailStore::parseMessageFile(home.putMessage("1.emlx", ""), 700), MailStore::Parsed());
}

TEST(ParseMessageFile, OnlyTheFirst120000BytesAreRead) {
    MailHome home;
    const std::string header = "1\nMessage-ID: <a@b>\n\n";
    const std::string body = "<" + std::string(120'000 - header.size() - 7, 'x') + ">";
    const std::string path = home.putMessage("1.emlx", header + body + "12345678");
    EXPECT_EQ(MailStore::parseMessageFile(path, 700).body, "12345");
    // A character cut in two at the end is one replacement character.
    home.putMessage("1.emlx", header + body + "1234\u00e9678");
    EXPECT_EQ(MailStore::parseMessageFile(path, 700).body, "1234\uFFFD");
    // What lies in the header's stead beyond them is never seen.
    home.putMessage("1.emlx", "1\nX: " + std::string(120'000, 'x') + "\nMessage-ID: <a@b>\n\n");
    EXPECT_EQ(MailStore::parseMessageFile(path, 700), MailStore::Parsed());
}

TEST(ParseMessageFile, FiftyMegabytesCostNoMoreThanTheirStart) {
    MailHome home;
    const std::string path = home.putMessage("1.emlx", message("big"));
    std::filesystem::resize_file(path, 50 << 20);
    const auto parsed = MailStore::parseMessageFile(path, 700);
    EXPECT_EQ(parsed.messageID, "big");
    EXPECT_TRUE(parsed.body.starts_with("body of big"));
}

TEST(ParseMessageFile, ASmallerBufferReadsLess) {
    MailHome home;
    const std::string path = home.putMessage("1.emlx", message("abc"));
    std::vector<char> buffer(40);
    EXPECT_EQ(MailStore::parseMessageFile(path, 700, buffer).body, "body of ab");
}

TEST_F(MessageFiles, ManyAreParsedInTheOrderOfTheirIds) {
    std::vector<std::int64_t> ids;
    for (int id = 300; id > 0; --id) {
        ids.push_back(id);
        if (id % 7 != 0)
            home.putMessage("A.mbox/" + std::to_string(id) + ".emlx", message(std::to_string(id)));
    }
    const auto paths = locate();
    for (const int workers : {0, 1, 2, 8}) {
        MessageReaders readers(workers);
        const auto parsed = readers.parse(ids, paths, 700);
        ASSERT_EQ(parsed.size(), ids.size());
        for (std::size_t i = 0; i < ids.size(); ++i) {
            const std::string id = std::to_string(ids[i]);
            EXPECT_EQ(parsed[i], ids[i] % 7 == 0 ? MailStore::Parsed()
                                                 : (MailStore::Parsed{"body of " + id, id}))
                << id << " with " << workers;
        }
    }
    EXPECT_TRUE(MessageReaders(2).parse({}, paths, 700).empty());
}

}  // namespace
}  // namespace brindlet
