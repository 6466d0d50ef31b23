#include "mail/AccountDiscovery.h"

#include <gtest/gtest.h>

namespace brindlet {
namespace {

using Names = std::set<std::string>;

MailAccount account(std::string id, const std::vector<std::string>& folders) {
    MailAccount made{std::move(id), {}, {}, {}};
    std::int64_t row = 1;
    for (const auto& name : folders)
        made.folders.push_back({row++, name, 3, MailFolder::roleForName(name)});
    return made;
}

std::string told(const MailAccount& account) {
    return account.name + "|" + account.address;
}

TEST(MailboxNamesListing, AnAccountsLineOpensItAndTheRestAreItsMailboxes) {
    EXPECT_EQ(parseMailboxNames("@@Home\nINBOX\nÉTÉ\n@@Work\nJunk\n"),
              (MailboxNames{{"Home", {"inbox", "été"}}, {"Work", {"junk"}}}));
}

TEST(MailboxNamesListing, OddLinesAreTakenAsTheyCome) {
    const std::pair<const char*, MailboxNames> rows[] = {
        {"", {}},
        {"before any account\n", {}},
        {"\n\n  \n\t\n", {}},
        {"@@", {{"", {}}}},
        {"@@\nInbox", {{"", {"inbox"}}}},
        {"  @@Home \n\tInbox ", {{"Home", {"inbox"}}}},
        // What the mark leaves is not trimmed again.
        {"@@ Home\nA", {{" Home", {"a"}}}},
        // A carriage return is no blank.
        {"@@Home\nA\r\n", {{"Home", {"a\r"}}}},
        // A name that comes twice starts over.
        {"@@Home\nA\n@@Work\n@@Home\nB", {{"Home", {"b"}}, {"Work", {}}}},
    };
    for (const auto& [listing, names] : rows)
        EXPECT_EQ(parseMailboxNames(listing), names) << listing;
}

TEST(IdentitiesListing, TheFirstBarParts) {
    const std::vector<MailIdentity> expected{{"Home", "ann@x.example", {"inbox"}},
                                             {"No bar", "", {}},
                                             {"", "b|c", {}},
                                             {"Home", "", {"sent"}}};
    EXPECT_EQ(parseIdentities("x\n@@Home|ann@x.example\nInbox\n@@No bar\n@@|b|c\n@@Home|\nSent"),
              expected);
}

TEST(Identification, TheLabelLeadsToTheIdentityWhateverTheCase) {
    std::vector<MailAccount> accounts{account("abc", {"INBOX"})};
    identifyAccounts(accounts, {{"HOME", "ann@x.example", {}}}, {{"ABC", "Home"}});
    EXPECT_EQ(told(accounts[0]), "HOME|ann@x.example");
}

TEST(Identification, OfTwoAccountsWithOneLabelExactlyOneGetsTheIdentity) {
    std::vector<MailAccount> accounts{account("a", {"INBOX"}), account("b", {"INBOX"})};
    identifyAccounts(accounts, {{"Same", "ann@x.example", {"inbox"}}},
                     {{"A", "Same"}, {"B", "Same"}});
    EXPECT_EQ(told(accounts[0]), "Same|ann@x.example");
    EXPECT_EQ(told(accounts[1]), "Same|");
}

TEST(Identification, IdentitiesThatDifferInCaseAloneExcludeEachOther) {
    std::vector<MailAccount> accounts{account("a", {"A", "B"}), account("b", {"A", "B"})};
    identifyAccounts(accounts,
                     {{"Same", "one@x.example", {"a", "b"}}, {"SAME", "two@x.example", {"a", "b"}}},
                     {});
    EXPECT_EQ(told(accounts[0]), "Same|one@x.example");
    EXPECT_EQ(told(accounts[1]), "|");
}

TEST(Identification, WithoutAnAddressTheLabelStays) {
    std::vector<MailAccount> accounts{account("a", {"A", "B"})};
    identifyAccounts(accounts, {{"home", "", {"a", "b"}}}, {{"A", "Home"}});
    EXPECT_EQ(told(accounts[0]), "Home|");
}

TEST(Identification, ANameThatIsAnAddressServesAsOne) {
    std::vector<MailAccount> accounts{account("a", {})};
    identifyAccounts(accounts, {{"ann@x.example", "", {}}}, {{"A", "ann@x.example"}});
    EXPECT_EQ(told(accounts[0]), "ann@x.example|ann@x.example");
}

TEST(Identification, OnlyTheFirstIdentityOfANameIsTried) {
    std::vector<MailAccount> accounts{account("a", {})};
    identifyAccounts(accounts, {{"Home", "", {}}, {"Home", "ann@x.example", {}}}, {{"A", "Home"}});
    EXPECT_EQ(told(accounts[0]), "Home|");
}

TEST(Identification, OneMailboxInCommonIsNoEvidenceTwoAre) {
    std::vector<MailAccount> accounts{account("a", {"INBOX", "Club/Été"})};
    identifyAccounts(accounts, {{"X", "x@x.example", {"inbox"}}}, {});
    EXPECT_EQ(told(accounts[0]), "|");
    identifyAccounts(accounts, {{"X", "x@x.example", {"inbox", "été"}}}, {});
    EXPECT_EQ(told(accounts[0]), "X|x@x.example");
}

TEST(Identification, OneNameThatStandsTwiceCountsOnce) {
    std::vector<MailAccount> accounts{account("a", {"Old/Club", "New/Club"})};
    identifyAccounts(accounts, {{"X", "x@x.example", {"club"}}}, {});
    EXPECT_EQ(told(accounts[0]), "|");
}

TEST(Identification, TheMostInCommonComesFirstAndTiesKeepTheirOrder) {
    std::vector<MailAccount> accounts{account("a", {"A", "B"}), account("b", {"A", "B", "C"})};
    const MailIdentity three{"Three", "three@x.example", {"a", "b", "c"}};
    const MailIdentity two{"Two", "two@x.example", {"a", "b"}};
    auto rivals = accounts;
    identifyAccounts(rivals, {three, two}, {});
    EXPECT_EQ(told(rivals[1]), "Three|three@x.example");
    EXPECT_EQ(told(rivals[0]), "Two|two@x.example");
    std::vector<MailAccount> twins{account("a", {"A", "B"}), account("b", {"A", "B"})};
    identifyAccounts(twins, {two}, {});
    EXPECT_EQ(told(twins[0]), "Two|two@x.example");
    EXPECT_EQ(told(twins[1]), "|");
}

TEST(Identification, AnIdentityWithoutAnAddressTakesNoPlaceOfAnother) {
    std::vector<MailAccount> accounts{account("a", {"A", "B", "C"})};
    identifyAccounts(accounts, {{"Mute", "", {"a", "b", "c"}}, {"X", "x@x.example", {"a", "b"}}},
                     {});
    EXPECT_EQ(told(accounts[0]), "X|x@x.example");
}

TEST(Merge, FoldersAreThoseThatTheMailProgramLists) {
    std::vector<MailAccount> accounts{account("a", {"INBOX", "Gone", "Club/Été"})};
    accounts[0].name = "Home";
    mergeMailboxNames(accounts, {{"Home", {"inbox", "été", "bulk", "new"}}});
    const std::vector<MailFolder> expected{
        {1, "INBOX", 3, MailFolder::Role::inbox},
        {listedFolderId("bulk"), "bulk", 0, MailFolder::Role::junk},
        {3, "Club/Été", 3, MailFolder::Role::custom},
        {listedFolderId("new"), "new", 0, MailFolder::Role::custom}};
    EXPECT_EQ(accounts[0].folders, expected);
}

TEST(Merge, AnAccountThatTheListingDoesNotKnowStaysAsItIs) {
    std::vector<MailAccount> accounts{account("a", {"INBOX"}), account("b", {"INBOX"})};
    accounts[0].name = "home";
    accounts[1].name = "Empty";
    const auto before = accounts;
    mergeMailboxNames(accounts, {{"Home", {"x"}}, {"Empty", {}}});
    EXPECT_EQ(accounts, before);
    mergeMailboxNames(accounts, {});
    EXPECT_EQ(accounts, before);
}

TEST(ListedFolderId, IsStableAndBelowZero) {
    EXPECT_EQ(listedFolderId("a"), -59858378);
    EXPECT_EQ(listedFolderId("inbox"), -866007459);
    EXPECT_LT(listedFolderId("\u00e9t\u00e9"), 0);
    EXPECT_GE(listedFolderId("\u00e9t\u00e9"), -1073741823);
}

}  // namespace
}  // namespace brindlet
