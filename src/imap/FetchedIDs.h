#pragma once

#include <cstdint>
#include <optional>
#include <string_view>

#include "imap/MessageIDs.h"

namespace brindlet {

/// Reads the answer to a fetch of Message-IDs, line by line:
///
///     * 1 FETCH (UID 17 BODY[HEADER.FIELDS (MESSAGE-ID)] {30}
///     Message-ID: <a@host.example>
///
///     )
///
/// The length in braces is passed over on purpose: a header is lines like all else here.
struct FetchedIDs {
    void add(std::string_view line);

    MessageIDs ids;
    /// The message whose header is still to come.
    std::optional<std::uint32_t> pending;
};

}  // namespace brindlet
