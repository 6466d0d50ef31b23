#pragma once

#include <cstdint>
#include <string>

#include "platform/Locale.h"

/// The words of a scan's stages.
namespace brindlet::stages {

inline constexpr const char* readingMailbox = "Reading your mailbox";
inline constexpr const char* locating = "Locating messages on disk";
inline constexpr const char* sorting = "Sorting with the on-device model";
inline constexpr const char* pausedOnBattery =
    "Paused - on battery. Plug in to continue, or allow battery scanning below.";

inline std::string reading(std::int64_t handled, std::int64_t rows, const Locale& locale) {
    return "Reading messages - " + locale.grouped(handled) + " of " + locale.grouped(rows);
}

inline std::string willSort(std::int64_t kept, std::int64_t skipped, const Locale& locale) {
    if (skipped < 1) return sorting;
    return "Sorting " + locale.grouped(kept) + " new - skipped " + locale.grouped(skipped) +
           " already sorted";
}

inline std::string unreadable(std::int64_t readable, std::int64_t total, const Locale& locale) {
    return "Brindlet could only read " + locale.grouped(readable) + " of " + locale.grouped(total) +
           " messages on disk, so this scan was stopped before it wasted your time. This normally "
           "means Full Disk Access was lost - quit Brindlet and open it again.";
}

}  // namespace brindlet::stages
