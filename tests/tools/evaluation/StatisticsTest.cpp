#include "Statistics.h"

#include <gtest/gtest.h>

#include <algorithm>

namespace brindlet::tools {
namespace {

TEST(Statistics, WilsonsIntervalIsTheOneInTheBooks) {
    struct Case {
        Share share;
        Interval interval;
    };
    const Case cases[]{
        {{0, 10}, {0, 0.2775}},  {{1, 20}, {0.0089, 0.2361}},   {{5, 10}, {0.2366, 0.7634}},
        {{10, 10}, {0.7225, 1}}, {{81, 263}, {0.2553, 0.3662}}, {{0, 1000}, {0, 0.00383}},
    };
    for (const auto& [share, expected] : cases) {
        SCOPED_TRACE(std::to_string(share.part) + " of " + std::to_string(share.whole));
        EXPECT_NEAR(share.interval().low, expected.low, 5e-5);
        EXPECT_NEAR(share.interval().high, expected.high, 5e-5);
    }
}

TEST(Statistics, OfNothingNothingIsKnown) {
    EXPECT_EQ(Share().value(), 0);
    EXPECT_EQ(Share().interval().low, 0);
    EXPECT_EQ(Share().interval().high, 1);
}

TEST(Statistics, BootstrapFindsTheIntervalOfAShare) {
    // A share of a half in 400 draws scatters by 2.5 points, so 95 % lie within 4.9.
    const auto half = [](const std::vector<std::size_t>& drawn) {
        const auto low = std::ranges::count_if(drawn, [](std::size_t i) { return i < 200; });
        return static_cast<double>(low) / static_cast<double>(drawn.size());
    };
    const auto interval = bootstrap(400, half);
    EXPECT_NEAR(interval.low, 0.451, 0.0075);
    EXPECT_NEAR(interval.high, 0.549, 0.0075);
    EXPECT_EQ(bootstrap(400, half).low, interval.low) << "the same draws each time";
    EXPECT_EQ(bootstrap(400, half).high, interval.high);
}

TEST(Statistics, BootstrapLeavesOutAFortiethAtEachEnd) {
    int round = 0;
    const auto interval =
        bootstrap(1, [&](const std::vector<std::size_t>&) { return static_cast<double>(round++); });
    EXPECT_EQ(round, 1000);
    EXPECT_EQ(interval.low, 25);
    EXPECT_EQ(interval.high, 974);
}

}  // namespace
}  // namespace brindlet::tools
