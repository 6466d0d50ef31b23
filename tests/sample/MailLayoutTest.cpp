#include "sample/MailLayout.h"

#include <gtest/gtest.h>

namespace brindlet::sample {
namespace {

constexpr std::string_view account = "3B1F7C52-9A40-4E1D-8C66-51D0E2A7F913";

TEST(MailLayout, UrlsEncodeAllButTheSlashesBetweenLevels) {
    const std::string base = "imap://" + std::string(account) + '/';
    EXPECT_EQ(mailboxUrl("imap", account, "[Gmail]/All Mail"), base + "%5BGmail%5D/All%20Mail");
    EXPECT_EQ(mailboxUrl("imap", account, "Küche & Garten"), base + "K%C3%BCche%20%26%20Garten");
    EXPECT_EQ(percentEncoded("a/b", Slash::encode), "a%2Fb");
    EXPECT_EQ(percentEncoded("a-b.c_d~e", Slash::encode), "a-b.c_d~e");
}

TEST(MailLayout, DigitFoldersAreThoseOfTheThousandsLastFirst) {
    const std::pair<std::int64_t, std::string_view> rows[] = {
        {1, ""},          {999, ""},           {1000, "1/"},
        {12'345, "2/1/"}, {123'456, "3/2/1/"}, {100'000, "0/0/1/"},
    };
    for (const auto& [rowId, folders] : rows) EXPECT_EQ(digitFolders(rowId), folders) << rowId;
}

TEST(MailLayout, EachLevelOfAMailboxNestsAFolder) {
    EXPECT_EQ(mailboxDirectory("A", "INBOX"), "A/INBOX.mbox");
    EXPECT_EQ(mailboxDirectory("A", "[Gmail]/All Mail"), "A/[Gmail].mbox/All Mail.mbox");
    EXPECT_EQ(mailboxDirectory("A", "B/"), "A/B.mbox");
}

TEST(MailLayout, MessagesAndAttachmentsLieBesideEachOther) {
    EXPECT_EQ(messageDirectory("A/INBOX.mbox/U/Data", 12'345), "A/INBOX.mbox/U/Data/2/1/Messages");
    EXPECT_EQ(attachmentDirectory("A/INBOX.mbox/U/Data", 12'345),
              "A/INBOX.mbox/U/Data/2/1/Attachments/12345");
    EXPECT_EQ(messageFileName(12'345, FileKind::whole), "12345.emlx");
    EXPECT_EQ(messageFileName(12'345, FileKind::partial), "12345.partial.emlx");
}

TEST(MailLayout, IdentifiersHaveTheirFormAndDependOnTheName) {
    const std::string identifier = identifierFor("INBOX");
    ASSERT_EQ(identifier.size(), 36u);
    for (const std::size_t dash : {8u, 13u, 18u, 23u}) EXPECT_EQ(identifier[dash], '-') << dash;
    EXPECT_EQ(identifier, identifierFor("INBOX"));
    EXPECT_NE(identifier, identifierFor("INBOY"));
}

}  // namespace
}  // namespace brindlet::sample
