#include "base/Text.h"

#include <gtest/gtest.h>

#include <clocale>
#include <limits>

namespace brindlet {
namespace {

TEST(TrimBlanks, TakesTabsAndSpaceSeparatorsButNoLineEnds) {
    EXPECT_EQ(trimBlanks("\u00a0a\n"), "a\n");
    EXPECT_EQ(trimBlanks(" \t\u1680\u2000\u200a\u202f\u205f\u3000x y\u3000\t "), "x y");
    EXPECT_EQ(trimBlanks("\n x \r"), "\n x \r");
    EXPECT_EQ(trimBlanks("\u200bx\ufeff"), "\u200bx\ufeff");
    EXPECT_EQ(trimBlanks(" \u00a0\t"), "");
    EXPECT_EQ(trimBlanks(""), "");
}

TEST(TrimBlanksAndNewlines, TakesLineEndsOfEveryKindToo) {
    EXPECT_EQ(trimBlanksAndNewlines("\r\n\v\f\u0085\u2028\u2029 \tx\ny\u2029\n"), "x\ny");
    EXPECT_EQ(trimBlanksAndNewlines("\x1c"), "\x1c");
    EXPECT_EQ(trimBlanksAndNewlines("\u200b"), "\u200b");
    EXPECT_EQ(trimBlanksAndNewlines(" \n"), "");
}

TEST(TrimSpacesAndTabs, LeavesAllOtherWhiteSpace) {
    EXPECT_EQ(trimSpacesAndTabs("\t a b \t"), "a b");
    EXPECT_EQ(trimSpacesAndTabs("\u00a0 a \u3000"), "\u00a0 a \u3000");
    EXPECT_EQ(trimSpacesAndTabs(" a\n"), "a\n");
    EXPECT_EQ(trimSpacesAndTabs(" \t "), "");
    EXPECT_EQ(trimSpacesAndTabs(""), "");
}

TEST(NonEmptyPieces, AreWhatLiesBetweenSeparators) {
    using Pieces = std::vector<std::string_view>;
    EXPECT_EQ(nonEmptyPieces("a|b|c", '|'), (Pieces{"a", "b", "c"}));
    EXPECT_EQ(nonEmptyPieces("||a||b|", '|'), (Pieces{"a", "b"}));
    EXPECT_EQ(nonEmptyPieces(" | ", '|'), (Pieces{" ", " "}));
    EXPECT_EQ(nonEmptyPieces("a", '|'), (Pieces{"a"}));
    EXPECT_EQ(nonEmptyPieces("|", '|'), Pieces());
    EXPECT_EQ(nonEmptyPieces("", '|'), Pieces());
}

TEST(WithoutParts, LooksOnceFromLeftToRight) {
    EXPECT_EQ(withoutParts("a--b--c", "--"), "abc");
    EXPECT_EQ(withoutParts("-----", "--"), "-");
    EXPECT_EQ(withoutParts("eexx", "ex"), "ex");
    EXPECT_EQ(withoutParts("--", "--"), "");
    EXPECT_EQ(withoutParts("abc", "--"), "abc");
    EXPECT_EQ(withoutParts("", "--"), "");
}

TEST(WhiteSpace, IsUnicodesProperty) {
    for (const char32_t c :
         {U'\t', U'\n', U'\v', U'\f', U'\r', U' ', U'\u0085', U'\u00a0', U'\u1680', U'\u2000',
          U'\u200a', U'\u2028', U'\u2029', U'\u202f', U'\u205f', U'\u3000'})
        EXPECT_TRUE(isWhiteSpace(c)) << static_cast<unsigned>(c);
    for (const char32_t c : {U'a', U'\0', U'\x1c', U'\u180e', U'\u200b', U'\u2060', U'\ufeff'})
        EXPECT_FALSE(isWhiteSpace(c)) << static_cast<unsigned>(c);
}

TEST(ContainsBlank, LooksForBlanksAlone) {
    EXPECT_TRUE(containsBlank("a b"));
    EXPECT_TRUE(containsBlank("a\u00a0b"));
    EXPECT_TRUE(containsBlank("\t"));
    EXPECT_FALSE(containsBlank("a\nb"));
    EXPECT_FALSE(containsBlank(""));
}

TEST(ContainsDecimalDigit, CountsDigitsOfEveryScriptButNoOtherNumbers) {
    EXPECT_TRUE(containsDecimalDigit("a1"));
    EXPECT_TRUE(containsDecimalDigit("x٣"));
    EXPECT_TRUE(containsDecimalDigit("९"));
    EXPECT_FALSE(containsDecimalDigit("²½Ⅷ一"));
    EXPECT_FALSE(containsDecimalDigit(""));
}

TEST(IsNumber, CountsEveryNumericTypeAndNoLetters) {
    for (const char32_t c : {U'0', U'9', U'\u0663', U'\u00BD', U'\u00B2', U'\u2163', U'\u4E09'})
        EXPECT_TRUE(isNumber(c)) << static_cast<unsigned>(c);
    for (const char32_t c : {U'a', U' ', U'-', U'\u00E9', U'\u0301', U'\uFFFD'})
        EXPECT_FALSE(isNumber(c)) << static_cast<unsigned>(c);
}

TEST(ParseInt64, TakesOneSignAndAsciiDigitsAndNothingElse) {
    using Row = std::pair<const char*, std::optional<std::int64_t>>;
    const Row rows[] = {
        {"0", 0},
        {"5", 5},
        {"+5", 5},
        {"-0", 0},
        {"-3", -3},
        {"007", 7},
        {"9223372036854775807", std::numeric_limits<std::int64_t>::max()},
        {"-9223372036854775808", std::numeric_limits<std::int64_t>::min()},
        {"9223372036854775808", std::nullopt},
        {"-9223372036854775809", std::nullopt},
        {" 5", std::nullopt},
        {"5 ", std::nullopt},
        {"5\n", std::nullopt},
        {"1_0", std::nullopt},
        {"1,000", std::nullopt},
        {"0x1", std::nullopt},
        {"1e3", std::nullopt},
        {"1.0", std::nullopt},
        {"", std::nullopt},
        {"+", std::nullopt},
        {"-", std::nullopt},
        {"+-5", std::nullopt},
        {"-+5", std::nullopt},
        {"++5", std::nullopt},
        {"--5", std::nullopt},
        {"\u0665", std::nullopt},
    };
    for (const auto& [text, value] : rows) EXPECT_EQ(parseInt64(text), value) << text;
}

TEST(Lowercased, MapsAllOfUnicode) {
    EXPECT_EQ(lowercased("BIN"), "bin");
    EXPECT_EQ(lowercased("ÉTÉ"), "été");
    EXPECT_EQ(lowercased("JUN\u212A"), "junk");
    EXPECT_EQ(lowercased("ПРИВЕТ"), "привет");
    EXPECT_EQ(lowercased("\u0130"), "i\u0307");
    EXPECT_EQ(lowercased("already low 1!"), "already low 1!");
    EXPECT_EQ(lowercased(""), "");
}

TEST(Uppercased, IsFullUnicodeCasing) {
    EXPECT_EQ(uppercased("0a1b-été"), "0A1B-ÉTÉ");
    EXPECT_EQ(uppercased("ß"), "SS");
    EXPECT_EQ(uppercased("i"), "I");
    EXPECT_EQ(uppercased(""), "");
}

TEST(Lowercased, CaresForNoLocale) {
    const std::string before = std::setlocale(LC_ALL, nullptr);
    // Where the system lacks the Turkish locale, this pins the ordinary one.
    std::setlocale(LC_ALL, "tr_TR.UTF-8");
    EXPECT_EQ(lowercased("BIN"), "bin");
    EXPECT_EQ(lowercased("BİN I"), "bi\u0307n i");
    std::setlocale(LC_ALL, before.c_str());
}

TEST(CaseFolded, MakesEqualWhatDiffersInCaseAlone) {
    const std::pair<const char*, const char*> rows[] = {
        {"Sale 50%!", "SALE 50%!"},
        {"ÉTÉ", "été"},
        {"Straße", "STRASSE"},
        {"ΟΔΟΣ", "οδος"},
        {"ПРИВЕТ", "привет"},
        {"\ufb01n", "FIN"},
        // One letter, or a letter and its combining mark.
        {"caf\u00e9", "CAFE\u0301"},
        {"\u05e9\u05dc\u05d5\u05dd Sale", "\u05e9\u05dc\u05d5\u05dd sALE"},
    };
    for (const auto& [a, b] : rows) EXPECT_EQ(caseFolded(a), caseFolded(b)) << a << " " << b;
    EXPECT_NE(caseFolded("cafe"), caseFolded("café"));
    EXPECT_EQ(caseFolded(""), "");
}

TEST(CaseFolded, IsAddedToWhatStandsThere) {
    std::string out = "A";
    appendCaseFolded("BC", out);
    appendCaseFolded("É", out);
    EXPECT_EQ(out, "Abcé");
}

using Words = std::vector<std::string>;

TEST(LetterNumberWords, AreRunsOfLettersAndNumbersInTheUnicodeSense) {
    struct Row {
        const char* text;
        Words words;
    };
    const Row rows[] = {
        {"café ünïcode", {"café", "ünïcode"}},
        {"it’s ok", {"it", "s", "ok"}},
        {"it's ok", {"it's", "ok"}},
        {"'quoted'", {"'quoted'"}},
        {"e\u0301te\u0301", {"e\u0301te\u0301"}},
        {"a_b-c.d", {"a", "b", "c", "d"}},
        {"½ cup of 10² at 一二", {"½", "cup", "of", "10²", "at", "一二"}},
        {"Ⅷ ٣", {"Ⅷ", "٣"}},
        {"🎉party🎉", {"party"}},
        {"a\r\nb", {"a", "b"}},
        {"\u0301x", {"x"}},
        {"!?", {}},
        {"", {}},
    };
    for (const auto& [text, words] : rows)
        EXPECT_EQ(letterNumberWords(text, Apostrophe::joins), words) << text;
}

TEST(LetterNumberWords, MaySplitAtTheApostrophe) {
    EXPECT_EQ(letterNumberWords("Bob's 'n'", Apostrophe::splits), (Words{"Bob", "s", "n"}));
}

TEST(LetterNumberWords, AnApostropheWithAMarkOnItIsNoApostrophe) {
    EXPECT_EQ(letterNumberWords("a'\u0301b", Apostrophe::joins), (Words{"a", "b"}));
}

}  // namespace
}  // namespace brindlet
