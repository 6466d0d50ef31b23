#pragma once

#include <cstdint>
#include <optional>
#include <set>
#include <string>

namespace brindlet {

/// What a move came to. It may have moved some and failed with the rest.
struct MoveOutcome {
    /// How many messages the script says it moved.
    std::int64_t moved = 0;
    /// Message-IDs that are known to have left the source.
    std::set<std::string> landed;
    /// A finished sentence for the person.
    std::optional<std::string> error;

    friend bool operator==(const MoveOutcome&, const MoveOutcome&) = default;
};

}  // namespace brindlet
