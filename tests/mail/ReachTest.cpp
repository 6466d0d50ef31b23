#include "mail/Reach.h"

#include <gtest/gtest.h>

namespace brindlet {
namespace {

TEST(ReachCutoff, IsAFixedSpanBeforeNow) {
    const Date now = Date::fromUnix(1'700'000'000);
    EXPECT_EQ(reachCutoff(Reach::week, now), 1'700'000'000 - 604'800);
    EXPECT_EQ(reachCutoff(Reach::month, now), 1'700'000'000 - 2'592'000);
    EXPECT_EQ(reachCutoff(Reach::threeMonths, now), 1'700'000'000 - 7'776'000);
    EXPECT_EQ(reachCutoff(Reach::year, now), 1'700'000'000 - 31'536'000);
}

TEST(ReachCutoff, CutsTheFractionOff) {
    EXPECT_EQ(reachCutoff(Reach::week, Date::fromUnix(1'700'000'000.75)), 1'700'000'000 - 604'800);
}

TEST(ReachCutoff, IsNoneForEverythingAndAboveNoneForTheRest) {
    const Date now = Date::fromUnix(1'700'000'000);
    for (const Reach reach : allCases<Reach>())
        EXPECT_EQ(reachCutoff(reach, now) == 0, reach == Reach::everything) << rawValue(reach);
}

TEST(Reach, HasItsRawValuesInOrder) {
    std::string all;
    for (const Reach reach : allCases<Reach>()) all += std::string(rawValue(reach)) + ' ';
    EXPECT_EQ(all, "week month threeMonths year everything ");
}

}  // namespace
}  // namespace brindlet
