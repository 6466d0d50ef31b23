#include "sample/ModifiedUtf7.h"

#include <cstdint>

#include "base/Utf8.h"

namespace brindlet::sample {
namespace {

constexpr std::string_view digits =
    "ABCDEFGHIJKLMNOPQRSTUVWXYZabcdefghijklmnopqrstuvwxyz0123456789+,";

bool isPlain(char32_t c) {
    return c >= 0x20 && c <= 0x7E;
}

/// A run of other characters: UTF-16 in base 64.
class Shifted {
  public:
    void add(char32_t c) {
        if (c < 0x10000) return unit(static_cast<std::uint32_t>(c));
        unit(static_cast<std::uint32_t>(0xD800 + ((c - 0x10000) >> 10)));
        unit(static_cast<std::uint32_t>(0xDC00 + ((c - 0x10000) & 0x3FF)));
    }
    /// Ends the run, if there is one.
    void close(std::string& out) {
        if (bits_ > 0) text_ += digits[(value_ << (6 - bits_)) & 63];
        if (!text_.empty()) out += '&' + text_ + '-';
        *this = {};
    }

  private:
    void unit(std::uint32_t sixteen) {
        value_ = value_ << 16 | sixteen;
        for (bits_ += 16; bits_ >= 6; bits_ -= 6) text_ += digits[(value_ >> (bits_ - 6)) & 63];
    }

    std::string text_;
    std::uint64_t value_ = 0;
    int bits_ = 0;
};

/// False when the run is none that `Shifted` writes.
bool unshift(std::string_view run, std::string& out) {
    std::uint64_t value = 0;
    int bits = 0;
    char32_t high = 0;
    for (const char c : run) {
        const std::size_t digit = digits.find(c);
        if (digit == std::string_view::npos) return false;
        value = value << 6 | digit;
        bits += 6;
        if (bits < 16) continue;
        bits -= 16;
        const auto unit = static_cast<char32_t>((value >> bits) & 0xFFFF);
        const bool isLow = unit >= 0xDC00 && unit < 0xE000;
        if (isLow != (high != 0)) return false;
        if (isLow) {
            appendCodePoint(out, 0x10000 + ((high - 0xD800) << 10) + (unit - 0xDC00));
            high = 0;
        } else if (unit >= 0xD800 && unit < 0xDC00) {
            high = unit;
        } else if (isPlain(unit)) {
            return false;
        } else {
            appendCodePoint(out, unit);
        }
    }
    const std::uint64_t left = value & ((std::uint64_t{1} << bits) - 1);
    return high == 0 && bits < 6 && left == 0;
}

}  // namespace

std::string toModifiedUtf7(std::string_view name) {
    std::string written;
    Shifted shifted;
    const char* at = name.data();
    const char* const end = at + name.size();
    while (at != end) {
        const char32_t c = nextCodePoint(at, end);
        if (!isPlain(c)) {
            shifted.add(c);
            continue;
        }
        shifted.close(written);
        written += static_cast<char>(c);
        if (c == U'&') written += '-';
    }
    shifted.close(written);
    return written;
}

std::optional<std::string> fromModifiedUtf7(std::string_view written) {
    std::string name;
    for (std::size_t i = 0; i < written.size(); ++i) {
        const char c = written[i];
        if (!isPlain(static_cast<unsigned char>(c))) return std::nullopt;
        if (c != '&') {
            name += c;
            continue;
        }
        const std::size_t end = written.find('-', i);
        if (end == std::string_view::npos) return std::nullopt;
        const std::string_view run = written.substr(i + 1, end - i - 1);
        if (run.empty())
            name += '&';
        else if (!unshift(run, name))
            return std::nullopt;
        i = end;
    }
    return name;
}

}  // namespace brindlet::sample
