#include <gtest/gtest.h>

#include "mail/MailHome.h"
#include "mail/Resources.h"

namespace brindlet::testing {
namespace {

using Reply = doubles::ScriptedProcessRunner::Reply;

/// A mail folder with two mailboxes of one account, and a mail program that answers as told.
struct Listed {
    Listed() {
        const auto url = "imap://" + std::string(account);
        home.makeIndex("INSERT INTO mailboxes (url) VALUES ('" + url + "/INBOX'), ('" + url +
                       "/Club')");
        home.world.processes.setScript([this](const auto& run) {
            const bool names = run.arguments.back() == resources::listMailboxNamesScript;
            return names ? mailboxNames : identities;
        });
    }
    std::size_t runs() const { return home.world.processes.launches().size(); }

    MailHome home;
    Reply identities{"@@Home|ann@x.example\nINBOX\nClub\n", "", 0, 0};
    Reply mailboxNames{"@@Home\nINBOX\nClub\n", "", 0, 0};
};

TEST(AccountListings, RunTheScriptHostWithTheScriptInItsArguments) {
    Listed listed;
    listed.home.store.listIdentities();
    const auto run = listed.home.world.processes.launches().at(0);
    EXPECT_EQ(run.arguments,
              (std::vector<std::string>{"/doubles/osascript", "-e",
                                        std::string(resources::listIdentitiesScript)}));
    EXPECT_EQ(run.input, "");
}

TEST(AccountListings, NamesNeedAnExitWithoutAnErrorAndIdentitiesDoNot) {
    Listed listed;
    listed.mailboxNames.status = 1;
    listed.identities.status = 1;
    EXPECT_TRUE(listed.home.store.listMailboxNames().empty());
    EXPECT_EQ(listed.home.store.listIdentities().size(), 1u);
}

TEST(AccountListings, AHostThatDoesNotStartSaysNothing) {
    Listed listed;
    listed.home.world.processes.setStarts(false);
    EXPECT_TRUE(listed.home.store.listMailboxNames().empty());
    EXPECT_TRUE(listed.home.store.listIdentities().empty());
    const auto accounts = listed.home.store.loadAccounts(true, true);
    ASSERT_EQ(accounts.size(), 1u);
    EXPECT_EQ(accounts[0].address, "");
    EXPECT_EQ(accounts[0].folders.size(), 2u);
}

TEST(AccountListings, DamagedBytesAreRepaired) {
    Listed listed;
    listed.identities.output = "@@H\xff|a@x\n";
    EXPECT_EQ(listed.home.store.listIdentities().at(0).name, "H\ufffd");
}

TEST(LoadAccounts, JoinsTheIndexWithWhatTheMailProgramSays) {
    Listed listed;
    listed.mailboxNames.output = "@@Home\nINBOX\nNew\n";
    const auto accounts = listed.home.store.loadAccounts(true, true);
    ASSERT_EQ(accounts.size(), 1u);
    EXPECT_EQ(accounts[0].name, "Home");
    EXPECT_EQ(accounts[0].address, "ann@x.example");
    ASSERT_EQ(accounts[0].folders.size(), 2u);
    EXPECT_EQ(accounts[0].folders[0].name, "INBOX");
    EXPECT_EQ(accounts[0].folders[1].name, "new");
    EXPECT_LT(accounts[0].folders[1].id, 0);
}

TEST(LoadAccounts, WithoutTheMergeTheFoldersAreTheIndexs) {
    Listed listed;
    listed.mailboxNames.output = "@@Home\nNew\n";
    EXPECT_EQ(listed.home.store.loadAccounts(true, false).at(0).folders.size(), 2u);
}

TEST(LoadAccounts, WhoTheyAreIsRememberedAndTheListingAskedAgain) {
    Listed listed;
    listed.home.store.loadAccounts(true, true);
    EXPECT_EQ(listed.runs(), 2u);
    listed.identities.output = "@@Other|other@x.example\nINBOX\nClub\n";
    const auto refreshed = listed.home.store.loadAccounts(false, true);
    EXPECT_EQ(listed.runs(), 3u);
    EXPECT_EQ(refreshed.at(0).address, "ann@x.example");
    EXPECT_EQ(listed.home.store.loadAccounts(true, true).at(0).address, "other@x.example");
}

TEST(LoadAccounts, WithNothingRememberedTheyAreIdentifiedAllTheSame) {
    Listed listed;
    EXPECT_EQ(listed.home.store.loadAccounts(false, false).at(0).address, "ann@x.example");
    EXPECT_EQ(listed.runs(), 1u);
}

TEST(LoadAccounts, WhomTheFirstLookDidNotIdentifyStaysSoUntilTheNextFullOne) {
    Listed listed;
    const auto said = listed.identities;
    listed.identities.output = "";
    EXPECT_EQ(listed.home.store.loadAccounts(true, true).at(0).address, "");
    listed.identities = said;
    EXPECT_EQ(listed.home.store.loadAccounts(false, true).at(0).address, "");
    EXPECT_EQ(listed.home.store.loadAccounts(true, true).at(0).address, "ann@x.example");
}

}  // namespace
}  // namespace brindlet::testing
