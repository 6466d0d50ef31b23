#pragma once

#include <optional>
#include <string>
#include <string_view>

namespace brindlet {

/// All escapes decoded; "+" stays. None, so that the caller keeps the text as it is, when one "%"
/// is not followed by two hexadecimal digits or the bytes are not valid UTF-8.
std::optional<std::string> percentDecoded(std::string_view text);

/// The UTF-8 bytes of the text with all but ASCII letters, digits and the bytes of `allowed`
/// escaped, hexadecimal digits in upper case.
std::string percentEncoded(std::string_view text, std::string_view allowed);

}  // namespace brindlet
