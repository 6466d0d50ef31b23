#pragma once

#include <cstdint>
#include <optional>
#include <string_view>

/// Numbers and strings by JSON's grammar, where the reader needs them stricter or more exact than
/// its parser gives them.
namespace brindlet {

bool isJsonNumber(std::string_view token);

/// The number as an integer, by its decimal digits and through no double; none when the token is no
/// number, has a fraction or does not fit.
std::optional<std::int64_t> wholeJsonNumber(std::string_view token);

/// Unescapes the string whose first character is at `start`, in its own place, which is always long
/// enough. None for an escape that JSON does not know and for half a surrogate pair. The closing
/// quote must be there, and eight readable bytes after the text that holds it.
std::optional<std::string_view> unescapeJsonInPlace(char* start);

}  // namespace brindlet
