#include "sample/MailSettings.h"

#include <gtest/gtest.h>

#include "SampleHome.h"
#include "base/Files.h"
#include "doubles/Doubles.h"

namespace brindlet::sample {
namespace {

TEST(MailSettings, WhatIsWrittenIsReadAgain) {
    const doubles::TemporaryDirectories directories;
    MailSettings settings;
    settings.accounts = {{"ID", "Work", "ews", {"a@b", "c@d"}, false, true}};
    auto& behaviour = settings.behaviour;
    behaviour.secondsPerEvent = 0.5;
    behaviour.pace = 0.25;
    behaviour.slowServer = 2;
    behaviour.undoesFreshFolder = 3.5;
    behaviour.quitsAfterEvents = 0;
    behaviour.refusesAutomation = true;
    behaviour.refusesInterfaceScripting = true;
    behaviour.immovable = {"m@h"};
    behaviour.nameless = {"Lists/Walking"};
    behaviour.selection = SelectionDrops::always;
    behaviour.moveMenu = MoveMenu::entryDisabled;
    behaviour.menuMovesAtMost = 7;
    behaviour.viewers = 0;
    behaviour.gate = {"/gate", 3, 4};
    ASSERT_TRUE(writeMailSettings(directories.home(), settings));
    const std::string first = files::read(mailSettingsPath(directories.home())).value_or("");
    const auto read = readMailSettings(directories.home());
    ASSERT_TRUE(read);
    ASSERT_TRUE(writeMailSettings(directories.home(), *read));
    EXPECT_EQ(files::read(mailSettingsPath(directories.home())), first);
    EXPECT_EQ(read->accounts.front().addresses, (std::vector<std::string>{"a@b", "c@d"}));
    EXPECT_EQ(read->behaviour.gate.beforeMove, 4);
    EXPECT_EQ(read->behaviour.quitsAfterEvents, 0);
    EXPECT_EQ(read->behaviour.moveMenu, MoveMenu::entryDisabled);
}

TEST(MailSettings, WhatIsLeftOutStaysAsItWouldBe) {
    const doubles::TemporaryDirectories directories;
    files::write(mailSettingsPath(directories.home()),
                 R"({"accounts":[{"id":"I","name":"N"}],"behaviour":{"slowServer":1}})");
    const auto settings = readMailSettings(directories.home());
    ASSERT_TRUE(settings);
    EXPECT_TRUE(settings->accounts.front().enabled);
    EXPECT_EQ(settings->accounts.front().scheme, "imap");
    EXPECT_EQ(settings->behaviour.slowServer, 1);
    EXPECT_EQ(settings->behaviour.viewers, 1);
    EXPECT_FALSE(settings->behaviour.quitsAfterEvents);
}

TEST(MailSettings, AMistakeFailsTheWholeFile) {
    const doubles::TemporaryDirectories directories;
    for (const char* text :
         {"", "{", R"({"behavior":{}})", R"({"behaviour":{"slow":1}})",
          R"({"behaviour":{"moveMenu":"shut"}})", R"({"accounts":{}})",
          R"({"accounts":[{"mail":"x"}]})", R"({"behaviour":{"gate":{"after":1}}})"}) {
        files::write(mailSettingsPath(directories.home()), text);
        EXPECT_FALSE(readMailSettings(directories.home())) << text;
    }
    files::remove(mailSettingsPath(directories.home()));
    EXPECT_FALSE(readMailSettings(directories.home()));
}

TEST(MailSettings, ASampleHomeHasItsAccountsButNotThisMachinesOwn) {
    const auto settings = readMailSettings(SampleHome::shared().home());
    ASSERT_TRUE(settings);
    ASSERT_EQ(settings->accounts.size(), 3u);
    EXPECT_EQ(settings->accounts[0].name, "Fernhill");
    EXPECT_FALSE(settings->accounts[0].gmail);
    EXPECT_EQ(settings->accounts[1].name, "Gmail");
    EXPECT_TRUE(settings->accounts[1].gmail);
    EXPECT_EQ(settings->accounts[2].scheme, "ews");
}

}  // namespace
}  // namespace brindlet::sample
