#include <gtest/gtest.h>

#include <string>

#include "base/Task.h"
#include "base/ThreadSafety.h"

namespace brindlet {
namespace {

TEST(Locked, HoldsAValue) {
    Locked<std::string> text("a");
    EXPECT_EQ(text.get(), "a");
    text.set("b");
    EXPECT_EQ(text.get(), "b");
    EXPECT_EQ(Locked<int>().get(), 0);
}

TEST(Locked, ReadingAndThenWritingUnderOneLockLosesNothing) {
    Locked<int> count;
    WorkerCrew crew(4);
    crew.forEach(4000,
                 [&](int, std::size_t) { count.with([](int& value) { value = value + 1; }); });
    EXPECT_EQ(count.get(), 4000);
    EXPECT_EQ(count.with([](int& value) { return value * 2; }), 8000);
}

}  // namespace
}  // namespace brindlet
