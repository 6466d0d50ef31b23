#include "mail/MailAccount.h"

#include <gtest/gtest.h>

namespace brindlet {
namespace {

MailAccount account(std::string id, std::vector<std::int64_t> counts) {
    MailAccount made;
    made.id = std::move(id);
    for (const std::int64_t count : counts)
        made.folders.push_back({1, "Folder", count, MailFolder::Role::custom});
    return made;
}

std::string order(const std::vector<MailAccount>& accounts) {
    std::string ids;
    for (const MailAccount& one : accounts) ids += one.id + ' ';
    return ids;
}

TEST(MailAccountLabel, IsTheAddressElseTheNameElseTheStartOfTheId) {
    MailAccount one = account("0123456789", {});
    EXPECT_EQ(one.displayLabel(), "01234567");
    one.name = "Home";
    EXPECT_EQ(one.displayLabel(), "Home");
    one.address = "ann@x.example";
    EXPECT_EQ(one.displayLabel(), "ann@x.example");
}

TEST(MailAccountLabel, CountsCharactersAndNotBytes) {
    EXPECT_EQ(
        account("e\u0301e\u0301e\u0301e\u0301e\u0301e\u0301e\u0301e\u0301tail", {}).displayLabel(),
        "e\u0301e\u0301e\u0301e\u0301e\u0301e\u0301e\u0301e\u0301");
}

TEST(MailAccountOrder, PutsTheFullestFirstByTheSumOfItsFolders) {
    std::vector<MailAccount> accounts = {account("a", {5}), account("b", {3, 4}), account("c", {}),
                                         account("d", {6})};
    sortAccounts(accounts);
    EXPECT_EQ(order(accounts), "b d a c ");
}

TEST(MailAccountOrder, WithoutMailComesAfterEveryOneThatHasSome) {
    std::vector<MailAccount> accounts = {account("empty", {0, 0, 0}), account("one", {1})};
    sortAccounts(accounts);
    EXPECT_EQ(order(accounts), "one empty ");
}

TEST(MailAccountOrder, EqualSumsKeepTheirOrder) {
    std::vector<MailAccount> accounts;
    for (char id = 'a'; id <= 'z'; ++id) accounts.push_back(account(std::string(1, id), {2, 1}));
    const std::string before = order(accounts);
    sortAccounts(accounts);
    EXPECT_EQ(order(accounts), before);
}

TEST(MailAccount, IsEqualWhenAllFourFieldsAre) {
    const MailAccount one{"id", "address", "name", {}};
    EXPECT_EQ(one, (MailAccount{"id", "address", "name", {}}));
    EXPECT_NE(one, (MailAccount{"ID", "address", "name", {}}));
    EXPECT_NE(one, (MailAccount{"id", "", "name", {}}));
    EXPECT_NE(one, (MailAccount{"id", "address", "", {}}));
    EXPECT_NE(one, (MailAccount{"id", "address", "name", {MailFolder()}}));
}

}  // namespace
}  // namespace brindlet
