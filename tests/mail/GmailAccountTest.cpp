#include "mail/GmailAccount.h"

#include <gtest/gtest.h>

namespace brindlet {
namespace {

MailAccount accountWith(const std::vector<std::string>& folders, std::string address = "") {
    MailAccount account;
    account.address = std::move(address);
    for (const auto& name : folders)
        account.folders.push_back({1, name, 1, MailFolder::roleForName(name)});
    return account;
}

TEST(IsGmail, GoesByFolderNamesAlone) {
    const struct {
        MailAccount account;
        bool gmail;
    } rows[] = {
        {accountWith({"INBOX", "[Gmail]/All Mail"}, "ann@home.example"), true},
        {accountWith({"INBOX", "[Gmail]"}), true},
        {accountWith({"INBOX", "[Gmail]Anything"}), true},
        {accountWith({"INBOX", "Lists"}, "ann@gmail.com"), false},
        {accountWith({"Old/[Gmail]/Spam"}), false},
        // As names come from the mail program's own listing.
        {accountWith({"[gmail]/spam"}), false},
        {accountWith({}), false},
    };
    for (const auto& row : rows)
        EXPECT_EQ(isGmail(row.account), row.gmail)
            << (row.account.folders.empty() ? "no folder" : row.account.folders.back().name);
}

TEST(IsLabelFolder, OnGmailIsEveryNameWithoutSpamTrashOrBinInIt) {
    const auto gmail = accountWith({"[Gmail]/All Mail"});
    for (const auto* name : {"Receipts", "INBOX", "[Gmail]/All Mail", "Brindlet Junk", ""})
        EXPECT_TRUE(isLabelFolder(name, gmail)) << name;
    for (const auto* name : {"Gmail Spam", "Trash", "BIN", "[Gmail]/Spam", "Cabin", "Robins"})
        EXPECT_FALSE(isLabelFolder(name, gmail)) << name;
}

TEST(IsLabelFolder, IsNoFolderOfAnyOtherAccount) {
    const auto other = accountWith({"INBOX"}, "ann@gmail.com");
    for (const auto* name : {"Receipts", "INBOX", "Spam", "[Gmail]/All Mail"})
        EXPECT_FALSE(isLabelFolder(name, other)) << name;
}

TEST(IsSpamFolder, OnGmailIsEveryNameWithSpamInIt) {
    const auto gmail = accountWith({"[Gmail]/All Mail"});
    for (const auto* name : {"[Gmail]/Spam", "SPAM", "Antispam rules"})
        EXPECT_TRUE(isSpamFolder(name, gmail)) << name;
    for (const auto* name : {"Trash", "Brindlet Junk", "Spa", ""})
        EXPECT_FALSE(isSpamFolder(name, gmail)) << name;
    EXPECT_FALSE(isSpamFolder("Spam", accountWith({"INBOX"}, "ann@gmail.com")));
}

}  // namespace
}  // namespace brindlet
