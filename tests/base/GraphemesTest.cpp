#include "base/Graphemes.h"

#include <gtest/gtest.h>
#include <unicode/brkiter.h>
#include <unicode/uchar.h>
#include <unicode/unistr.h>

#include <memory>
#include <random>
#include <string>
#include <vector>

#include "base/Utf8.h"

namespace brindlet {
namespace {

TEST(GraphemeCount, CountsCharactersAsAPersonDoes) {
    struct Row {
        const char* text;
        std::size_t count;
    };
    const Row rows[] = {
        {"", 0},
        {"abc", 3},
        {"a\r\nb", 3},
        {"\r\r\n\n", 3},
        {"abcdefghijklmne\u0301", 15},
        {"e\u0301\u0302\u0303", 1},
        {"\u0301a", 2},
        {"👩‍👩‍👧‍👦", 1},
        {"👍🏽", 1},
        {"☀\ufe0f", 1},
        {"🇩🇪🇫🇷", 2},
        {"🇩🇪🇫", 2},
        {"a🇩🇪", 2},
        {"각각", 2},
        {"\u1100\u1161\u11a8", 1},
        {"\u0600\u0661", 1},
        {"\u0915\u093f", 1},
        {"<b>\u0301x", 4},
        {"&123456789\r\n;", 12},
        {">\u200d", 1},
        {";\u200c", 1},
        {"a\u200bb", 3},
    };
    for (const auto& [text, count] : rows) {
        EXPECT_EQ(graphemeCount(text), count) << text;
        EXPECT_TRUE(hasExactlyGraphemes(text, count)) << text;
        EXPECT_FALSE(hasExactlyGraphemes(text, count + 1)) << text;
        EXPECT_TRUE(hasFewerGraphemes(text, count + 1)) << text;
        EXPECT_FALSE(hasFewerGraphemes(text, count)) << text;
        if (count > 0) {
            EXPECT_FALSE(hasExactlyGraphemes(text, count - 1)) << text;
        }
    }
}

TEST(PlainLetter, IsNeverWhiteSpaceAndNeverJoinsItsOwnKind) {
    for (char32_t c = 0; c < 0x110000; ++c) {
        if (!isPlainLetter(c)) continue;
        const auto point = static_cast<UChar32>(c);
        const int kind = u_getIntPropertyValue(point, UCHAR_GRAPHEME_CLUSTER_BREAK);
        EXPECT_TRUE(kind == U_GCB_OTHER || kind == U_GCB_LV || kind == U_GCB_LVT) << point;
        EXPECT_FALSE(u_hasBinaryProperty(point, UCHAR_EXTENDED_PICTOGRAPHIC)) << point;
        EXPECT_FALSE(u_isUWhiteSpace(point)) << point;
        std::string text = "a";
        appendCodePoint(text, c);
        appendCodePoint(text, c);
        text += "a";
        EXPECT_EQ(graphemeCount(text), 4u) << point;
    }
}

TEST(GraphemePrefix, CutsBetweenCharacters) {
    EXPECT_EQ(graphemePrefix("e\u0301e\u0301e\u0301", 2), "e\u0301e\u0301");
    EXPECT_EQ(graphemePrefix("a\r\nb", 2), "a\r\n");
    EXPECT_EQ(graphemePrefix("ab", 5), "ab");
    EXPECT_EQ(graphemePrefix("ab", 0), "");
    EXPECT_EQ(graphemePrefix("", 3), "");
}

TEST(GraphemeLength, AgreesWithTheReferenceImplementationOnRandomTexts) {
    // One or two of each class that the rules of breaking know.
    const char32_t alphabet[] = {
        U'a',   U'é',   U'\r',  U'\n',   U'\0',   U' ',    0x0301,  0x0308,  0x200D,
        0x200D, 0x200C, 0x00AD, 0x0600,  0x06DD,  0x0903,  0x093F,  0x1100,  0x1161,
        0x11A8, 0xAC00, 0xAC01, 0x1F1E6, 0x1F1E7, 0x1F1E8, 0x1F468, 0x1F469, 0x1F3FD,
        0x2764, 0xFE0F, 0x00A9, 0x2028,  0xE0061, 0xE007F, 0x3042,  0x1F600, 0x0E33};
    UErrorCode status = U_ZERO_ERROR;
    const std::unique_ptr<icu::BreakIterator> oracle(
        icu::BreakIterator::createCharacterInstance(icu::Locale::getRoot(), status));
    ASSERT_TRUE(U_SUCCESS(status));
    std::mt19937 random(5);
    for (int round = 0; round < 20'000; ++round) {
        std::string text;
        for (auto left = random() % 12; left > 0; --left)
            appendCodePoint(text, alphabet[random() % std::size(alphabet)]);
        std::vector<std::string> ours, theirs;
        for (std::string_view rest = text; !rest.empty();) {
            const auto length = graphemeLength(rest);
            ours.emplace_back(rest.substr(0, length));
            rest.remove_prefix(length);
        }
        const auto wide = icu::UnicodeString::fromUTF8(text);
        oracle->setText(wide);
        for (auto start = oracle->first(), end = oracle->next(); end != icu::BreakIterator::DONE;
             start = end, end = oracle->next())
            wide.tempSubStringBetween(start, end).toUTF8String(theirs.emplace_back());
        ASSERT_EQ(ours, theirs) << testing::PrintToString(text);
    }
}

}  // namespace
}  // namespace brindlet
