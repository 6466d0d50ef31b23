#include "Statistics.h"

#include <algorithm>
#include <cmath>
#include <cstddef>
#include <random>

namespace brindlet::tools {

double Share::value() const {
    return whole == 0 ? 0 : static_cast<double>(part) / static_cast<double>(whole);
}

Interval Share::interval() const {
    if (whole == 0) return {};
    constexpr double z = 1.959963984540054;  // of the normal distribution, 95 % on both sides
    const auto n = static_cast<double>(whole);
    const double p = value();
    const double scale = 1 + z * z / n;
    const double middle = p + z * z / (2 * n);
    const double reach = z * std::sqrt(p * (1 - p) / n + z * z / (4 * n * n));
    return {std::max(0.0, (middle - reach) / scale), std::min(1.0, (middle + reach) / scale)};
}

Interval bootstrap(std::size_t size,
                   const std::function<double(const std::vector<std::size_t>&)>& measure) {
    constexpr std::size_t rounds = 1000;
    constexpr std::size_t tail = rounds / 40;
    std::mt19937 random(1);
    std::vector<std::size_t> drawn(size);
    std::vector<double> measured;
    while (measured.size() < rounds) {
        // Not a distribution: each library has its own.
        for (auto& index : drawn) index = random() % size;
        measured.push_back(measure(drawn));
    }
    std::sort(measured.begin(), measured.end());
    return {measured[tail], measured[rounds - 1 - tail]};
}

}  // namespace brindlet::tools
