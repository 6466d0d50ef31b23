#include "sample/Quantiles.h"

#include <array>
#include <span>

namespace brindlet::sample {
namespace {

struct Point {
    std::int64_t share;
    std::int64_t value;
};

std::int64_t interpolated(std::span<const Point> points, std::int64_t share) {
    std::size_t upper = 1;
    while (upper + 1 < points.size() && points[upper].share < share) ++upper;
    const Point& from = points[upper - 1];
    const Point& to = points[upper];
    return from.value + (to.value - from.value) * (share - from.share) / (to.share - from.share);
}

// A lognormal curve with sigma 1.15.
constexpr std::array<Point, 25> sizes{{
    {0, 900},
    {500, 1'000},
    {2'000, 1'310},
    {5'000, 2'097},
    {10'000, 3'184},
    {15'000, 4'221},
    {20'000, 5'281},
    {30'000, 7'605},
    {40'000, 10'387},
    {50'000, 13'900},
    {60'000, 18'601},
    {70'000, 25'405},
    {80'000, 36'589},
    {85'000, 45'777},
    {90'000, 60'684},
    {93'000, 75'872},
    {95'000, 92'155},
    {96'000, 104'082},
    {97'000, 120'880},
    {98'000, 147'481},
    {99'000, 201'782},
    {99'500, 268'834},
    {99'800, 380'610},
    {99'900, 485'731},
    {100'000, 1'600'000},
}};

constexpr std::int64_t day = 86'400;
constexpr std::array<Point, 9> recentAges{{{0, 300},
                                           {30, day / 2},
                                           {100, 2 * day},
                                           {250, 8 * day},
                                           {450, 27 * day},
                                           {600, 75 * day},
                                           {800, 330 * day},
                                           {950, 1'000 * day},
                                           {1'000, 2'500 * day}}};
constexpr std::array<Point, 5> keptAges{
    {{0, 3 * day}, {100, 40 * day}, {300, 300 * day}, {700, 1'100 * day}, {1'000, 3'600 * day}}};

}  // namespace

std::int64_t messageSizeQuantile(std::int64_t hundredThousandth) {
    return interpolated(sizes, hundredThousandth);
}
std::int64_t recentAgeQuantile(std::int64_t permille) {
    return interpolated(recentAges, permille);
}
std::int64_t keptAgeQuantile(std::int64_t permille) {
    return interpolated(keptAges, permille);
}

}  // namespace brindlet::sample
