#pragma once

#include <cstdint>
#include <string_view>

namespace brindlet {

/// FNV-1a in 64 bits: where a hash starts, and how it goes on with a text. Trained weights hang on
/// its values.
inline constexpr std::uint64_t hashStart = 0xcbf29ce484222325;

constexpr std::uint64_t hashed(std::uint64_t hash, std::string_view text) {
    for (const char c : text) hash = (hash ^ static_cast<unsigned char>(c)) * 0x100000001b3;
    return hash;
}

}  // namespace brindlet
