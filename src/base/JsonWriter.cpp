#include <algorithm>
#include <charconv>
#include <cmath>
#include <cstdint>
#include <cstring>

#include "base/Json.h"

namespace brindlet {
namespace {

constexpr std::size_t piece = 256 * 1024;

constexpr bool needsEscape(char c) {
    return static_cast<unsigned char>(c) < 0x20 || c == '"' || c == '\\' || c == '/';
}

/// True when one of the eight bytes needs an escape.
bool anyNeedsEscape(std::uint64_t word) {
    constexpr std::uint64_t ones = 0x0101010101010101u, tops = 0x8080808080808080u;
    const auto zeroByteIn = [](std::uint64_t bytes) { return (bytes - ones) & ~bytes; };
    const std::uint64_t below = (word - ones * 0x20) & ~word;
    return (below | zeroByteIn(word ^ ones * '"') | zeroByteIn(word ^ ones * '\\') |
            zeroByteIn(word ^ ones * '/')) &
           tops;
}

char* putEscaped(char* out, char c) {
    *out++ = '\\';
    switch (c) {
        case '"':
        case '\\':
        case '/':
            *out++ = c;
            return out;
        case '\b':
            *out++ = 'b';
            return out;
        case '\f':
            *out++ = 'f';
            return out;
        case '\n':
            *out++ = 'n';
            return out;
        case '\r':
            *out++ = 'r';
            return out;
        case '\t':
            *out++ = 't';
            return out;
        default: {
            constexpr char hex[] = "0123456789abcdef";
            for (const char digit : {'u', '0', '0', hex[c >> 4], hex[c & 15]}) *out++ = digit;
            return out;
        }
    }
}

/// The quoted text; `out` has room for six bytes a character and the quotes.
char* putString(char* out, std::string_view text) {
    *out++ = '"';
    const char* at = text.data();
    const char* const end = at + text.size();
    while (end - at >= 8) {
        std::uint64_t word;
        std::memcpy(&word, at, sizeof word);
        if (!anyNeedsEscape(word)) {
            std::memcpy(out, at, sizeof word);
            at += sizeof word;
            out += sizeof word;
            continue;
        }
        for (const char* const stop = at + sizeof word; at < stop; ++at)
            if (needsEscape(*at))
                out = putEscaped(out, *at);
            else
                *out++ = *at;
    }
    for (; at < end; ++at)
        if (needsEscape(*at))
            out = putEscaped(out, *at);
        else
            *out++ = *at;
    *out++ = '"';
    return out;
}

/// A number of whole microseconds, below 10^9 seconds, as nearly every date is: five times as fast
/// as the search for the shortest digits, and just as exact, for two decimals of at most 15 digits
/// never stand for one double. Null for any other number.
char* putMicroseconds(char* out, double number) {
    if (!(number > 0 && number < 1e9)) return nullptr;
    const auto micros = static_cast<std::uint64_t>(number * 1e6 + 0.5);
    if (static_cast<double>(micros) / 1e6 != number) return nullptr;
    out = std::to_chars(out, out + 10, micros / 1'000'000).ptr;
    auto fraction = static_cast<unsigned>(micros % 1'000'000);
    if (fraction == 0) return out;
    *out++ = '.';
    for (unsigned place = 100'000; fraction > 0; place /= 10) {
        *out++ = static_cast<char>('0' + fraction / place);
        fraction %= place;
    }
    return out;
}

}  // namespace

char* JsonWriter::reserve(std::size_t size) {
    if (buffer_.size() - used_ < size + 1) grow(size + 1);
    char* out = buffer_.data() + used_;
    if (comma_) *out++ = ',';
    comma_ = true;
    return out;
}

void JsonWriter::grow(std::size_t size) {
    if (file_) flush();
    if (buffer_.size() - used_ >= size) return;
    const auto least = file_ ? piece : std::max<std::size_t>(256, buffer_.size() * 2);
    buffer_.resize(std::max(used_ + size, least));
}

void JsonWriter::open(char bracket) {
    char* const out = reserve(1);
    *out = bracket;
    commit(out + 1);
    comma_ = false;
}

void JsonWriter::close(char bracket) {
    comma_ = false;
    char* const out = reserve(1);
    *out = bracket;
    commit(out + 1);
}

void JsonWriter::key(std::string_view key) {
    char* const end = putString(reserve(key.size() * 6 + 3), key);
    *end = ':';
    commit(end + 1);
    comma_ = false;
}

void JsonWriter::value(std::string_view text) {
    commit(putString(reserve(text.size() * 6 + 2), text));
}

void JsonWriter::value(bool flag) {
    literal(flag ? "true" : "false");
}
void JsonWriter::null() {
    literal("null");
}

void JsonWriter::literal(std::string_view text) {
    char* const out = reserve(text.size());
    std::memcpy(out, text.data(), text.size());
    commit(out + text.size());
}

void JsonWriter::value(std::int64_t number) {
    constexpr std::size_t longest = 20;
    char* const out = reserve(longest);
    commit(std::to_chars(out, out + longest, number).ptr);
}

void JsonWriter::value(double number) {
    if (!std::isfinite(number)) return null();
    constexpr std::size_t longest = 32;  // the shortest form of a double has at most 24 characters
    char* const out = reserve(longest);
    const char* const quick = putMicroseconds(out, number);
    commit(quick ? quick : std::to_chars(out, out + longest, number).ptr);
}

void JsonWriter::flush() {
    if (!file_ || used_ == 0) return;
    file_->append(std::string_view(buffer_).substr(0, used_));
    used_ = 0;
}

std::string JsonWriter::text() && {
    buffer_.resize(used_);
    used_ = 0;
    return std::move(buffer_);
}

}  // namespace brindlet
