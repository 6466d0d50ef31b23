#include "base/Text.h"

#include <unicode/bytestream.h>
#include <unicode/casemap.h>
#include <unicode/normalizer2.h>
#include <unicode/uchar.h>

#include <charconv>

#include "base/AsciiBlocks.h"
#include "base/Graphemes.h"
#include "base/Utf8.h"

namespace brindlet {
namespace {

/// False, and nothing added, when the text is not ASCII.
bool appendAsciiLowercased(std::string_view text, std::string& out) {
    const auto start = out.size();
    out.resize(start + text.size());
    if (ascii::lower(text, out.data() + start)) return true;
    out.resize(start);
    return false;
}

icu::StringPiece piece(std::string_view text) {
    return {text.data(), static_cast<int32_t>(text.size())};
}

template <class Test>
std::string_view trim(std::string_view text, Test test) {
    while (!text.empty()) {
        const char* at = text.data();
        if (!test(nextCodePoint(at, text.data() + text.size()))) break;
        text.remove_prefix(static_cast<std::size_t>(at - text.data()));
    }
    while (!text.empty()) {
        std::size_t start = text.size() - 1;
        while (start > 0 && (static_cast<unsigned char>(text[start]) & 0xC0) == 0x80) --start;
        const char* at = text.data() + start;
        if (!test(nextCodePoint(at, text.data() + text.size()))) break;
        text.remove_suffix(text.size() - start);
    }
    return text;
}

template <class Test>
bool containsAny(std::string_view text, Test test) {
    const char* at = text.data();
    const char* const end = at + text.size();
    while (at < end)
        if (test(nextCodePoint(at, end))) return true;
    return false;
}

}  // namespace

std::string lowercased(std::string_view text) {
    std::string out;
    if (appendAsciiLowercased(text, out)) return out;
    out.reserve(text.size());
    UErrorCode status = U_ZERO_ERROR;
    icu::StringByteSink<std::string> sink(&out);
    icu::CaseMap::utf8ToLower("", 0, piece(text), sink, nullptr, status);
    return U_SUCCESS(status) ? out : std::string(text);
}

std::string uppercased(std::string_view text) {
    std::string out;
    UErrorCode status = U_ZERO_ERROR;
    icu::StringByteSink<std::string> sink(&out);
    icu::CaseMap::utf8ToUpper("", 0, piece(text), sink, nullptr, status);
    return U_SUCCESS(status) ? out : std::string(text);
}

std::string caseFolded(std::string_view text) {
    std::string out;
    appendCaseFolded(text, out);
    return out;
}

void appendCaseFolded(std::string_view text, std::string& out) {
    if (appendAsciiLowercased(text, out)) return;
    UErrorCode status = U_ZERO_ERROR;
    std::string folded;
    icu::StringByteSink<std::string> sink(&folded);
    icu::CaseMap::utf8Fold(0, piece(text), sink, nullptr, status);
    const auto* composer = icu::Normalizer2::getNFCInstance(status);
    if (U_SUCCESS(status)) {
        icu::StringByteSink<std::string> end(&out);
        composer->normalizeUTF8(0, piece(folded), end, nullptr, status);
    }
    if (U_FAILURE(status)) out.append(text);
}

bool isBlank(char32_t c) {
    if (c < 0x80) return c == ' ' || c == '\t';
    return u_charType(static_cast<UChar32>(c)) == U_SPACE_SEPARATOR;
}

bool isBlankOrNewline(char32_t c) {
    return isBlank(c) || (c >= 0x0A && c <= 0x0D) || c == 0x85 || c == 0x2028 || c == 0x2029;
}

bool isWhiteSpace(char32_t c) {
    if (c < 0x80) return c == ' ' || (c >= 0x09 && c <= 0x0D);
    return c <= 0x3000 && u_isUWhiteSpace(static_cast<UChar32>(c));
}

bool isDecimalDigit(char32_t c) {
    if (c < 0x80) return c >= '0' && c <= '9';
    return u_charType(static_cast<UChar32>(c)) == U_DECIMAL_DIGIT_NUMBER;
}

bool isNumber(char32_t c) {
    return u_getIntPropertyValue(static_cast<UChar32>(c), UCHAR_NUMERIC_TYPE) != U_NT_NONE;
}

bool isLetterOrNumber(char32_t c) {
    if (c < 0x80) return (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z') || (c >= '0' && c <= '9');
    return u_hasBinaryProperty(static_cast<UChar32>(c), UCHAR_ALPHABETIC) || isNumber(c);
}

std::string_view trimBlanks(std::string_view text) {
    return trim(text, isBlank);
}
std::string_view trimBlanksAndNewlines(std::string_view text) {
    return trim(text, isBlankOrNewline);
}
std::string_view trimSpacesAndTabs(std::string_view text) {
    const auto first = text.find_first_not_of(" \t");
    if (first == std::string_view::npos) return {};
    return text.substr(first, text.find_last_not_of(" \t") - first + 1);
}
bool containsBlank(std::string_view text) {
    return containsAny(text, isBlank);
}
bool containsDecimalDigit(std::string_view text) {
    return containsAny(text, isDecimalDigit);
}

std::vector<std::string_view> nonEmptyPieces(std::string_view text, char separator) {
    std::vector<std::string_view> pieces;
    while (true) {
        const auto end = text.find(separator);
        if (end != 0 && !text.empty()) pieces.push_back(text.substr(0, end));
        if (end == std::string_view::npos) return pieces;
        text.remove_prefix(end + 1);
    }
}

std::string withoutParts(std::string_view text, std::string_view part) {
    std::string left;
    while (true) {
        const auto found = text.find(part);
        left += text.substr(0, found);
        if (found == std::string_view::npos) return left;
        text.remove_prefix(found + part.size());
    }
}

std::optional<std::int64_t> parseInt64(std::string_view text) {
    if (!text.empty() && text.front() == '+') {
        text.remove_prefix(1);
        if (!text.empty() && text.front() == '-') return std::nullopt;
    }
    std::int64_t value = 0;
    const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), value);
    if (text.empty() || error != std::errc{} || end != text.data() + text.size())
        return std::nullopt;
    return value;
}

std::vector<std::string> letterNumberWords(std::string_view text, Apostrophe apostrophe) {
    std::vector<std::string> words;
    std::string word;
    while (!text.empty()) {
        const auto length = graphemeLength(text);
        const char* at = text.data();
        const char32_t c = nextCodePoint(at, text.data() + text.size());
        if (isLetterOrNumber(c) || (c == '\'' && length == 1 && apostrophe == Apostrophe::joins)) {
            word.append(text.substr(0, length));
        } else if (!word.empty()) {
            words.push_back(std::move(word));
            word.clear();
        }
        text.remove_prefix(length);
    }
    if (!word.empty()) words.push_back(std::move(word));
    return words;
}

}  // namespace brindlet
