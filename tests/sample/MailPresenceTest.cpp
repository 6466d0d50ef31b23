#include "sample/MailPresence.h"

#include <gtest/gtest.h>

#include "doubles/Doubles.h"

namespace brindlet::sample {
namespace {

TEST(MailPresence, TheProgramRunsUntilItQuitsAndAgainOnceLaunched) {
    const doubles::TemporaryDirectories directories;
    EXPECT_TRUE(mailIsRunning(directories.home()));
    quitMail(directories.home());
    EXPECT_FALSE(mailIsRunning(directories.home()));
    quitMail(directories.home());
    launchMail(directories.home());
    EXPECT_TRUE(mailIsRunning(directories.home()));
    launchMail(directories.home());
    EXPECT_TRUE(mailIsRunning(directories.home()));
}

}  // namespace
}  // namespace brindlet::sample
