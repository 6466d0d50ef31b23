#pragma once

#include <cstdint>
#include <optional>
#include <set>
#include <string>
#include <string_view>

/// What the menu script says of itself, and what it is told, taken apart.
namespace brindlet {

/// The file of wanted messages: each Message-ID in a line of its own, in ascending order, with line
/// breaks at both ends too, as the script looks for an id between two of them.
std::string menuList(const std::set<std::string>& messageIDs);

/// The line on standard output, behind the number of messages that were selected.
struct MenuResult {
    /// How many of them have left the source.
    std::int64_t gone = 0;
    /// The Message-IDs of those, or the reason why there are none; part of the text that was read.
    std::string_view rest;
};

/// None when it is no result. The rest may hold any text.
std::optional<MenuResult> parseMenuResult(std::string_view output);

std::set<std::string> parseGoneIDs(std::string_view rest);

}  // namespace brindlet
