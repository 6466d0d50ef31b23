#include <simdjson.h>

#include <algorithm>
#include <cstring>
#include <limits>
#include <vector>

#include "base/Json.h"
#include "base/Utf8.h"

namespace brindlet {
namespace {

namespace ondemand = simdjson::ondemand;

constexpr std::size_t deepest = 512;

std::string_view trimmedEnd(std::string_view token) {
    return token.substr(0, token.find_last_not_of(" \t\n\r") + 1);
}

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

/// The first quote or backslash at or after `at`. The text is known to hold a closing quote, and
/// eight more bytes are readable after its end.
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

/// Unescapes the string whose first character is at `start`, in its own place: the text never gets
/// longer, and the parser does not come back to it.
std::optional<std::string_view> unescapeInPlace(char* start) {
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

}  // namespace

/// simdjson indexes the whole text first, which is where UTF-8, open strings and raw control
/// characters are found; what it then checks lazily, value by value, is forced here by walking over
/// everything. After its first error none of its iterators may be touched again: `failed` sees to
/// that.
struct JsonReader::State {
    struct Frame {
        bool isObject = false;
        bool entered = false;
        simdjson::ondemand::object_iterator members;
        simdjson::ondemand::array_iterator elements;
    };

    std::string text;
    std::size_t size = 0;
    ondemand::parser parser;
    ondemand::document document;
    ondemand::value value;
    std::vector<Frame> frames;
    /// Standing at a value that was not taken yet.
    bool pending = false;
    /// The top value is a number that was skipped, so the parser still stands before it.
    bool loneNumber = false;
    bool failed = false;

    bool atEnd() {
        if (loneNumber) {
            const auto all = trimmedEnd(std::string_view(text).substr(0, size));
            return token().data() + token().size() == all.data() + all.size();
        }
        // The parser is at its end when it can no longer say where it is.
        return document.current_location().error() == simdjson::OUT_OF_BOUNDS;
    }

    bool atRoot() const { return frames.empty(); }

    /// Marks the value as taken; false when there is none to take.
    bool take() {
        if (failed || !pending) {
            failed = true;
            return false;
        }
        pending = false;
        return true;
    }

    template <class T>
    bool require(simdjson::simdjson_result<T> result, T& out) {
        if (std::move(result).get(out) == simdjson::SUCCESS) return true;
        failed = true;
        return false;
    }

    /// The text of the scalar that the reader stands at.
    std::string_view token() {
        std::string_view raw;
        if (!atRoot()) return trimmedEnd(value.raw_json_token());
        if (document.raw_json_token().get(raw) != simdjson::SUCCESS) return {};
        return trimmedEnd(raw);
    }

    char first() {
        const auto scalar = token();
        return scalar.empty() ? '\0' : scalar.front();
    }

    std::string_view unescaped(simdjson::ondemand::raw_json_string raw) {
        const auto offset = raw.raw() - text.data();
        const auto result = unescapeInPlace(text.data() + offset);
        if (!result) failed = true;
        return result.value_or(std::string_view());
    }

