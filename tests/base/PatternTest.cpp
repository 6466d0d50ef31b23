#include "base/Pattern.h"

#include <gtest/gtest.h>

#include <atomic>
#include <string>

#include "base/Task.h"

namespace brindlet {
namespace {

std::string times(int count, std::string_view text) {
    std::string all;
    for (; count > 0; --count) all += text;
    return all;
}

TEST(Pattern, HasInlineFlagsAndFindsAnywhere) {
    const Pattern pattern("(?i)code");
    EXPECT_TRUE(pattern.occursIn("your CoDe is"));
    EXPECT_FALSE(pattern.occursIn("cod"));
    EXPECT_FALSE(pattern.occursIn(""));
}

TEST(Pattern, DotsCountCharactersAndNotBytes) {
    const Pattern pattern("(?i)pay your .{0,20}bill");
    EXPECT_TRUE(pattern.occursIn("Pay your " + times(20, "é") + "bill"));
    EXPECT_FALSE(pattern.occursIn("Pay your " + times(21, "é") + "bill"));
}

TEST(Pattern, WordBoundariesAreUnicodes) {
    const Pattern pattern("(?i)\\botp\\b");
    EXPECT_TRUE(pattern.occursIn("your OTP, please"));
    EXPECT_TRUE(pattern.occursIn("é otp"));
    EXPECT_FALSE(pattern.occursIn("éotp"));
    EXPECT_FALSE(pattern.occursIn("otpé"));
}

TEST(Pattern, FoldsCaseBeyondAscii) {
    EXPECT_TRUE(Pattern("(?i)été").occursIn("ÉTÉ"));
    EXPECT_TRUE(Pattern("(?i)k").occursIn("\u212A"));
}

TEST(Pattern, InvalidTextDoesNotMatch) {
    EXPECT_FALSE(Pattern("a").occursIn("a\xFF"));
    EXPECT_FALSE(
        Pattern("a").occursIn("\xED\xA0\x80"
                              "a"));
}

TEST(Pattern, AnErrorInMatchingIsNoMatch) {
    // Needs more backtracking than the library allows.
    EXPECT_FALSE(Pattern("(a+)+$").occursIn(times(5000, "a") + "b"));
}

TEST(Pattern, MatchesFromManyThreadsAtOnce) {
    const Pattern pattern("(?i)\\bwin(ner)?\\b");
    WorkerCrew crew(4);
    std::atomic<int> hits = 0;
    crew.forEach(2000, [&](int, std::size_t index) {
        hits += pattern.occursIn(index % 2 == 0 ? "You are the WINNER" : "winnerx");
    });
    EXPECT_EQ(hits, 1000);
}

}  // namespace
}  // namespace brindlet
