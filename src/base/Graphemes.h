#pragma once

#include <cstddef>
#include <string_view>

/// Characters as a person counts them: extended grapheme clusters (UAX #29, by ICU's tables). CR LF
/// is one character.
namespace brindlet {

/// True for code points from the common blocks of letters, Han characters, Hangul syllables and
/// typographic punctuation that are neither white space nor joined to anything of their own kind or
/// to ASCII; false may mean unknown. Two such code points are two characters.
constexpr bool isPlainLetter(char32_t c) {
    return (c >= 0xC0 && c < 0x300) || (c >= 0x370 && c < 0x483) || (c >= 0x48A && c < 0x530) ||
           (c >= 0x2010 && c < 0x2028) || (c >= 0x3041 && c < 0x3097) ||
           (c >= 0x30A0 && c < 0x3100) || (c >= 0x4E00 && c < 0xA000) ||
           (c >= 0xAC00 && c < 0xD7A4) || (c >= 0xFF01 && c < 0xFF61);
}

/// The byte length of the first character; 0 for an empty text. Looks no further than that
/// character's end. The text must start at a character boundary. It may be ill-formed UTF-8: each
/// ill-formed part counts as the U+FFFD that would repair it.
std::size_t graphemeLength(std::string_view text);

std::size_t graphemeCount(std::string_view text);

/// True when the text has fewer than, or exactly, so many characters; stops counting early.
bool hasFewerGraphemes(std::string_view text, std::size_t than);
bool hasExactlyGraphemes(std::string_view text, std::size_t count);

/// The first `count` characters, or the whole text if it has no more.
std::string_view graphemePrefix(std::string_view text, std::size_t count);

}  // namespace brindlet
