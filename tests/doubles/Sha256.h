#pragma once

#include <string>
#include <string_view>

namespace brindlet::doubles {

/// The SHA-256 of the bytes (FIPS 180-4) in lower-case hexadecimal digits, to pin a text that must
/// not change.
std::string sha256(std::string_view bytes);

}  // namespace brindlet::doubles