    bool push(Frame frame) {
        if (frames.size() == deepest) {
            failed = true;
            return false;
        }
        frames.push_back(frame);
        return true;
    }
};

JsonReader::JsonReader(std::string text) : state_(std::make_unique<State>()) {
    auto& s = *state_;
    s.size = text.size();
    s.text = std::move(text);
    // The parser looks a little past the end, and must find nothing there that could be JSON.
    s.text.append(simdjson::SIMDJSON_PADDING, '\0');
    const simdjson::padded_string_view padded(s.text.data(), s.size, s.text.size());
    s.failed = s.parser.iterate(padded).get(s.document) != simdjson::SUCCESS;
    s.pending = true;
}

JsonReader::~JsonReader() = default;

bool JsonReader::ok() const {
    return !state_->failed;
}
void JsonReader::fail() {
    state_->failed = true;
}

bool JsonReader::takeNull() {
    auto& s = *state_;
    if (s.failed || !s.pending || s.first() != 'n') return false;
    // At the top the parser's own test lets a trailing character pass.
    bool isNull = s.token() == "null";
    if (isNull) isNull = s.atRoot() ? s.document.is_null() : s.value.is_null();
    s.pending = false;
    if (!isNull) s.failed = true;
    return isNull;
}

bool JsonReader::boolean() {
    auto& s = *state_;
    bool flag = false;
    if (!s.take()) return false;
    // At the top the parser looks at five characters and no further.
    const auto word = s.token();
    if (word != "true" && word != "false") s.failed = true;
    if (!s.failed) s.require(s.atRoot() ? s.document.get_bool() : s.value.get_bool(), flag);
    return flag && !s.failed;
}

std::int64_t JsonReader::integer() {
    auto& s = *state_;
    if (!s.take()) return 0;
    std::int64_t whole = 0;
    auto plain = s.atRoot() ? s.document.get_int64() : s.value.get_int64();
    if (std::move(plain).get(whole) == simdjson::SUCCESS) return whole;
    const auto decimal = parseDecimal(s.token());
    const auto exact = decimal ? wholeNumber(*decimal) : std::nullopt;
    double consumed = 0;
    if (!exact ||
        !s.require(s.atRoot() ? s.document.get_double() : s.value.get_double(), consumed)) {
        s.failed = true;
        return 0;
    }
    return *exact;
}

double JsonReader::number() {
    auto& s = *state_;
    double number = 0;
    if (!s.take()) return 0;
    s.require(s.atRoot() ? s.document.get_double() : s.value.get_double(), number);
    return s.failed ? 0 : number;
}

std::string_view JsonReader::stringView() {
    auto& s = *state_;
    simdjson::ondemand::raw_json_string raw;
    if (!s.take()) return {};
    if (!s.require(s.atRoot() ? s.document.get_raw_json_string() : s.value.get_raw_json_string(),
                   raw))
        return {};
    return s.unescaped(raw);
}

void JsonReader::skip() {
    auto& s = *state_;
    if (s.failed || !s.pending) return fail();
    switch (s.first()) {
        case '{':
            object([this](std::string_view) { skip(); });
            return;
        case '[':
            array([this] { skip(); });
            return;
        case '"':
            stringView();
            return;
        case 't':
        case 'f':
            boolean();
            return;
        case 'n':
            takeNull();
            return;
        default:
            // Left to the parser to step over: it would refuse a number that no double can hold,
            // which is no damage as long as nobody asks for it.
            if (!s.take()) return;
            if (!parseDecimal(s.token())) s.failed = true;
            s.loneNumber = s.atRoot();
    }
}

bool JsonReader::enterObject() {
    auto& s = *state_;
    ondemand::object object;
    State::Frame frame;
    frame.isObject = true;
    return s.take() &&
           s.require(s.atRoot() ? s.document.get_object() : s.value.get_object(), object) &&
           s.require(object.begin(), frame.members) && s.push(frame);
}

bool JsonReader::nextMember(std::string_view& key) {
    auto& s = *state_;
    if (!s.failed && s.pending) skip();
    if (s.failed) return false;
    auto& frame = s.frames.back();
    if (frame.entered) ++frame.members;
    frame.entered = true;
    if (!(frame.members != frame.members)) {
        s.frames.pop_back();
        return false;
    }
    ondemand::field field;
    if (!s.require(*frame.members, field)) return false;
    key = s.unescaped(field.key());
    s.value = field.value();
    s.pending = !s.failed;
    return !s.failed;
}

bool JsonReader::enterArray() {
    auto& s = *state_;
    ondemand::array array;
    State::Frame frame;
    return s.take() &&
           s.require(s.atRoot() ? s.document.get_array() : s.value.get_array(), array) &&
           s.require(array.begin(), frame.elements) && s.push(frame);
}

bool JsonReader::nextElement() {
    auto& s = *state_;
    if (!s.failed && s.pending) skip();
    if (s.failed) return false;
    auto& frame = s.frames.back();
    if (frame.entered) ++frame.elements;
    frame.entered = true;
    if (!(frame.elements != frame.elements)) {
        s.frames.pop_back();
        return false;
    }
    s.pending = s.require(*frame.elements, s.value);
    return s.pending;
}

bool JsonReader::finish() {
    auto& s = *state_;
    if (s.pending || !s.frames.empty() || (!s.failed && !s.atEnd())) s.failed = true;
    return !s.failed;
}

}  // namespace brindlet
