#include "sample/SystemAccounts.h"

#include <gtest/gtest.h>

#include <map>
#include <set>

#include "SampleHome.h"
#include "base/Files.h"
#include "mail/AccountsDatabase.h"
#include "sample/SampleAccounts.h"

namespace brindlet::sample {
namespace {

TEST(SystemAccounts, GiveEveryAccountALabelAndMostAnotherThanTheMailProgramDoes) {
    SampleHome& home = SampleHome::shared();
    const auto labels = readAccountsDatabase(home.home(), home.world.directories.temporary());
    const auto accounts = sampleAccounts();
    EXPECT_EQ(labels, (AccountLabels{
                          {"0D7A61C4-83B2-4F5E-A1C9-7E2B940D5F38", "Fernhill"},
                          {std::string(accounts[0].id), "Fernhill"},
                          {"41F8B3E6-C05D-4A97-8E13-D9264B7A0C5F", "robin.ashdown@gmail.example"},
                          {std::string(accounts[1].id), "robin.ashdown@gmail.example"},
                          {std::string(accounts[2].id), "Exchange"},
                          {std::string(accounts[3].id), "On My Mac"},
                          {"9C2E5D70-1B84-4F36-A7D8-305F6E91B2C4", "Game room"},
                      }));
}

TEST(SystemAccounts, HoldParentsAndSeveralRowsOfOneAccount) {
    std::map<std::string_view, int> rows;
    std::set<int> parents;
    const auto all = systemAccounts();
    for (const SystemAccount& account : all) {
        if (account.identifier) ++rows[*account.identifier];
        if (account.parent == 0) continue;
        parents.insert(account.parent);
        ASSERT_LE(account.parent, static_cast<int>(all.size()));
        // Nothing of its own, so that a reader has to look at the parent.
        EXPECT_EQ(account.description.value_or(""), "");
        EXPECT_EQ(account.userName.value_or(""), "");
    }
    EXPECT_EQ(parents.size(), 2u);
    EXPECT_EQ(rows[sampleAccounts()[2].id], 3);
    EXPECT_EQ(all[6].description, "") << "the last row of the three says nothing";
}

TEST(SystemAccounts, StandInTheLogAsWhileTheSystemRuns) {
    const std::string database = SampleHome::shared().home() + "/Library/Accounts/Accounts4.sqlite";
    EXPECT_GT(files::read(database + "-wal").value_or("").size(), 4096u);
}

TEST(SystemAccounts, CannotBeWrittenWhereNoFolderCanBeMade) {
    const doubles::TemporaryDirectories directories;
    ASSERT_TRUE(files::write(directories.home() + "/Library", "x"));
    EXPECT_FALSE(writeSystemAccounts(directories.home()));
}

}  // namespace
}  // namespace brindlet::sample
