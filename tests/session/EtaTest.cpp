#include "session/Eta.h"

#include <gtest/gtest.h>

#include "doubles/Doubles.h"

namespace brindlet {
namespace {

const doubles::FixedLocale locale;

/// The words when so many seconds are left at one message a second.
std::optional<std::string> wordsFor(std::int64_t seconds) {
    return etaWords(true, 100, 100 + seconds, 1.0, locale);
}

TEST(Eta, WordsByTimeLeft) {
    const std::pair<std::int64_t, const char*> rows[] = {
        {1, "about a minute left"},           {89, "about a minute left"},
        {90, "about 2 minutes left"},         {149, "about 2 minutes left"},
        {150, "about 3 minutes left"},        {3540, "about 59 minutes left"},
        {3569, "about 59 minutes left"},      {3570, "about 1 hour left"},
        {3600, "about 1 hour left"},          {3660, "about 1h 1m left"},
        {5399, "about 1h 30m left"},          {5400, "about 1h 30m left"},
        {7200, "about 2 hours left"},         {7260, "about 2h 1m left"},
        {3600'000, "about 1,000 hours left"},
    };
    for (const auto& [seconds, words] : rows) EXPECT_EQ(wordsFor(seconds), words) << seconds;
}

TEST(Eta, FractionsBelowNinetySecondsAreAboutAMinute) {
    EXPECT_EQ(etaWords(true, 21, 21 + 8999, 100.0, locale), "about a minute left");
    EXPECT_EQ(etaWords(true, 21, 21 + 9000, 100.0, locale), "about 2 minutes left");
}

TEST(Eta, SaysNothingBeforeThereIsSomethingToGoBy) {
    EXPECT_EQ(etaWords(false, 50, 100, 1.0, locale), std::nullopt) << "not running";
    EXPECT_EQ(etaWords(true, 20, 100, 1.0, locale), std::nullopt) << "too few done";
    EXPECT_NE(etaWords(true, 21, 100, 1.0, locale), std::nullopt);
    EXPECT_EQ(etaWords(true, 50, 100, 0.05, locale), std::nullopt) << "too slow";
    EXPECT_EQ(etaWords(true, 100, 100, 1.0, locale), std::nullopt) << "all done";
}

}  // namespace
}  // namespace brindlet
