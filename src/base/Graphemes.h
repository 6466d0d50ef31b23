#pragma once

#include <cstddef>
#include <string_view>

/// Characters as a person counts them: extended grapheme clusters (UAX #29, by ICU's tables). CR LF
/// is one character.
namespace brindlet {

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
