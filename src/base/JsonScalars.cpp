#include "base/JsonScalars.h"

#include <algorithm>
#include <cstring>
#include <limits>
#include <string>

#include "base/Utf8.h"

namespace brindlet {
namespace {

bool isDigit(char c) {
    return c >= '0' && c <= '9';
}

/// A number as its sign, its digits without the point, and the power of ten they are taken by.
struct Decimal {
    bool negative = false;
    std::string digits;
    std::int64_t exponent = 0;
};

/// By JSON's grammar; none for anything else. An exponent beyond any double is held at its limit.
std::optional<Decimal> parseDecimal(std::string_view token) {
    Decimal decimal;
    const auto at = [&](std::size_t i) { return i < token.size() ? token[i] : '\0'; };
    std::size_t i = 0;
    if (at(0) == '-') {
        decimal.negative = true;
        ++i;
    }
    if (!isDigit(at(i)) || (at(i) == '0' && isDigit(at(i + 1)))) return std::nullopt;
    for (; isDigit(at(i)); ++i) decimal.digits += at(i);
    if (at(i) == '.') {
        if (!isDigit(at(++i))) return std::nullopt;
        for (; isDigit(at(i)); ++i) {
            decimal.digits += at(i);
            --decimal.exponent;
        }
    }
    if (at(i) == 'e' || at(i) == 'E') {
        ++i;
        const bool down = at(i) == '-';
        if (at(i) == '-' || at(i) == '+') ++i;
        if (!isDigit(at(i))) return std::nullopt;
        constexpr std::int64_t limit = 1'000'000'000;
        std::int64_t power = 0;
        for (; isDigit(at(i)); ++i)
            if (power < limit) power = power * 10 + (at(i) - '0');
        decimal.exponent += down ? -power : power;
    }
    if (i != token.size()) return std::nullopt;
    return decimal;
}

/// The value as an integer; none when it has a fraction or does not fit.
std::optional<std::int64_t> wholeNumber(Decimal decimal) {
    auto& digits = decimal.digits;
    digits.erase(0, std::min(digits.find_first_not_of('0'), digits.size()));
    if (digits.empty()) return 0;
    for (; decimal.exponent < 0; ++decimal.exponent) {
        if (digits.empty() || digits.back() != '0') return std::nullopt;
        digits.pop_back();
    }
    constexpr std::size_t mostDigits = 19;
    if (digits.size() + static_cast<std::size_t>(decimal.exponent) > mostDigits)
        return std::nullopt;
    digits.append(static_cast<std::size_t>(decimal.exponent), '0');
    std::uint64_t magnitude = 0;
    for (const char digit : digits) magnitude = magnitude * 10 + static_cast<unsigned>(digit - '0');
    constexpr auto most = static_cast<std::uint64_t>(std::numeric_limits<std::int64_t>::max());
    if (magnitude > most + (decimal.negative ? 1 : 0)) return std::nullopt;
    return static_cast<std::int64_t>(decimal.negative ? ~magnitude + 1 : magnitude);
}

/// The first quote or backslash at or after `at`.
char* quoteOrBackslash(char* at) {
    const auto zeroByteIn = [](std::uint64_t word) {
        return (word - 0x0101010101010101u) & ~word & 0x8080808080808080u;
    };
    while (true) {
        std::uint64_t word;
        std::memcpy(&word, at, sizeof word);
        if (zeroByteIn(word ^ 0x2222222222222222u) | zeroByteIn(word ^ 0x5C5C5C5C5C5C5C5Cu)) break;
        at += sizeof word;
    }
    while (*at != '"' && *at != '\\') ++at;
    return at;
}

/// Four hexadecimal digits; -1 for anything else.
int hex4(const char* at) {
    int code = 0;
    for (int i = 0; i < 4; ++i) {
        const char c = at[i];
        int digit = 0;
        if (isDigit(c))
            digit = c - '0';
        else if (c >= 'a' && c <= 'f')
            digit = c - 'a' + 10;
        else if (c >= 'A' && c <= 'F')
            digit = c - 'A' + 10;
        else
            return -1;
        code = code * 16 + digit;
    }
    return code;
}

/// The code point of the escape whose "u" is at `at`, which moves past it; none for half a
/// surrogate pair and for what is no number.
std::optional<char32_t> unicodeEscape(const char*& at) {
    const int first = hex4(at + 1);
    if (first < 0) return std::nullopt;
    at += 5;
    if (first < 0xD800 || first > 0xDFFF) return static_cast<char32_t>(first);
    if (first > 0xDBFF || at[0] != '\\' || at[1] != 'u') return std::nullopt;
    const int second = hex4(at + 2);
    if (second < 0xDC00 || second > 0xDFFF) return std::nullopt;
    at += 6;
    return static_cast<char32_t>(0x10000 + ((first - 0xD800) << 10) + (second - 0xDC00));
}

}  // namespace

bool isJsonNumber(std::string_view token) {
    return parseDecimal(token).has_value();
}

std::optional<std::int64_t> wholeJsonNumber(std::string_view token) {
    auto decimal = parseDecimal(token);
    return decimal ? wholeNumber(std::move(*decimal)) : std::nullopt;
}

std::optional<std::string_view> unescapeJsonInPlace(char* start) {
    char* to = quoteOrBackslash(start);
    const char* from = to;
    while (*from != '"') {
        ++from;
        switch (*from) {
            case '"':
            case '\\':
            case '/':
                *to++ = *from++;
                break;
            case 'b':
                *to++ = '\b';
                ++from;
                break;
            case 'f':
                *to++ = '\f';
                ++from;
                break;
            case 'n':
                *to++ = '\n';
                ++from;
                break;
            case 'r':
                *to++ = '\r';
                ++from;
                break;
            case 't':
                *to++ = '\t';
                ++from;
                break;
            case 'u': {
                const auto codePoint = unicodeEscape(from);
                if (!codePoint) return std::nullopt;
                to = putCodePoint(to, *codePoint);
                break;
            }
            default:
                return std::nullopt;
        }
        while (*from != '"' && *from != '\\') *to++ = *from++;
    }
    return std::string_view(start, static_cast<std::size_t>(to - start));
}

}  // namespace brindlet
