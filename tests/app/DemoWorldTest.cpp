#include "app/demo/DemoWorld.h"

#include <gtest/gtest.h>

#include <cstdlib>

#include "base/Files.h"
#include "doubles/Doubles.h"
#include "sample/MailPresence.h"
#include "sample/MailSettings.h"

namespace brindlet::demo {
namespace {

class DemoWorldTest : public testing::Test {
  protected:
    ~DemoWorldTest() override { ::unsetenv(sample::sampleHomeVariable); }

    doubles::TemporaryDirectories directories_;
    DemoWorld world_{directories_.root()};
};

TEST_F(DemoWorldTest, ChildrenLearnTheHomeOfTheDemosMail) {
    ASSERT_TRUE(std::getenv(sample::sampleHomeVariable));
    EXPECT_EQ(std::getenv(sample::sampleHomeVariable), world_.directories.home());
}

TEST_F(DemoWorldTest, TheScriptHostLiesBesideTheProgram) {
    EXPECT_EQ(world_.scriptHost, BRINDLET_OSASCRIPT);
    EXPECT_TRUE(files::exists(world_.scriptHost));
}

TEST_F(DemoWorldTest, TheMailProgramRunsWhileTheSimulatedOneDoes) {
    constexpr const char* mail = "com.apple.mail";
    const std::string home = world_.directories.home();
    EXPECT_TRUE(world_.runningApps.isRunning(mail));
    sample::quitMail(home);
    EXPECT_FALSE(world_.runningApps.isRunning(mail));
    world_.desktop.openMail();
    EXPECT_TRUE(world_.runningApps.isRunning(mail));
    EXPECT_FALSE(world_.runningApps.isRunning("com.apple.finder"));
}

TEST_F(DemoWorldTest, TheMenuMayDoTheMovingByDefaultsThatNoFileKeeps) {
    EXPECT_EQ(world_.defaults.boolean("allowUIMove"), true);
    world_.defaults.setBoolean("allowUIMove", false);
    for (const char* folder : {"/home", "/temporary", "/store"})
        EXPECT_EQ(files::list(directories_.root() + folder), std::vector<std::string>()) << folder;
    EXPECT_EQ(DemoWorld(directories_.root()).defaults.boolean("allowUIMove"), true);
}

}  // namespace
}  // namespace brindlet::demo
