#pragma once

#include <functional>
#include <string>
#include <vector>

namespace brindlet::bench {

/// Milliseconds that the call took by the wall.
double wallMilliseconds(const std::function<void()>& work);
/// Milliseconds of processor time that it took of the whole process.
double cpuMilliseconds(const std::function<void()>& work);

double median(std::vector<double> values);

/// How limits are held. With BRINDLET_BENCH=quick in the environment, as among the tests, where
/// other work goes on beside: the best of five rounds, and only half as much again as the limit is
/// a failure. Otherwise: medians, and the limit itself.
struct Strictness {
    bool quick = false;
    double slack = 1;
};
Strictness strictness();

/// One path beside its floor: what is run, and the most and the aim that their ratio may reach.
struct Comparison {
    std::string name;
    std::function<void()> floor;
    std::function<void()> path;
    double most = 0;
    double aim = 0;
};

/// Runs all comparisons round by round, floor and path in turn, after one round that only warms up,
/// and prints a line each. False when a ratio is above its most, by `strictness`.
bool compare(const std::vector<Comparison>& comparisons, int rounds, const std::string& size);

}  // namespace brindlet::bench
