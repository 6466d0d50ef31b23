#pragma once

#include <optional>
#include <string>
#include <vector>

#include "platform/Locale.h"

namespace brindlet {

class AppState;

/// One number with its small label under it.
struct Stat {
    std::string value;
    std::string label;

    friend bool operator==(const Stat&, const Stat&) = default;
};

/// The words of a running scan.
struct ScanningWords {
    /// The part of the ring that is filled, 0 to 1, as it is; a sliver is the painter's.
    double share = 0;
    std::string percent;
    std::string count;
    std::string stage;
    /// Account and folder; empty when neither is known.
    std::string place;
    std::vector<Stat> stats;

    bool pausedOnBattery = false;
    std::string keepScanning = "Keep scanning on battery power";
    /// The switch's position; turning it on turns the schedule's `pauseOnBattery` off.
    bool keepsScanning = false;

    std::string stop = "Stop";

    friend bool operator==(const ScanningWords&, const ScanningWords&) = default;
};

/// Main thread. Looks at no single verdict.
ScanningWords scanningWords(const AppState& state);

/// The time left as a short number, cut and not rounded: "89s", "1 min", "1.5 hr". None when it is
/// unknown or not above a second.
std::optional<std::string> remainingWords(std::optional<double> seconds, const Locale& locale);

}  // namespace brindlet
