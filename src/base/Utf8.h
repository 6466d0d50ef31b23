#pragma once

#include <string>
#include <string_view>

namespace brindlet {

/// One code point taken off the front of valid UTF-8; `at` moves past it. The caller guarantees
/// that the text is valid and `at` is before `end`.
char32_t nextCodePoint(const char*& at, const char* end);

/// The same from any bytes: an ill-formed part is taken whole and counts as U+FFFD, just as in what
/// `repairedUtf8` gives.
char32_t nextRepairedCodePoint(const char*& at, const char* end);

void appendCodePoint(std::string& out, char32_t codePoint);
/// Writes one to four bytes at `out` and returns the place after them.
char* putCodePoint(char* out, char32_t codePoint);

/// Well-formed UTF-8 (Unicode 15, table 3-7). NUL and U+FEFF are ordinary characters.
bool isValidUtf8(std::string_view bytes);

/// Replaces each maximal subpart of an ill-formed sequence by one U+FFFD (Unicode 15, section 3.9,
/// the practice that the WHATWG encoding standard prescribes). Never fails.
std::string repairedUtf8(std::string_view bytes);

/// Where the next ill-formed sequence of `bytes` starts at or after `from`, and how many bytes its
/// maximal subpart has. With none, `start` is the size and `length` 0.
struct IllFormed {
    std::size_t start = 0;
    std::size_t length = 0;
};
IllFormed findIllFormedUtf8(std::string_view bytes, std::size_t from = 0);

}  // namespace brindlet
