#include "mail/AccountsDatabase.h"

#include <gtest/gtest.h>

#include "base/Files.h"
#include "mail/MailHome.h"

namespace brindlet::testing {
namespace {

struct AccountsDatabase {
    explicit AccountsDatabase(const std::string& rows) {
        files::createDirectories(home() + "/Library/Accounts");
        IndexWriter writer(path());
        writer.run(
            "CREATE TABLE ZACCOUNT (Z_PK INTEGER PRIMARY KEY, ZIDENTIFIER TEXT,"
            " ZACCOUNTDESCRIPTION TEXT, ZUSERNAME TEXT, ZPARENTACCOUNT INTEGER);" +
            rows);
    }
    std::string home() const { return directories.home(); }
    std::string path() const { return home() + "/Library/Accounts/Accounts4.sqlite"; }
    AccountLabels read() const { return readAccountsDatabase(home(), directories.temporary()); }

    doubles::TemporaryDirectories directories;
};

TEST(AccountsDatabase, GivesTheDescriptionElseTheParentsElseTheUserName) {
    const AccountsDatabase database(
        "INSERT INTO ZACCOUNT VALUES (1, 'ab-c', 'Home', 'ann', NULL),"
        " (2, 'parent', 'Work', 'boss', NULL), (3, 'child', '', 'kid', 2),"
        " (4, 'named', NULL, 'only a user', NULL), (5, 'grand', '', '', 6), (6, NULL, '', 'up', "
        "NULL),"
        " (7, 'nothing', '', NULL, NULL)");
    EXPECT_EQ(database.read(), (AccountLabels{{"AB-C", "Home"},
                                              {"PARENT", "Work"},
                                              {"CHILD", "Work"},
                                              {"NAMED", "only a user"},
                                              {"GRAND", "up"}}));
}

TEST(AccountsDatabase, ALaterRowReplacesAndALaterEmptyOneDoesNot) {
    const AccountsDatabase database(
        "INSERT INTO ZACCOUNT VALUES (1, 'a', 'One', '', NULL), (2, 'A', 'Two', '', NULL),"
        " (3, 'a', '', '', NULL)");
    EXPECT_EQ(database.read(), (AccountLabels{{"A", "Two"}}));
}

TEST(AccountsDatabase, LeavesNoCopyBehind) {
    const AccountsDatabase database("INSERT INTO ZACCOUNT VALUES (1, 'a', 'One', '', NULL)");
    ASSERT_EQ(database.read().size(), 1u);
    EXPECT_TRUE(contents(database.directories.temporary()).empty());
}

TEST(AccountsDatabase, ThatIsDamagedOrMissingGivesNothingAndLeavesNoCopy) {
    const AccountsDatabase database("");
    files::write(database.path(), "no database at all");
    EXPECT_TRUE(database.read().empty());
    EXPECT_TRUE(contents(database.directories.temporary()).empty());
    files::remove(database.path());
    EXPECT_TRUE(database.read().empty());
}

TEST(AccountsDatabase, RowsThatOnlyTheLogHasCount) {
    const AccountsDatabase database("");
    IndexWriter writer(database.path());
    writer.run(
        "PRAGMA journal_mode = WAL; PRAGMA wal_autocheckpoint = 0;"
        "INSERT INTO ZACCOUNT VALUES (1, 'a', 'One', '', NULL)");
    EXPECT_EQ(database.read(), (AccountLabels{{"A", "One"}}));
}

}  // namespace
}  // namespace brindlet::testing
