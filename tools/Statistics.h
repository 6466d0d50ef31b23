#pragma once

#include <cstdint>
#include <functional>
#include <vector>

namespace brindlet::tools {

/// Where a measured value may truly lie, at 95 %.
struct Interval {
    double low = 0;
    double high = 1;
};

/// So many of so many.
struct Share {
    std::int64_t part = 0;
    std::int64_t whole = 0;

    /// 0 of nothing is 0.
    double value() const;
    /// Wilson's score interval, which holds for small counts and shares near 0 or 1 too; from 0 to
    /// 1 for nothing.
    Interval interval() const;
};

/// Draws as many indices below `size` as there are, with repeats, a thousand times over, and gives
/// the middle 95 % of what `measure` makes of the draws. The same draws each time and on every
/// machine. `size` is at least 1.
Interval bootstrap(std::size_t size,
                   const std::function<double(const std::vector<std::size_t>&)>& measure);

}  // namespace brindlet::tools
