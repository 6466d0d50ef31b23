#include "base/Thread.h"

#include <gtest/gtest.h>
#include <pthread.h>

#include <atomic>
#include <cstdint>
#include <string>
#include <thread>

namespace brindlet {
namespace {

TEST(Thread, RunsItsBodyElsewhereAndWaitsForItsEnd) {
    std::atomic<bool> elsewhere = false;
    {
        const auto here = std::this_thread::get_id();
        const Thread thread({"test", 131'072},
                            [&] { elsewhere = std::this_thread::get_id() != here; });
    }
    EXPECT_TRUE(elsewhere);
}

#if defined(__linux__)
struct OwnThread {
    std::string name;
    std::size_t stackBytes = 0;
};

OwnThread lookAtOwnThread() {
    OwnThread own;
    char name[64] = "";
    pthread_getname_np(pthread_self(), name, sizeof name);
    own.name = name;
    pthread_attr_t attributes;
    pthread_getattr_np(pthread_self(), &attributes);
    pthread_attr_getstacksize(&attributes, &own.stackBytes);
    pthread_attr_destroy(&attributes);
    return own;
}

TEST(Thread, HasTheNameAndTheStackThatItWasGiven) {
    OwnThread own;
    {
        const Thread thread({"short", 262'144}, [&] { own = lookAtOwnThread(); });
    }
    EXPECT_EQ(own.name, "short");
    EXPECT_GE(own.stackBytes, 262'144U);
    EXPECT_LT(own.stackBytes, 4'194'304U) << "the system's own size is eight megabytes";
}

TEST(Thread, ANameThatTheSystemFindsTooLongIsCut) {
    OwnThread own;
    {
        const Thread thread({"sixteen.letters.", 131'072}, [&] { own = lookAtOwnThread(); });
    }
    EXPECT_EQ(own.name, "sixteen.letters");
}
#endif

TEST(Thread, ThatTheSystemCannotMakeRunsNothing) {
    bool ran = false;
    {
        const Thread thread({"huge", SIZE_MAX / 2 / 4096 * 4096}, [&] { ran = true; });
    }
    EXPECT_FALSE(ran);
}

}  // namespace
}  // namespace brindlet
