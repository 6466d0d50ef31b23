#include "Rounds.h"

#include <algorithm>
#include <chrono>
#include <cstdio>
#include <cstdlib>
#include <ctime>
#include <string_view>

namespace brindlet::bench {

double wallMilliseconds(const std::function<void()>& work) {
    const auto start = std::chrono::steady_clock::now();
    work();
    return std::chrono::duration<double, std::milli>(std::chrono::steady_clock::now() - start)
        .count();
}

double cpuMilliseconds(const std::function<void()>& work) {
    const std::clock_t start = std::clock();
    work();
    return 1000.0 * static_cast<double>(std::clock() - start) / CLOCKS_PER_SEC;
}

double median(std::vector<double> values) {
    const auto middle = values.begin() + static_cast<std::ptrdiff_t>(values.size() / 2);
    std::nth_element(values.begin(), middle, values.end());
    return *middle;
}

Strictness strictness() {
    const char* const mode = std::getenv("BRINDLET_BENCH");
    if (mode && std::string_view(mode) == "quick") return {true, 1.5};
    return {false, 1};
}

bool compare(const std::vector<Comparison>& comparisons, int rounds, const std::string& size) {
    const Strictness strict = strictness();
    if (strict.quick) rounds = 5;
    std::vector<std::vector<double>> floors(comparisons.size());
    std::vector<std::vector<double>> paths(comparisons.size());
    for (int round = 0; round <= rounds; ++round)
        for (std::size_t i = 0; i < comparisons.size(); ++i) {
            const double floor = wallMilliseconds(comparisons[i].floor);
            const double path = wallMilliseconds(comparisons[i].path);
            if (round == 0) continue;
            floors[i].push_back(floor);
            paths[i].push_back(path);
        }
    const auto typical = [&](const std::vector<double>& times) {
        return strict.quick ? *std::min_element(times.begin(), times.end()) : median(times);
    };
    bool good = true;
    for (std::size_t i = 0; i < comparisons.size(); ++i) {
        const double floor = typical(floors[i]);
        const double path = typical(paths[i]);
        const double ratio = path / floor;
        const Comparison& c = comparisons[i];
        const bool kept = ratio <= c.most * strict.slack;
        good = good && kept;
        std::printf(
            "%-28s %-10s %10.2f ms  floor %10.2f ms  ratio %5.2f  at most %.2f  aim %.2f%s\n",
            c.name.c_str(), size.c_str(), path, floor, ratio, c.most, c.aim,
            kept ? "" : "  TOO SLOW");
    }
    std::fflush(stdout);
    return good;
}

}  // namespace brindlet::bench
