#include "sample/HandmadeHome.h"

#include <gtest/gtest.h>

#include "SmallWorld.h"
#include "mail/MailStore.h"

namespace brindlet::sample {
namespace {

TEST(HandmadeHome, IsReadAsAnyOtherMail) {
    doubles::World world;
    HandmadeHome home(world.directories.home());
    const std::size_t account = home.addAccount("Work", "me@x.example");
    const std::int64_t inbox = home.addMailbox(account, "A/B \"c\"");
    const std::int64_t first = home.addMessage({.mailbox = inbox, .messageId = "a%\"@h"});
    const std::int64_t second = home.addMessage({.mailbox = inbox, .subject = "Later"});
    ASSERT_TRUE(home.finish());

    const MailStore store(world.services());
    const auto accounts = store.loadAccounts(false, false);
    ASSERT_EQ(accounts.size(), 1u);
    EXPECT_EQ(accounts.front().folders.front().name, "A/B \"c\"");
    const auto messages = store.messages(inbox, 0, 0);
    ASSERT_EQ(messages.size(), 2u);
    EXPECT_EQ(messages[0].id, second);
    EXPECT_EQ(messages[0].subject, "Later");
    const auto paths = store.locateMessageFiles(accounts.front().id);
    const auto parsedOf = [&](std::int64_t row) {
        return MailStore::parseMessageFile(paths.find(row).value_or(""), 100);
    };
    EXPECT_EQ(parsedOf(first).messageID, "a%\"@h");
    EXPECT_EQ(parsedOf(second).messageID, std::nullopt);
    EXPECT_TRUE(parsedOf(second).body.starts_with("Hello ")) << parsedOf(second).body;
}

TEST(HandmadeHome, AMessageOfNoMailboxFailsTheWhole) {
    const doubles::TemporaryDirectories directories;
    HandmadeHome home(directories.home());
    home.addAccount("Work", "me@x.example");
    EXPECT_EQ(home.addMessage({.mailbox = 7}), 0);
    EXPECT_FALSE(home.finish());
}

}  // namespace
}  // namespace brindlet::sample
