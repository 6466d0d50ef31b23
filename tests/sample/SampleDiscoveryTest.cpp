#include <gtest/gtest.h>

#include <algorithm>
#include <cstdlib>
#include <map>

#include "SampleHome.h"
#include "mail/GmailAccount.h"
#include "mail/MailStore.h"
#include "platform/posix/PosixProcessRunner.h"
#include "sample/MailSettings.h"
#include "sample/SampleAccounts.h"

// The accounts of a sample home as the program finds them: by the index, by the system's accounts,
// and by asking the simulated mail program through the stand-in for the script host.

namespace brindlet::sample {
namespace {

class SampleDiscovery : public testing::Test {
  protected:
    SampleDiscovery() {
        EXPECT_EQ(home_.outcome.problem, "");
        ::setenv(sampleHomeVariable, home_.home().c_str(), 1);
    }
    ~SampleDiscovery() override { ::unsetenv(sampleHomeVariable); }

    void setBehaviour(const MailSettings::Behaviour& behaviour) {
        auto settings = readMailSettings(home_.home());
        ASSERT_TRUE(settings);
        settings->behaviour = behaviour;
        ASSERT_TRUE(writeMailSettings(home_.home(), *settings));
    }

    const SampleAccount& sampleOf(const MailAccount& account) const {
        const auto all = sampleAccounts();
        return *std::find_if(all.begin(), all.end(),
                             [&](const SampleAccount& each) { return each.id == account.id; });
    }

    SampleHome home_{{.messages = 120}};
    PosixProcessRunner processes_;
    doubles::World& world_ = home_.world;
    const MailStore store_{{world_.clock, world_.directories, world_.mainQueue, world_.defaults,
                            world_.model, world_.power, world_.desktop, world_.locale, processes_,
                            world_.runningApps, world_.keys, world_.tls, BRINDLET_OSASCRIPT}};
};

TEST_F(SampleDiscovery, EveryAccountHasItsNameAndItsAddress) {
    const auto accounts = store_.loadAccounts(true, true);
    ASSERT_EQ(accounts.size(), sampleAccounts().size());
    for (const MailAccount& account : accounts) {
        const SampleAccount& sample = sampleOf(account);
        EXPECT_EQ(account.name, sample.name);
        EXPECT_EQ(account.address, sample.address);
        EXPECT_EQ(isGmail(account), sample.gmail);
    }
    EXPECT_EQ(accounts.front().displayLabel(), "robin.ashdown@fernhill.example");
}

/// Names with umlauts, quotes and percent signs go through the script host and come back, and what
/// both sides know is one folder.
TEST_F(SampleDiscovery, TheMailProgramListsTheFoldersOfTheIndex) {
    const auto listed = store_.listMailboxNames();
    ASSERT_EQ(listed.size(), 3u);
    EXPECT_TRUE(listed.at("Gmail").contains("côte d'été"));
    EXPECT_TRUE(listed.at("Fernhill").contains("küche & garten"));
    EXPECT_EQ(store_.loadAccounts(true, true), store_.loadAccounts(true, false));
}

TEST_F(SampleDiscovery, TheSameIsFoundEveryTime) {
    const auto first = store_.loadAccounts(true, true);
    EXPECT_EQ(store_.loadAccounts(true, true), first);
    EXPECT_EQ(store_.loadAccounts(false, true), first);
}

TEST_F(SampleDiscovery, AMailProgramThatRefusesLeavesTheSystemsNames) {
    MailSettings::Behaviour behaviour;
    behaviour.refusesAutomation = true;
    setBehaviour(behaviour);
    std::map<std::string, std::string> names;
    for (const MailAccount& account : store_.loadAccounts(true, true)) {
        EXPECT_EQ(account.address, "") << account.name;
        names[account.id] = account.name;
    }
    const auto all = sampleAccounts();
    EXPECT_EQ(names, (std::map<std::string, std::string>{
                         {std::string(all[0].id), "Fernhill"},
                         {std::string(all[1].id), "robin.ashdown@gmail.example"},
                         {std::string(all[2].id), "Exchange"},
                         {std::string(all[3].id), "On My Mac"},
                     }));
}

TEST_F(SampleDiscovery, AMailboxThatCannotTellItsNameCostsOnlyTheMerge) {
    MailSettings::Behaviour behaviour;
    behaviour.nameless = {"Junk", "[Gmail]/Spam"};
    setBehaviour(behaviour);
    const auto accounts = store_.loadAccounts(true, true);
    for (const MailAccount& account : accounts) {
        EXPECT_EQ(account.address, sampleOf(account).address);
        EXPECT_EQ(account.folders.size(), sampleOf(account).folders.size()) << account.name;
    }
}

}  // namespace
}  // namespace brindlet::sample
