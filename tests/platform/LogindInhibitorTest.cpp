#include "platform/linux/LogindInhibitor.h"

#include <gtest/gtest.h>

#include <cstdlib>

namespace brindlet {
namespace {

TEST(InhibitSleep, FailsSilentlyWhereNoBusAnswers) {
    ::setenv("DBUS_SYSTEM_BUS_ADDRESS", "unix:path=/nonexistent/bus", 1);
    EXPECT_EQ(inhibitSleep("a test"), -1);
    ::unsetenv("DBUS_SYSTEM_BUS_ADDRESS");
}

}  // namespace
}  // namespace brindlet
