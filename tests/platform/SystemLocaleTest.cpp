#include "platform/linux/SystemLocale.h"

#include <gtest/gtest.h>

#include <limits>

#include "platform/Environments.h"

namespace brindlet {
namespace {

std::string groupedIn(std::map<std::string, std::string> variables, std::int64_t number) {
    return SystemLocale(environmentOf(std::move(variables))).grouped(number);
}

TEST(SystemLocale, GroupsAsTheUsersLocaleDoes) {
    EXPECT_EQ(groupedIn({{"LANG", "en_US.UTF-8"}}, 1234567), "1,234,567");
    EXPECT_EQ(groupedIn({{"LANG", "de_DE.UTF-8@euro"}}, 1234567), "1.234.567");
    EXPECT_EQ(groupedIn({{"LANG", "en_IN"}}, 1234567), "12,34,567");
    EXPECT_EQ(groupedIn({{"LANG", "de_CH"}}, 1234567), "1’234’567");
    EXPECT_EQ(groupedIn({{"LANG", "en_US"}}, 999), "999");
    EXPECT_EQ(groupedIn({{"LANG", "en_US"}}, -1234), "-1,234");
    EXPECT_EQ(groupedIn({{"LANG", "en_US"}}, std::numeric_limits<std::int64_t>::min()),
              "-9,223,372,036,854,775,808");
}

TEST(SystemLocale, TheMostParticularVariableWins) {
    EXPECT_EQ(groupedIn({{"LC_ALL", "de_DE"}, {"LC_NUMERIC", "en_IN"}, {"LANG", "en_US"}}, 1234567),
              "1.234.567");
    EXPECT_EQ(groupedIn({{"LC_NUMERIC", "en_IN"}, {"LANG", "de_DE"}}, 1234567), "12,34,567");
    EXPECT_EQ(groupedIn({{"LC_ALL", ""}, {"LANG", "de_DE"}}, 1234567), "1.234.567");
}

TEST(SystemLocale, WhereNoneOrTheCLocaleIsSetItIsAmerican) {
    for (const char* name : {"C", "POSIX", "C.UTF-8", "C.utf8", ""})
        EXPECT_EQ(groupedIn({{"LANG", name}}, 1234), "1,234") << name;
    EXPECT_EQ(groupedIn({}, 1234), "1,234");
}

TEST(SystemLocale, RelativeWordsNameTheLargestUnitCutAndNotRounded) {
    const SystemLocale locale(environmentOf({}));
    const auto now = Date::fromUnix(1'700'000'000);  // 2023-11-14 22:13:20
    constexpr double hour = 3600, day = 24 * hour;
    const std::pair<double, const char*> rows[] = {
        {0, "in 0 seconds"},        {0.9, "in 0 seconds"},
        {-0.9, "in 0 seconds"},     {1, "in 1 second"},
        {59.9, "in 59 seconds"},    {60, "in 1 minute"},
        {119, "in 1 minute"},       {hour - 1, "in 59 minutes"},
        {5 * hour, "in 5 hours"},   {6 * hour - 1, "in 5 hours"},
        {day, "in 1 day"},          {2 * day - 1, "in 1 day"},
        {6 * day, "in 6 days"},     {7 * day, "in 1 week"},
        {13.9 * day, "in 1 week"},  {29 * day, "in 4 weeks"},
        {30 * day, "in 1 month"},   {61 * day, "in 2 months"},
        {366 * day, "in 1 year"},   {731 * day, "in 2 years"},
        {-1, "1 second ago"},       {-90, "1 minute ago"},
        {-2 * day, "2 days ago"},   {-30 * day, "4 weeks ago"},
        {-31 * day, "1 month ago"}, {-364 * day, "11 months ago"},
        {-365 * day, "1 year ago"},
    };
    for (const auto& [seconds, words] : rows)
        EXPECT_EQ(locale.relative(now + seconds, now), words) << seconds;
}

TEST(SystemLocale, AMonthIsTheCalendars) {
    const SystemLocale locale(environmentOf({}));
    const auto january31 = Date::fromUnix(1'675'123'200);  // 2023-01-31 00:00
    constexpr double day = 86400;
    EXPECT_EQ(locale.relative(january31 + 27 * day, january31), "in 3 weeks");
    EXPECT_EQ(locale.relative(january31 + 28 * day, january31), "in 1 month");
}

TEST(SystemLocale, RelativeWordsSurviveAnyDate) {
    const SystemLocale locale(environmentOf({}));
    for (const double far : {1e12, 1e18, 1e300})
        for (const double sign : {1.0, -1.0})
            EXPECT_FALSE(locale.relative(Date{sign * far}, Date{0}).empty()) << sign * far;
}

/// With plain spaces: some releases of the library write thin ones before the half of the day.
std::string dateTimeIn(std::map<std::string, std::string> variables, Date date) {
    auto text = SystemLocale(environmentOf(std::move(variables))).dateTime(date);
    for (const std::string thin : {"\u202f", "\u00a0"})
        for (std::size_t at; (at = text.find(thin)) != std::string::npos;)
            text.replace(at, thin.size(), " ");
    return text;
}

TEST(SystemLocale, DatesAreWrittenAsTheUsersLocaleDoesInTheUsersZone) {
    const auto date = Date::fromUnix(1'700'000'000.9);  // 2023-11-14 22:13:20 UTC
    EXPECT_EQ(dateTimeIn({{"TZ", "UTC"}}, date), "Nov 14, 2023, 10:13 PM");
    EXPECT_EQ(dateTimeIn({{"TZ", "UTC"}, {"LANG", "C.UTF-8"}}, date), "Nov 14, 2023, 10:13 PM");
    EXPECT_EQ(dateTimeIn({{"TZ", "Europe/Berlin"}, {"LANG", "de_DE.UTF-8"}}, date),
              "14.11.2023, 23:13");
    EXPECT_EQ(dateTimeIn({{"TZ", ":Asia/Tokyo"}, {"LANG", "en_GB"}}, date), "15 Nov 2023, 07:13");
}

TEST(SystemLocale, DatesHaveAVariableOfTheirOwn) {
    const auto date = Date::fromUnix(1'700'000'000);
    const std::map<std::string, std::string> variables{
        {"TZ", "UTC"}, {"LC_TIME", "de_DE"}, {"LC_NUMERIC", "en_IN"}, {"LANG", "en_US"}};
    EXPECT_EQ(dateTimeIn(variables, date), "14.11.2023, 22:13");
    EXPECT_EQ(groupedIn(variables, 1234567), "12,34,567");
}

TEST(SystemLocale, AZoneThatNobodyKnowsIsTheSystems) {
    const auto date = Date::fromUnix(1'700'000'000);
    EXPECT_EQ(dateTimeIn({{"TZ", "No/Such"}}, date), dateTimeIn({}, date));
    EXPECT_EQ(dateTimeIn({{"TZ", ""}}, date), dateTimeIn({}, date));
}

TEST(SystemLocale, DatesSurviveAnyNumber) {
    const SystemLocale locale(environmentOf({}));
    for (const double far :
         {1e12, 1e18, 1e300, -1e12, -1e18, -1e300, std::numeric_limits<double>::infinity(),
          std::numeric_limits<double>::quiet_NaN()})
        EXPECT_FALSE(locale.dateTime(Date{far}).empty()) << far;
}

}  // namespace
}  // namespace brindlet
