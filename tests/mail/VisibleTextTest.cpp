#include <gtest/gtest.h>

#include "base/Graphemes.h"
#include "mail/MailStore.h"

namespace brindlet {
namespace {

std::string visible(std::string_view raw, std::int64_t limit = 700) {
    return MailStore::visibleText(raw, limit);
}

std::string repeated(std::string_view piece, int times) {
    std::string text;
    for (int i = 0; i < times; ++i) text += piece;
    return text;
}

struct Row {
    const char* raw;
    const char* text;
};

void expectAll(std::initializer_list<Row> rows) {
    for (const Row& row : rows) EXPECT_EQ(visible(row.raw), row.text) << row.raw;
}

TEST(VisibleText, TagsAreWhiteSpace) {
    expectAll({
        {"<p>Hello <b>you</b></p>", "Hello you"},
        {"a<br>b", "a b"},
        {"a<br><br> <br>b", "a b"},
        {"a<>b", "a b"},
        {"a<b title=\"x>y\">c", "a y\">c"},
        {"a<!-- b > c -->d", "a c -->d"},
        {"a<b\n\n>c", "a c"},
        {"a > b", "a > b"},
        {"<span>a<s>b</s>", "a b"},
        {"<", ""},
        {">", ">"},
    });
}

TEST(VisibleText, AnUnfinishedTagSwallowsTheRest) {
    expectAll({{"ab <b cd", "ab"}, {"ab<", "ab"}, {"ab <b cd & ef; gh", "ab"}});
}

TEST(VisibleText, ScriptAndStyleGoWithTheirContent) {
    expectAll({
        {"<script>x</script>hello", "hello"},
        {"a<STYLE type='x'>p{} <b> ; &amp; </Style >b", "a b"},
        {"a<script>if (a<b) c>d</script>e", "a e"},
        {"a<script>x</style>y</script>b", "a b"},
        {"a<scripty>x</script>b", "a b"},
        {"a<styles>x</style>b", "a b"},
        {"a<sCrIpT/>x</ScRiPt\n>b", "a b"},
    });
}

TEST(VisibleText, WithoutACloserOnlyTheOpeningTagGoes) {
    expectAll({
        {"<style>p{}", "p{}"},
        {"<script>a</style>b", "a b"},
        {"<script>a</scrip>b", "a b"},
        {"</script>a", "a"},
        {"<stylea", ""},
    });
}

TEST(VisibleText, TheCloserEndsAtABracketWithin24Characters) {
    EXPECT_EQ(visible("<script>x</script" + std::string(23, '.') + ">a"), "a");
    EXPECT_EQ(visible("<script>x</script" + std::string(24, '.') + ">a"),
              std::string(24, '.') + ">a");
    EXPECT_EQ(visible("<script>x</script" + repeated("\r\n", 23) + ">a"), "a");
    EXPECT_EQ(visible("<script>x</script" + repeated("e\u0301", 23) + ">a"), "a");
    EXPECT_EQ(visible("<script>x</script" + repeated("e\u0301", 24) + ">"),
              repeated("e\u0301", 24) + ">");
    EXPECT_EQ(visible("<script>x</script"), "");
}

TEST(VisibleText, AnEntityBecomesABlankAndIsNeverDecoded) {
    expectAll({
        {"a&amp;b", "a b"},
        {"caf&eacute;s", "caf s"},
        {"AT&T rocks; yes", "AT yes"},
        {"a & b", "a & b"},
        {"a&;b", "a b"},
        {"&&;x", "x"},
        {"a&b<c;d", "a d"},
        {"a&\n;b", "a b"},
        {"&", "&"},
        {"a&nbsp;&nbsp; b", "a b"},
    });
}

TEST(VisibleText, AnEntityReaches12CharactersItsFirstIncluded) {
    EXPECT_EQ(visible("&1234567890;x"), "x");
    EXPECT_EQ(visible("&12345678901;x"), "&12345678901;x");
    // A carriage return with its line feed is one character.
    EXPECT_EQ(visible("&123456789\r\n;x"), "x");
    EXPECT_EQ(visible("&1234567890\r\n;x"), "&1234567890 ;x");
    EXPECT_EQ(visible("&" + repeated("e\u0301", 10) + ";x"), "x");
    EXPECT_EQ(visible("&" + repeated("e\u0301", 11) + ";x"), "&" + repeated("e\u0301", 11) + ";x");
}

TEST(VisibleText, WhiteSpaceOfAnyKindBecomesOneBlank) {
    expectAll({
        {" a \t\r\n\v\f b ", "a b"},
        {"a\u0085\u00A0\u1680\u2000\u200A\u2028\u2029\u202F\u205F\u3000b", "a b"},
        {"a\r\n\r\n\r\nb", "a b"},
        // Judged by its first code point, so a blank with something joined to it is still one.
        {"a \u0301b", "a b"},
        {"a \u200Cb", "a b"},
        // These two have no width and are no white space.
        {"a\u200Bb", "a\u200Bb"},
        {"\uFEFFa", "\uFEFFa"},
    });
    EXPECT_EQ(visible(std::string("a\0b", 3)), std::string("a\0b", 3));
    EXPECT_EQ(visible(" \n\t <p> &nbsp; "), "");
}

TEST(VisibleText, ASignWithSomethingJoinedToItIsAnotherCharacter) {
    expectAll({
        {"<b>\u0301x", ""},
        {"<b>\u0301>x", "x"},
        {"a<\u0301b>c", "a<\u0301b>c"},
        {"a<\u200Db>c", "a<\u200Db>c"},
        {"&a;\u0301b;c", "c"},
        {"&\u0301amp;", "&\u0301amp;"},
        // U+0600 takes what follows into its own character.
        {"<b\u0600>c", ""},
        {"\u0600<b>c", "\u0600<b>c"},
        {"&b\u0600;c", "&b\u0600;c"},
        {"<script>a</script\u0301>b</script>c", "c"},
        {"<style\u0301>a</style>b", "a b"},
        {"<s\u0301cript>a</script>b", "a b"},
        {"<script>a\u0600</script>b", "a\u0600</script>b"},
    });
}

TEST(VisibleText, TheLimitCountsCharactersAndBlanks) {
    EXPECT_EQ(visible("abcdef", 3), "abc");
    EXPECT_EQ(visible("e\u0301e\u0301e\u0301", 2), "e\u0301e\u0301");
    EXPECT_EQ(visible(std::string(900, 'w')), std::string(700, 'w'));
    // The blank was written and counted before it was trimmed.
    EXPECT_EQ(visible("ab cd", 3), "ab");
    EXPECT_EQ(visible("a b c", 3), "a b");
    EXPECT_EQ(visible("  a", 1), "a");
    EXPECT_EQ(visible("\u4E00\u4E8C\u4E09\u56DB", 3), "\u4E00\u4E8C\u4E09");
    EXPECT_EQ(visible("abc", INT64_MAX), "abc");
    for (const std::int64_t limit : {std::int64_t{0}, std::int64_t{-1}, INT64_MIN})
        EXPECT_EQ(visible("abc", limit), "");
    EXPECT_EQ(visible("", 5), "");
}

TEST(VisibleText, EndsAfter80000Steps) {
    EXPECT_EQ(visible(repeated("<>", 79'999) + "ab"), "a");
    EXPECT_EQ(visible(repeated("<>", 80'000) + "ab"), "");
    EXPECT_EQ(visible(repeated("&;", 79'999) + "ab"), "a");
    EXPECT_EQ(visible(std::string(79'999, '\n') + "ab"), "a");
    EXPECT_EQ(visible(std::string(80'000, '\n') + "ab"), "");
    EXPECT_EQ(visible(repeated("\r\n", 79'999) + "ab"), "a");
    EXPECT_EQ(visible(repeated("\u3000", 79'999) + "ab"), "a");
    EXPECT_EQ(visible(repeated("\u3000", 80'000) + "ab"), "");
    EXPECT_EQ(visible(std::string(90'000, 'x'), 100'000).size(), 80'000u);
}

TEST(VisibleText, OneCharacterMayBeAsLongAsTheText) {
    const std::string marks = "a" + repeated("\u0301", 60'000);
    EXPECT_EQ(visible(marks + "b", 1), marks);
    EXPECT_EQ(visible(marks + "b"), marks + "b");
    EXPECT_EQ(visible(repeated("&", 5) + marks + ";b"), "b");
    EXPECT_EQ(graphemeCount(visible(repeated(marks.substr(0, 2001), 50), 20)), 20u);
}

}  // namespace
}  // namespace brindlet
