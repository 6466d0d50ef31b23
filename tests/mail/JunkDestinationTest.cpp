#include "mail/JunkDestination.h"

#include <gtest/gtest.h>

namespace brindlet {
namespace {

using Names = std::vector<std::string>;

MailAccount accountWith(const std::vector<std::pair<std::string, std::int64_t>>& folders) {
    MailAccount account;
    for (const auto& [name, count] : folders)
        account.folders.push_back({1, name, count, MailFolder::roleForName(name)});
    return account;
}

TEST(JunkCandidates, AreTheJunkFoldersTheFullestFirstAndOursAtTheEnd) {
    EXPECT_EQ(junkCandidates(accountWith({{"INBOX", 900},
                                          {"Spam", 5},
                                          {"Old/Junk", 70},
                                          {"Bulk", 5},
                                          {"Trash", 100},
                                          {"Junk", 70}})),
              (Names{"Old/Junk", "Junk", "Spam", "Bulk", "Brindlet Junk"}));
    EXPECT_EQ(junkCandidates(accountWith({{"INBOX", 900}})), Names{"Brindlet Junk"});
    EXPECT_EQ(junkCandidates({}), Names{"Brindlet Junk"});
}

TEST(JunkCandidates, NameOursOnceWhereItIsAJunkFolder) {
    auto account = accountWith({{"Junk", 3}, {"Brindlet Junk", 70}});
    EXPECT_EQ(junkCandidates(account), (Names{"Junk", "Brindlet Junk"}))
        << "its name implies no role";
    account.folders[1].role = MailFolder::Role::junk;
    EXPECT_EQ(junkCandidates(account), (Names{"Brindlet Junk", "Junk"}));
}

TEST(JunkDestination, IsTheSavedOneWhileItIsThere) {
    const auto account = accountWith({{"INBOX", 900}, {"Junk", 3}, {"Lists/Club", 7}});
    const struct {
        std::optional<std::string> saved;
        std::string destination;
    } rows[] = {
        {"Lists/Club", "Lists/Club"},
        {"INBOX", "INBOX"},
        {"Brindlet Junk", "Brindlet Junk"},
        {"Gone", "Junk"},
        {"lists/club", "Junk"},
        {"Club", "Junk"},
        {"brindlet junk", "Junk"},
        {"", "Junk"},
        {std::nullopt, "Junk"},
    };
    for (const auto& row : rows)
        EXPECT_EQ(junkDestination(account, row.saved), row.destination)
            << row.saved.value_or("nothing saved");
}

TEST(JunkDestination, IsElseTheFullestJunkFolderOrOurs) {
    EXPECT_EQ(junkDestination(accountWith({{"Junk", 3}, {"Spam", 70}}), {}), "Spam");
    EXPECT_EQ(junkDestination(accountWith({{"INBOX", 3}}), {}), "Brindlet Junk");
}

TEST(JunkDestination, OnGmailPassesWhatNamesSpam) {
    const struct {
        std::vector<std::pair<std::string, std::int64_t>> folders;
        std::string destination;
    } rows[] = {
        {{{"INBOX", 3}, {"[Gmail]/Spam", 70}}, "Brindlet Junk"},
        {{{"[Gmail]/Spam", 70}, {"Junk", 3}}, "Junk"},
        {{{"[Gmail]/SPAM", 70}, {"Spam", 8}, {"Bulk", 3}, {"Junk", 5}}, "Junk"},
        {{{"[Gmail]/All Mail", 70}}, "Brindlet Junk"},
    };
    for (const auto& row : rows) {
        EXPECT_EQ(junkDestination(accountWith(row.folders), {}), row.destination)
            << row.folders[0].first;
        EXPECT_EQ(junkDestination(accountWith(row.folders), row.folders[0].first),
                  row.folders[0].first)
            << "unless the person chose it";
    }
}

}  // namespace
}  // namespace brindlet
