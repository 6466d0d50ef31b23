#include "sample/Quantiles.h"

#include <gtest/gtest.h>

namespace brindlet::sample {
namespace {

TEST(Quantiles, SizesHaveTheMedianTheMeanAndTheTailOfRealMail) {
    EXPECT_NEAR(static_cast<double>(messageSizeQuantile(50'000)), 14'000, 500);
    double sum = 0;
    for (std::int64_t share = 0; share < 100'000; ++share)
        sum += static_cast<double>(messageSizeQuantile(share));
    EXPECT_NEAR(sum / 100'000, 28'000, 1'000);
    EXPECT_LT(messageSizeQuantile(96'500), 120'000);
    EXPECT_GT(messageSizeQuantile(97'100), 120'000);
}

TEST(Quantiles, NeverFallAsTheShareGrows) {
    for (std::int64_t share = 1; share <= 1'000; ++share) {
        EXPECT_GE(messageSizeQuantile(share * 100), messageSizeQuantile(share * 100 - 100));
        EXPECT_GE(recentAgeQuantile(share), recentAgeQuantile(share - 1));
        EXPECT_GE(keptAgeQuantile(share), keptAgeQuantile(share - 1));
    }
}

TEST(Quantiles, NewMailIsMostlyOfLateAndKeptMailIsNot) {
    constexpr std::int64_t month = 30 * 86'400;
    EXPECT_LT(recentAgeQuantile(450), month);
    EXPECT_GT(keptAgeQuantile(200), month);
}

}  // namespace
}  // namespace brindlet::sample
