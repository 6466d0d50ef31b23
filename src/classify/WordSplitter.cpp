#include "classify/WordSplitter.h"

#include <algorithm>

#include "base/AsciiBlocks.h"
#include "base/Graphemes.h"
#include "base/Text.h"
#include "base/Utf8.h"
#include "classify/Interner.h"

namespace brindlet {
namespace {

/// One bit for each of at most 64 bytes, set for letters, digits and the straight apostrophe. Reads
/// whole blocks of 8.
std::uint64_t wordBits(const char* lowered, std::size_t length) {
    std::uint64_t bits = 0;
    for (std::size_t i = 0; i < length; i += 8) {
        std::uint64_t block;
        std::memcpy(&block, lowered + i, 8);
        bits |= ascii::gathered(ascii::within(block, 'a', 'z') | ascii::within(block, '0', '9') |
                                ascii::within(block, '\'', '\''))
                << i;
    }
    return bits;
}

}  // namespace

const std::vector<std::string_view>& WordSplitter::split(std::string_view subject) {
    words_.clear();
    const auto room = subject.size() + Interner::padding;
    if (lowered_.size() < room) lowered_.resize(room);
    if (ascii::lower(subject, lowered_.data()))
        splitAscii(subject.size());
    else
        splitUnicode(subject);
    return words_;
}

void WordSplitter::splitAscii(std::size_t length) {
    bool inWord = false;
    std::size_t start = 0;
    const auto edge = [&](std::size_t at) {
        if (inWord) words_.emplace_back(lowered_.data() + start, at - start);
        start = at;
        inWord = !inWord;
    };
    for (std::size_t at = 0; at < length; at += 64) {
        const auto size = std::min<std::size_t>(length - at, 64);
        auto bits = wordBits(lowered_.data() + at, size);
        if (size < 64) bits &= (std::uint64_t{1} << size) - 1;
        // A bit that differs from the one before it begins or ends a word.
        auto edges = bits ^ (bits << 1 | std::uint64_t{inWord});
        for (; edges != 0; edges &= edges - 1)
            edge(at + static_cast<std::size_t>(std::countr_zero(edges)));
    }
    if (inWord) edge(length);
}

void WordSplitter::splitUnicode(std::string_view subject) {
    lowered_ = lowercased(subject);
    const auto length = lowered_.size();
    lowered_.append(Interner::padding, '\0');
    std::string_view rest(lowered_.data(), length);
    const char* start = rest.data();
    const auto endWord = [&] {
        if (rest.data() > start)
            words_.emplace_back(start, static_cast<std::size_t>(rest.data() - start));
    };
    while (!rest.empty()) {
        const auto cluster = graphemeLength(rest);
        const char* at = rest.data();
        const char32_t c = nextCodePoint(at, rest.data() + rest.size());
        const bool joins = isLetterOrNumber(c) || (c == '\'' && cluster == 1);
        if (!joins) endWord();
        rest.remove_prefix(cluster);
        if (!joins) start = rest.data();
    }
    endWord();
}

}  // namespace brindlet
