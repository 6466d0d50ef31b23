#include "base/Graphemes.h"

#include <unicode/uchar.h>

#include "base/Utf8.h"

namespace brindlet {
namespace {

/// The tables are asked only where the answer is not plain from the block.
int breakClass(char32_t c) {
    const bool hangul = c >= 0xAC00 && c < 0xD7A4;  // whose syllables join their own jamo
    if (isPlainLetter(c) && !hangul) return U_GCB_OTHER;
    if (c >= 0x300 && c < 0x370) return U_GCB_EXTEND;
    return u_getIntPropertyValue(static_cast<UChar32>(c), UCHAR_GRAPHEME_CLUSTER_BREAK);
}

bool isPictographic(char32_t c) {
    return u_hasBinaryProperty(static_cast<UChar32>(c), UCHAR_EXTENDED_PICTOGRAPHIC);
}

bool breaksAlone(int cls) {
    return cls == U_GCB_CONTROL || cls == U_GCB_CR || cls == U_GCB_LF;
}

bool joinsHangul(int before, int after) {
    switch (before) {
        case U_GCB_L:
            return after == U_GCB_L || after == U_GCB_V || after == U_GCB_LV || after == U_GCB_LVT;
        case U_GCB_LV:
        case U_GCB_V:
            return after == U_GCB_V || after == U_GCB_T;
        case U_GCB_LVT:
        case U_GCB_T:
            return after == U_GCB_T;
        default:
            return false;
    }
}

}  // namespace

std::size_t graphemeLength(std::string_view text) {
    if (text.empty()) return 0;
    const auto byte = [&](std::size_t i) { return static_cast<unsigned char>(text[i]); };
    // An ASCII character before another one stands alone, but for CR LF.
    if (byte(0) < 0x80 && (text.size() == 1 || byte(1) < 0x80))
        return text.size() > 1 && text[0] == '\r' && text[1] == '\n' ? 2 : 1;

    const char* at = text.data();
    const char* const end = at + text.size();
    char32_t c = nextRepairedCodePoint(at, end);
    int before = breakClass(c);
    if (breaksAlone(before)) return static_cast<std::size_t>(at - text.data());
    // Two things reach back beyond one code point: an emoji sequence over its extenders (GB11), and
    // regional indicators, which pair up from the left (GB12).
    char32_t emoji = c;
    bool emojiJoined = false;
    bool regionalsPaired = false;
    while (at < end) {
        const char* const here = at;
        c = nextRepairedCodePoint(at, end);
        const int after = breakClass(c);
        if (after == U_GCB_EXTEND) {
            emojiJoined = false;
        } else if (after == U_GCB_ZWJ) {
            emojiJoined = isPictographic(emoji);
            emoji = c;
        } else {
            const bool regionals = before == U_GCB_REGIONAL_INDICATOR && after == before;
            const bool joins = after == U_GCB_SPACING_MARK ||
                               (!breaksAlone(after) &&
                                (before == U_GCB_PREPEND || joinsHangul(before, after) ||
                                 (regionals && !regionalsPaired) ||
                                 (emojiJoined && isPictographic(c))));
            if (!joins) return static_cast<std::size_t>(here - text.data());
            regionalsPaired = regionals;
            emoji = c;
            emojiJoined = false;
        }
        before = after;
    }
    return text.size();
}

std::size_t graphemeCount(std::string_view text) {
    std::size_t count = 0;
    for (; !text.empty(); ++count) text.remove_prefix(graphemeLength(text));
    return count;
}

bool hasFewerGraphemes(std::string_view text, std::size_t than) {
    return than > 0 && graphemePrefix(text, than - 1).size() == text.size();
}

bool hasExactlyGraphemes(std::string_view text, std::size_t count) {
    const auto prefix = graphemePrefix(text, count);
    return prefix.size() == text.size() && !(count > 0 && hasFewerGraphemes(text, count));
}

std::string_view graphemePrefix(std::string_view text, std::size_t count) {
    std::size_t length = 0;
    for (; count > 0 && length < text.size(); --count)
        length += graphemeLength(text.substr(length));
    return text.substr(0, length);
}

}  // namespace brindlet
