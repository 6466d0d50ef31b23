#pragma once

#include <bit>
#include <cstdint>
#include <cstring>
#include <string_view>

/// Eight ASCII bytes at a time in one integer, the first byte lowest.
namespace brindlet::ascii {

static_assert(std::endian::native == std::endian::little, "positions are counted from the low end");

constexpr std::uint64_t everyByte = 0x0101010101010101u;
constexpr std::uint64_t highBits = 0x80 * everyByte;

/// The high bit of each byte that lies within the bounds. Wrong from the first byte on that is not
/// ASCII.
constexpr std::uint64_t within(std::uint64_t block, std::uint64_t low, std::uint64_t high) {
    return (block + (0x80 - low) * everyByte) & ~(block + (0x7F - high) * everyByte) & highBits;
}

/// Gathers the high bits of the bytes in the lowest 8 bits.
constexpr std::uint64_t gathered(std::uint64_t marks) {
    return (marks >> 7) * 0x0102040810204080u >> 56;
}

constexpr std::uint64_t lowered(std::uint64_t block) {
    return block | within(block, 'A', 'Z') >> 2;
}

/// Writes the text in lower case to `out`, which has room for as many bytes. False when the text is
/// not ASCII; what was written then has no meaning.
inline bool lower(std::string_view text, char* out) {
    std::uint64_t seen = 0;
    const auto lowerBlock = [&](std::size_t at) {
        std::uint64_t block;
        std::memcpy(&block, text.data() + at, 8);
        seen |= block;
        block = lowered(block);
        std::memcpy(out + at, &block, 8);
    };
    if (text.size() < 8) {
        for (std::size_t i = 0; i < text.size(); ++i) {
            const auto byte = static_cast<unsigned char>(text[i]);
            seen |= byte;
            out[i] = static_cast<char>(lowered(byte));
        }
    } else {
        std::size_t i = 0;
        for (; i + 8 <= text.size(); i += 8) lowerBlock(i);
        if (i < text.size()) lowerBlock(text.size() - 8);
    }
    return (seen & highBits) == 0;
}

}  // namespace brindlet::ascii
