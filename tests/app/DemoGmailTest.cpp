#include "app/demo/DemoGmail.h"

#include <gtest/gtest.h>

#include "app/demo/DemoWorld.h"
#include "app/demo/MailCounts.h"
#include "base/Files.h"
#include "doubles/Doubles.h"
#include "sample/GmailSettings.h"
#include "sample/HandmadeHome.h"
#include "words/GooglePages.h"

namespace brindlet::demo {
namespace {

class DemoGmailTest : public testing::Test {
  protected:
    DemoGmailTest() {
        sample::GmailSettings settings;
        settings.passwords = {{"robin@gmail.example", "abcd efgh ijkl mnop"}};
        EXPECT_TRUE(sample::writeGmailSettings(directories_.home(), settings));
    }

    doubles::TemporaryDirectories directories_;
};

constexpr const char* told =
    "Brindlet will ask for an app password of Gmail. That of robin@gmail.example is: abcd efgh "
    "ijkl mnop\n";

TEST_F(DemoGmailTest, TellsTheAddressAndItsAppPassword) {
    testing::internal::CaptureStdout();
    tellAppPasswords(directories_.home());
    EXPECT_EQ(testing::internal::GetCapturedStdout(), told);
}

TEST_F(DemoGmailTest, TellsThemInTheWordsThatThePageShows) {
    const auto page = files::read(std::string(BRINDLET_FIXTURES) + "/../../docs/gmail.md");
    ASSERT_TRUE(page);
    const std::string words = told;
    EXPECT_NE(page->find(words.substr(0, words.find(" robin"))), std::string::npos);
}

TEST_F(DemoGmailTest, TellsThemAgainInsteadOfOpeningGooglesPage) {
    SayingDesktop desktop(directories_.home());
    testing::internal::CaptureStdout();
    desktop.openLink("https://elsewhere.example");
    EXPECT_EQ(testing::internal::GetCapturedStdout(), "");
    testing::internal::CaptureStdout();
    desktop.openLink(googlePages::appPasswords);
    EXPECT_EQ(testing::internal::GetCapturedStdout(), told);
}

TEST(MemoryKeyStoreTest, KeepsOneSecretForEachServiceAndAccount) {
    MemoryKeyStore keys;
    keys.save("service", "ada", Secret(std::string_view("first")));
    keys.save("service", "ada", Secret(std::string_view("second")));
    keys.save("service", "bob", Secret(std::string_view("third")));
    ASSERT_TRUE(keys.has("service", "ada"));
    EXPECT_EQ(keys.read("service", "ada")->text(), "second");
    EXPECT_FALSE(keys.has("another", "ada"));
    keys.forget("service", "ada");
    EXPECT_FALSE(keys.read("service", "ada"));
    EXPECT_TRUE(keys.has("service", "bob"));
}

// What the tour says of a move on Gmail it has counted by these.
TEST(MailCounts, AFolderListsWhatOnlyHasItsLabelButHasNoFileOfIt) {
    const doubles::TemporaryDirectories directories;
    sample::HandmadeHome home(directories.home());
    const auto number = home.addAccount("Gmail", "robin@gmail.example");
    const auto inbox = home.addMailbox(number, "INBOX");
    const auto all = home.addMailbox(number, "[Gmail]/All Mail");
    home.addMessage({.mailbox = all, .messageId = "a@h", .labels = {inbox}});
    home.addMessage({.mailbox = all, .messageId = "b@h"});
    ASSERT_TRUE(home.finish());
    const std::string account = home.settings.accounts[number].id;
    const auto counted = [&](const char* mailbox) {
        return std::pair(messagesListed(home.home(), account, mailbox),
                         messageFiles(home.home(), account, mailbox));
    };
    EXPECT_EQ(counted("INBOX"), std::pair(std::int64_t{1}, std::int64_t{0}));
    EXPECT_EQ(counted("[Gmail]/All Mail"), std::pair(std::int64_t{2}, std::int64_t{2}));
    EXPECT_EQ(counted("Nowhere"), std::pair(std::int64_t{0}, std::int64_t{0}));
}

}  // namespace
}  // namespace brindlet::demo
