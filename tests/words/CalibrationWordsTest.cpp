#include "words/CalibrationWords.h"

#include <gtest/gtest.h>

#include <limits>

#include "words/Session.h"

namespace brindlet {
namespace {

CalibrationWords wordsFor(Rule::Verdict verdict, std::int64_t toKeep, std::int64_t toJunk) {
    const doubles::World world;
    Calibration::Row row;
    row.category = Category::newsletterOrDigest;
    row.verdict = verdict;
    row.tally.toKeep = toKeep;
    row.tally.toJunk = toJunk;
    return calibrationWords(world.locale, row);
}

TEST(CalibrationWords, ACategoryThatIsKeptSaysHowManyWereRescued) {
    const auto words = wordsFor(Rule::Verdict::keep, 1'010, 2);
    EXPECT_EQ(words.badge, (Mark{"KEEP", Tone::green, {}}));
    EXPECT_EQ(words.label, "Newsletters & digests");
    EXPECT_EQ(words.line, "You rescued 1,010 of 1,012 - Brindlet stopped calling these junk");
}

TEST(CalibrationWords, ACategoryThatIsJunkSaysHowManyWereBinned) {
    const auto words = wordsFor(Rule::Verdict::junk, 1, 14);
    EXPECT_EQ(words.badge, (Mark{"JUNK", Tone::orange, {}}));
    EXPECT_EQ(words.line, "You binned 14 of 15 - Brindlet now treats these as junk");
}

TEST(CalibrationWords, CountsFromADamagedFileDoNotOverflow) {
    constexpr auto most = std::numeric_limits<std::int64_t>::max();
    EXPECT_EQ(wordsFor(Rule::Verdict::keep, most, most).line,
              "You rescued 9,223,372,036,854,775,807 of 9,223,372,036,854,775,807 - Brindlet "
              "stopped calling these junk");
}

}  // namespace
}  // namespace brindlet
