#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

/// Text operations on valid UTF-8, by Unicode's tables and never by the process's locale.
namespace brindlet {

/// Full Unicode lower-casing, the root locale's: "BIN" gives "bin" whatever the user's language.
std::string lowercased(std::string_view text);
/// For finding and comparing without regard to case: full Unicode case folding, composed, so that
/// what looks the same is the same.
std::string caseFolded(std::string_view text);
/// The same, added to the end of `out`.
void appendCaseFolded(std::string_view text, std::string& out);
/// The same to upper case: "ß" gives "SS".
std::string uppercased(std::string_view text);

/// A blank: TAB or any space separator (Zs). Line ends are none.
bool isBlank(char32_t c);
/// A blank, or one of LF VT FF CR NEL LS PS.
bool isBlankOrNewline(char32_t c);
/// Unicode's White_Space property.
bool isWhiteSpace(char32_t c);
/// A decimal digit (Nd) of any script.
bool isDecimalDigit(char32_t c);
/// Of any numeric type: a digit of any script, "½", "²", a CJK numeral.
bool isNumber(char32_t c);
/// Alphabetic, or of any numeric type ("½", "²", CJK numerals).
bool isLetterOrNumber(char32_t c);

std::string_view trimBlanks(std::string_view text);
std::string_view trimBlanksAndNewlines(std::string_view text);
/// Takes off U+0020 and U+0009 alone: other space separators stay.
std::string_view trimSpacesAndTabs(std::string_view text);
bool containsBlank(std::string_view text);
bool containsDecimalDigit(std::string_view text);

/// What lies between the separators, empty pieces left out.
std::vector<std::string_view> nonEmptyPieces(std::string_view text, char separator);
/// The text without any of these parts, looked for once from left to right.
std::string withoutParts(std::string_view text, std::string_view part);

/// One optional sign, then ASCII digits, and nothing else; none when it is anything else or does
/// not fit 64 bits.
std::optional<std::int64_t> parseInt64(std::string_view text);

/// The words of a text: maximal runs of letters, numbers and, with `Apostrophe::joins`, the
/// straight apostrophe. A character counts by its first code point, so a combining mark never ends
/// a word.
enum class Apostrophe { joins, splits };
std::vector<std::string> letterNumberWords(std::string_view text, Apostrophe apostrophe);

}  // namespace brindlet
