#pragma once

#include <cstdint>
#include <optional>
#include <set>
#include <string>
#include <string_view>

#include "mover/Mover.h"

/// What the bulk script says of itself, taken apart.
namespace brindlet {

/// The record in the progress file.
struct BulkProgress {
    Mover::Phase phase = Mover::Phase::scan;
    std::int64_t done = 0;
    std::int64_t total = 0;

    friend bool operator==(const BulkProgress&, const BulkProgress&) = default;
};

/// None for anything but one whole record, which a file that is being written may well hold.
std::optional<BulkProgress> parseBulkProgress(std::string_view record);

/// The line on standard output.
struct BulkResult {
    std::int64_t moved = 0;
    /// How many messages the destination holds afterwards; -1 when nobody could say.
    std::int64_t count = -1;
    /// The destination was made in this run.
    bool madeIt = false;
    /// The first message that was moved stayed in the source all the same.
    bool stuck = false;

    friend bool operator==(const BulkResult&, const BulkResult&) = default;
};

/// None when the script did not come to its result. What stands behind `moved` may be missing as a
/// whole.
std::optional<BulkResult> parseBulkResult(std::string_view output);

/// The Message-IDs in the done file.
std::set<std::string> parseDoneIDs(std::string_view text);

}  // namespace brindlet
