#include "base/Utf8.h"

#include <cstdint>
#include <cstring>

namespace brindlet {
namespace {

std::size_t asciiRun(const char* data, std::size_t from, std::size_t size) {
    std::size_t i = from;
    for (; i + 8 <= size; i += 8) {
        std::uint64_t word;
        std::memcpy(&word, data + i, 8);
        if (word & 0x8080808080808080u) break;
    }
    while (i < size && static_cast<unsigned char>(data[i]) < 0x80) ++i;
    return i;
}

/// The length of the well-formed sequence at `i`, or 0 with `bad` set to the maximal subpart.
std::size_t sequenceLength(std::string_view bytes, std::size_t i, std::size_t& bad) {
    const auto byte = [&](std::size_t k) { return static_cast<unsigned char>(bytes[k]); };
    const unsigned char lead = byte(i);
    std::size_t need = 0;
    unsigned char low = 0x80, high = 0xBF;
    if (lead >= 0xC2 && lead <= 0xDF) {
        need = 1;
    } else if (lead >= 0xE0 && lead <= 0xEF) {
        need = 2;
        if (lead == 0xE0) low = 0xA0;
        if (lead == 0xED) high = 0x9F;
    } else if (lead >= 0xF0 && lead <= 0xF4) {
        need = 3;
        if (lead == 0xF0) low = 0x90;
        if (lead == 0xF4) high = 0x8F;
    } else {
        bad = 1;
        return 0;
    }
    for (std::size_t k = 1; k <= need; ++k) {
        if (i + k >= bytes.size() || byte(i + k) < low || byte(i + k) > high) {
            bad = k;
            return 0;
        }
        low = 0x80;
        high = 0xBF;
    }
    return need + 1;
}

}  // namespace

char32_t nextCodePoint(const char*& at, const char* end) {
    const auto byte = [&](int k) { return static_cast<unsigned char>(at[k]); };
    const unsigned char lead = byte(0);
    const auto left = end - at;
    char32_t codePoint = lead;
    if (lead < 0x80 || left < 2) {
        at += 1;
    } else if (lead < 0xE0 || left < 3) {
        codePoint = static_cast<char32_t>((lead & 0x1F) << 6 | (byte(1) & 0x3F));
        at += 2;
    } else if (lead < 0xF0 || left < 4) {
        codePoint =
            static_cast<char32_t>((lead & 0x0F) << 12 | (byte(1) & 0x3F) << 6 | (byte(2) & 0x3F));
        at += 3;
    } else {
        codePoint = static_cast<char32_t>((lead & 0x07) << 18 | (byte(1) & 0x3F) << 12 |
                                          (byte(2) & 0x3F) << 6 | (byte(3) & 0x3F));
        at += 4;
    }
    return codePoint;
}

char32_t nextRepairedCodePoint(const char*& at, const char* end) {
    if (static_cast<unsigned char>(*at) < 0x80) return static_cast<unsigned char>(*at++);
    std::size_t bad = 0;
    if (sequenceLength({at, static_cast<std::size_t>(end - at)}, 0, bad) > 0)
        return nextCodePoint(at, end);
    at += bad;
    return 0xFFFD;
}

char* putCodePoint(char* out, char32_t c) {
    const auto put = [&](char32_t byte) { *out++ = static_cast<char>(byte); };
    if (c < 0x80) {
        put(c);
    } else if (c < 0x800) {
        put(0xC0 | c >> 6);
        put(0x80 | (c & 0x3F));
    } else if (c < 0x10000) {
        put(0xE0 | c >> 12);
        put(0x80 | (c >> 6 & 0x3F));
        put(0x80 | (c & 0x3F));
    } else {
        put(0xF0 | c >> 18);
        put(0x80 | (c >> 12 & 0x3F));
        put(0x80 | (c >> 6 & 0x3F));
        put(0x80 | (c & 0x3F));
    }
    return out;
}

void appendCodePoint(std::string& out, char32_t codePoint) {
    char bytes[4];
    out.append(bytes, putCodePoint(bytes, codePoint));
}

IllFormed findIllFormedUtf8(std::string_view bytes, std::size_t from) {
    std::size_t i = from;
    while (true) {
        i = asciiRun(bytes.data(), i, bytes.size());
        if (i >= bytes.size()) return {bytes.size(), 0};
        std::size_t bad = 0;
        const auto length = sequenceLength(bytes, i, bad);
        if (length == 0) return {i, bad};
        i += length;
    }
}

bool isValidUtf8(std::string_view bytes) {
    return findIllFormedUtf8(bytes).length == 0;
}

std::string repairedUtf8(std::string_view bytes) {
    std::string out;
    out.reserve(bytes.size());
    std::size_t at = 0;
    while (true) {
        const auto bad = findIllFormedUtf8(bytes, at);
        out.append(bytes, at, bad.start - at);
        if (bad.length == 0) return out;
        out += "\xEF\xBF\xBD";
        at = bad.start + bad.length;
    }
}

}  // namespace brindlet
