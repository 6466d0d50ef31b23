#include <gtest/gtest.h>

#include "ScriptHome.h"

// The two listing scripts as they stand, through the stand-in as a process.

namespace brindlet::osascript {
namespace {

constexpr const char* names = "list-mailbox-names.applescript";
constexpr const char* identities = "list-identities.applescript";

TEST(ListMailboxNames, PrintsEachAccountWithTheLeafNamesOfItsMailboxes) {
    ScriptHome home;
    home.finish();
    const auto run = home.listing(names);
    EXPECT_EQ(run.status, 0);
    EXPECT_EQ(run.errors, "");
    EXPECT_EQ(run.output,
              "@@Notes\nOld\n"
              "@@Work\nINBOX\nJunk\nProjects\nHarbour\n"
              "@@Gmail\nAll Mail\nINBOX\nReceipts\nSpam\n\n");
}

TEST(ListMailboxNames, OneNamelessMailboxCostsItsAccountAllNames) {
    ScriptHome home;
    home.behaviour().nameless = {"Junk"};
    home.finish();
    EXPECT_EQ(home.listing(names).output,
              "@@Notes\nOld\n@@Work\n@@Gmail\nAll Mail\nINBOX\nReceipts\nSpam\n\n");
}

TEST(ListMailboxNames, AnAccountThatIsSwitchedOffHasNoMailboxes) {
    ScriptHome home;
    home.home.settings.accounts[ScriptHome::work].enabled = false;
    home.finish();
    EXPECT_EQ(home.listing(names).output,
              "@@Notes\nOld\n@@Work\n\n@@Gmail\nAll Mail\nINBOX\nReceipts\nSpam\n\n");
}

TEST(ListMailboxNames, PrintsNothingWhenAutomationIsRefused) {
    ScriptHome home;
    home.behaviour().refusesAutomation = true;
    home.finish();
    const auto run = home.listing(names);
    EXPECT_EQ(run.status, 1);
    EXPECT_EQ(run.output, "");
    EXPECT_TRUE(run.errors.ends_with("(-1743)\n")) << run.errors;
}

TEST(ListIdentities, PrintsNamesWithFirstAddressesAndMailboxes) {
    ScriptHome home;
    home.finish();
    const auto run = home.listing(identities);
    EXPECT_EQ(run.status, 0);
    EXPECT_EQ(run.output,
              "@@Notes|\nOld\n"
              "@@Work|Me@x.example\nINBOX\nJunk\nProjects\nHarbour\n"
              "@@Gmail|me@gmail.example\nAll Mail\nINBOX\nReceipts\nSpam\n\n");
}

TEST(ListIdentities, ANamelessMailboxCostsOneName) {
    ScriptHome home;
    home.behaviour().nameless = {"Junk"};
    home.finish();
    EXPECT_EQ(home.listing(identities).output,
              "@@Notes|\nOld\n"
              "@@Work|Me@x.example\nINBOX\nProjects\nHarbour\n"
              "@@Gmail|me@gmail.example\nAll Mail\nINBOX\nReceipts\nSpam\n\n");
}

TEST(ListIdentities, AMailProgramThatQuitsLeavesAnError) {
    ScriptHome home;
    home.behaviour().quitsAfterEvents = 2;
    home.finish();
    const auto run = home.listing(identities);
    EXPECT_EQ(run.status, 1);
    EXPECT_NE(run.errors.find("(-609)"), std::string::npos) << run.errors;
}

}  // namespace
}  // namespace brindlet::osascript
