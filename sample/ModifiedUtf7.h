#pragma once

#include <optional>
#include <string>
#include <string_view>

/// How IMAP writes a mailbox's name in ASCII (RFC 3501, section 5.1.3).
namespace brindlet::sample {

/// "Côte & Co" gives "C&APQ-te &- Co". The name must be valid UTF-8.
std::string toModifiedUtf7(std::string_view name);
/// None for what no name is written as.
std::optional<std::string> fromModifiedUtf7(std::string_view written);

}  // namespace brindlet::sample
