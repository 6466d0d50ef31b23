#pragma once

#include <cstdint>
#include <string>

namespace brindlet {

/// How many of a category's or a sender's messages are ticked, and how many can be: one without an
/// id cannot.
struct TickCount {
    std::int64_t ticked = 0;
    std::int64_t tickable = 0;

    /// What a click does: it ticks until all are ticked, then it unticks.
    bool wouldTick() const { return ticked < tickable; }
    bool some() const { return ticked > 0 && wouldTick(); }
};

/// The image of the box; dashed when there is nothing to tick.
std::string tickSymbol(const TickCount& count);

}  // namespace brindlet
