#include "base/Date.h"

#include <gtest/gtest.h>

#include <random>

#include "base/Json.h"

namespace brindlet {
namespace {

TEST(ShortestDecimal, IsFixedWithAtLeastOneDecimal) {
    const std::pair<double, const char*> rows[] = {
        {1700000000, "1700000000.0"},
        {1700000000.25, "1700000000.25"},
        {0.1, "0.1"},
        {0, "0.0"},
        {-2.5, "-2.5"},
        {1e21, "1000000000000000000000.0"},
        {1e-7, "0.0000001"},
        {721692800.123456, "721692800.123456"},
    };
    for (const auto& [value, text] : rows) EXPECT_EQ(shortestDecimal(value), text);
}

TEST(Date, StandsBetweenTwoEpochs) {
    EXPECT_EQ(Date::fromUnix(978307200).sinceReference, 0);
    EXPECT_EQ(Date{0}.unix(), 978307200);
    EXPECT_EQ(Date::fromUnix(1700000000.25).sinceReference, 721692800.25);
    EXPECT_EQ(Date::fromUnix(1700000000.25).unix(), 1700000000.25);
}

TEST(Date, AddsAndComparesSeconds) {
    const Date date{100};
    EXPECT_EQ(date + 2.5, Date{102.5});
    EXPECT_EQ(date - 100, Date{0});
    EXPECT_EQ((date + 60) - date, 60);
    EXPECT_LT(date, date + 0.001);
}

TEST(Date, ComesBackEqualFromJsonTwiceInARow) {
    std::mt19937_64 random(3);
    for (int i = 0; i < 1000; ++i) {
        const Date date{7e8 + static_cast<double>(random() >> 11) * 0x1p-26};
        Date back = date;
        for (int round = 0; round < 2; ++round) {
            JsonWriter out;
            out.value(back.sinceReference);
            JsonReader in(std::move(out).text());
            back = Date{in.number()};
            ASSERT_TRUE(in.finish());
        }
        ASSERT_EQ(back, date) << date.sinceReference;
    }
}

}  // namespace
}  // namespace brindlet
