#include "sample/MimeText.h"

#include <algorithm>
#include <cstdint>

#include "base/Utf8.h"

namespace brindlet::sample {
namespace {

constexpr std::string_view base64Digits =
    "ABCDEFGHIJKLMNOPQRSTUVWXYZabcdefghijklmnopqrstuvwxyz0123456789+/";
constexpr std::string_view hexDigits = "0123456789ABCDEF";
constexpr std::size_t lineLength = 76;

void appendBase64(std::string& out, std::string_view bytes) {
    for (std::size_t at = 0; at < bytes.size(); at += 3) {
        const std::string_view group = bytes.substr(at, 3);
        std::uint32_t bits = 0;
        for (std::size_t i = 0; i < 3; ++i)
            bits = bits << 8 | (i < group.size() ? static_cast<unsigned char>(group[i]) : 0u);
        for (std::size_t i = 0; i < 4; ++i)
            out += i <= group.size() ? base64Digits[bits >> (18 - 6 * i) & 63] : '=';
    }
}

void appendEscape(std::string& out, char c) {
    const auto byte = static_cast<unsigned char>(c);
    out += '=';
    out += hexDigits[byte >> 4];
    out += hexDigits[byte & 15];
}

/// The end of the longest run of whole characters from `at` with at most `limit` bytes.
std::size_t wholeCharacters(std::string_view text, std::size_t at, std::size_t limit) {
    std::size_t end = std::min(at + limit, text.size());
    while (end < text.size() && (static_cast<unsigned char>(text[end]) & 0xc0) == 0x80) --end;
    return end;
}

}  // namespace

std::string base64Lines(std::string_view bytes) {
    constexpr std::size_t bytesInLine = lineLength / 4 * 3;
    std::string out;
    out.reserve(bytes.size() / 3 * 4 + bytes.size() / 50 + 8);
    for (std::size_t at = 0; at < bytes.size(); at += bytesInLine) {
        appendBase64(out, bytes.substr(at, bytesInLine));
        out += '\n';
    }
    return out;
}

std::string quotedPrintable(std::string_view bytes) {
    std::string out;
    out.reserve(bytes.size() + bytes.size() / 10);
    std::size_t column = 0;
    for (std::size_t at = 0; at < bytes.size(); ++at) {
        const char c = bytes[at];
        if (c == '\n') {
            out += c;
            column = 0;
            continue;
        }
        const bool lastOfLine = at + 1 == bytes.size() || bytes[at + 1] == '\n';
        const auto byte = static_cast<unsigned char>(c);
        const bool plain =
            (byte > 32 && byte < 127 && c != '=') || ((c == ' ' || c == '\t') && !lastOfLine);
        const std::size_t width = plain ? 1 : 3;
        if (column + width > lineLength - 1) {
            out += "=\n";
            column = 0;
        }
        if (plain)
            out += c;
        else
            appendEscape(out, c);
        column += width;
    }
    return out;
}

std::optional<std::string> latin1(std::string_view text) {
    std::string out;
    out.reserve(text.size());
    const char* at = text.data();
    const char* const end = at + text.size();
    while (at < end) {
        const char32_t c = nextCodePoint(at, end);
        if (c > 255) return std::nullopt;
        out += static_cast<char>(static_cast<unsigned char>(c));
    }
    return out;
}

std::string headerText(std::string_view text) {
    if (isAscii(text)) return std::string(text);
    std::string out;
    std::size_t at = 0;
    while (at < text.size()) {
        const std::size_t end = wholeCharacters(text, at, 42);
        out += at > 0 ? "\n =?UTF-8?B?" : "=?UTF-8?B?";
        appendBase64(out, text.substr(at, end - at));
        out += "?=";
        at = end;
    }
    return out;
}

std::string wrapped(std::string_view text, std::string_view indent) {
    std::string out;
    out.reserve(text.size() + text.size() / 20);
    while (!text.empty()) {
        const std::size_t lineEnd = std::min(text.find('\n'), text.size());
        std::string_view line = text.substr(0, lineEnd);
        text.remove_prefix(std::min(lineEnd + 1, text.size()));
        const std::size_t width = lineLength - indent.size();
        while (line.size() > width) {
            std::size_t blank = line.rfind(' ', width);
            if (blank == std::string_view::npos || blank == 0) blank = line.find(' ', width);
            if (blank == std::string_view::npos) break;
            (out += indent).append(line.substr(0, blank)) += '\n';
            line.remove_prefix(blank + 1);
        }
        (out += indent).append(line) += '\n';
    }
    return out;
}

bool isAscii(std::string_view text) {
    return std::none_of(text.begin(), text.end(),
                        [](char c) { return static_cast<unsigned char>(c) > 127; });
}

}  // namespace brindlet::sample
