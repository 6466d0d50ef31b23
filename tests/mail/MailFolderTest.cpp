#include "mail/MailFolder.h"

#include <gtest/gtest.h>

namespace brindlet {
namespace {

using Role = MailFolder::Role;

MailFolder folder(std::string name, std::int64_t count, std::int64_t id = 1) {
    const Role role = MailFolder::roleForName(name);
    return {id, std::move(name), count, role};
}

TEST(MailFolderRole, IsKnownByTheLeafInAnyCase) {
    const std::pair<const char*, Role> rows[] = {
        {"INBOX", Role::inbox},
        {"inbox", Role::inbox},
        {"Junk", Role::junk},
        {"junk email", Role::junk},
        {"[Gmail]/Spam", Role::junk},
        {"Bulk", Role::junk},
        {"Bulk Mail", Role::junk},
        {"[Gmail]/All Mail", Role::archive},
        {"Archive", Role::archive},
        {"archives", Role::archive},
        {"Sent", Role::sent},
        {"[Gmail]/Sent Mail", Role::sent},
        {"Sent Items", Role::sent},
        {"Sent Messages", Role::sent},
        {"Drafts", Role::drafts},
        {"draft", Role::drafts},
        {"Trash", Role::trash},
        {"Deleted Items", Role::trash},
        {"Deleted Messages", Role::trash},
        {"BIN", Role::trash},
        {"Projects/Junk", Role::junk},
        {"Junk/", Role::junk},
        {"/Junk//", Role::junk},
        // The Kelvin sign is a k once it is lower-cased.
        {"JUN\u212A", Role::junk},
    };
    for (const auto& [name, role] : rows)
        EXPECT_EQ(rawValue(MailFolder::roleForName(name)), rawValue(role)) << name;
}

TEST(MailFolderRole, ParentDoesNotLendItsRole) {
    EXPECT_EQ(MailFolder::roleForName("Archive/2019"), Role::custom);
    EXPECT_EQ(MailFolder::roleForName("INBOX/Receipts"), Role::custom);
}

TEST(MailFolderRole, OtherSpellingsAndLanguagesStayCustom) {
    for (const char* name : {"", "/", "///", "Junk E-mail", "Papierkorb", "Inbox 2", " inbox",
                             "inbox ", "Deleted", "junk\u0301"})
        EXPECT_EQ(MailFolder::roleForName(name), Role::custom) << name;
}

TEST(MailFolderRole, HasItsRawValuesInOrder) {
    std::string all;
    for (const Role role : allCases<Role>()) all += std::string(rawValue(role)) + ' ';
    EXPECT_EQ(all, "inbox junk archive sent drafts trash custom ");
    EXPECT_EQ(fromRaw<Role>("trash"), Role::trash);
    EXPECT_FALSE(fromRaw<Role>("Trash"));
    EXPECT_FALSE(fromRaw<Role>("other"));
}

TEST(MailFolderLeafName, IsTheLastPieceThatIsNotEmpty) {
    const std::pair<const char*, const char*> rows[] = {
        {"", ""},     {"/", ""},     {"///", ""},       {"A", "A"},
        {"A/B", "B"}, {"A/B/", "B"}, {"//A//B//", "B"}, {"/A", "A"},
    };
    for (const auto& [name, leaf] : rows) EXPECT_EQ(MailFolder::leafName(name), leaf) << name;
}

TEST(MailFolderOrder, GoesByRoleAndThenByCount) {
    std::vector<MailFolder> folders = {
        folder("Trash", 900), folder("Drafts", 1), folder("Sent", 5), folder("Archive", 70),
        folder("Small", 2),   folder("Large", 40), folder("Junk", 3), folder("INBOX", 1),
    };
    sortFolders(folders);
    std::string order;
    for (const MailFolder& one : folders) order += one.name + ' ';
    EXPECT_EQ(order, "INBOX Junk Large Small Archive Sent Drafts Trash ");
}

TEST(MailFolderOrder, EqualsKeepTheirOrder) {
    std::vector<MailFolder> folders;
    for (std::int64_t id = 0; id < 40; ++id)
        folders.push_back(folder(id % 2 == 0 ? "Even" : "Odd", 7, id));
    const auto before = folders;
    sortFolders(folders);
    EXPECT_EQ(folders, before);
}

TEST(MailFolder, IsEqualWhenAllFieldsAre) {
    const MailFolder one{1, "A", 2, Role::custom};
    EXPECT_EQ(one, (MailFolder{1, "A", 2, Role::custom}));
    EXPECT_NE(one, (MailFolder{2, "A", 2, Role::custom}));
    EXPECT_NE(one, (MailFolder{1, "B", 2, Role::custom}));
    EXPECT_NE(one, (MailFolder{1, "A", 3, Role::custom}));
    EXPECT_NE(one, (MailFolder{1, "A", 2, Role::junk}));
}

}  // namespace
}  // namespace brindlet
