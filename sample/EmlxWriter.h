#pragma once

#include <cstdint>
#include <string>
#include <string_view>

namespace brindlet::sample {

/// What the property list behind a message says.
struct EmlxFlags {
    std::int64_t conversation = 0;
    /// Seconds since 1970.
    std::int64_t dateReceived = 0;
    std::int64_t remoteId = 0;
    bool read = false;
    bool flagged = false;
};

/// The mail program's one number for all of a message's marks.
std::int64_t flagBits(const EmlxFlags& flags);

/// Starts a message file in `out`: the count line, whose number `finishEmlx` puts in. The message
/// itself, with plain line feeds, is appended in between.
void beginEmlx(std::string& out);
/// Puts the count in and appends the property list.
void finishEmlx(std::string& out, const EmlxFlags& flags);

/// The message inside a file's bytes, by the count on its first line; empty when that is damaged.
std::string_view messageInEmlx(std::string_view file);

}  // namespace brindlet::sample
