#include "session/AccountMatch.h"

#include <gtest/gtest.h>

namespace brindlet {
namespace {

MailAccount account(std::string id, std::string address, std::string name = {}) {
    return {std::move(id), std::move(address), std::move(name), {}};
}

MailFolder folder(std::int64_t id, std::string name) {
    const auto role = MailFolder::roleForName(name);
    return {id, std::move(name), 1, role};
}

TEST(AccountForLabel, PrefersTheExactLabelOverTheWholeList) {
    const std::vector<MailAccount> accounts{account("1", "ann@x.com"), account("2", "joann@x.com")};
    EXPECT_EQ(accountForLabel(accounts, "joann@x.com"), &accounts[1]);
    EXPECT_EQ(accountForLabel(accounts, "ann@x.com"), &accounts[0]);
}

TEST(AccountForLabel, TakesTheFirstWhereOneContainsTheOther) {
    const std::vector<MailAccount> accounts{account("1", "", "Ann"), account("2", "Ann@X.com"),
                                            account("3", "joann@x.com")};
    EXPECT_EQ(accountForLabel(accounts, "Work (ann@x.com)"), &accounts[1]);
    EXPECT_EQ(accountForLabel(accounts, "JOANN"), &accounts[2]);
    EXPECT_EQ(accountForLabel(accounts, "Ann"), &accounts[0]) << "by its label, the name";
    EXPECT_EQ(accountForLabel(accounts, "bob@x.com"), nullptr);
    EXPECT_EQ(accountForLabel({}, "ann@x.com"), nullptr);
}

TEST(AccountForLabel, AccountsWithoutAnAddressMatchByTheirLabelAlone) {
    const std::vector<MailAccount> accounts{account("12345678-9", "")};
    EXPECT_EQ(accountForLabel(accounts, "12345678"), &accounts[0]);
    EXPECT_EQ(accountForLabel(accounts, "1234"), nullptr);
}

TEST(FolderAsBefore, PrefersTheIdOverTheWholeList) {
    auto entry = account("1", "");
    entry.folders = {folder(7, "A/Garden"), folder(8, "B/Other")};
    EXPECT_EQ(folderAsBefore(entry, folder(8, "A/Garden")), &entry.folders[1]);
}

TEST(FolderAsBefore, FindsByTheLastComponentWhenTheIdIsGone) {
    auto entry = account("1", "");
    entry.folders = {folder(7, "New/\xC3\x89T\xC3\x89"), folder(9, "Else/\xC3\xA9t\xC3\xA9")};
    EXPECT_EQ(folderAsBefore(entry, folder(3, "Old/\xC3\xA9t\xC3\xA9")), &entry.folders[0])
        << "in any letter case, the first in order";
}

TEST(FolderAsBefore, RenamedWithinItsParentIsLost) {
    auto entry = account("1", "");
    entry.folders = {folder(7, "Projects/Yard")};
    EXPECT_EQ(folderAsBefore(entry, folder(3, "Projects/Garden")), nullptr);
}

}  // namespace
}  // namespace brindlet
