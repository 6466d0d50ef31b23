#include "sample/ImapParser.h"

#include <gtest/gtest.h>

namespace brindlet::sample {
namespace {

using Text = std::optional<std::string>;

TEST(ImapParser, TextsAreAtomsOrQuotedOrLiterals) {
    const struct {
        std::string_view command;
        Text text;
        bool isAll = true;
    } rows[] = {
        {"abc", "abc"},
        {"robin@x.example", "robin@x.example"},
        {"abc def", "abc", false},
        {"abc)", "abc", false},
        {"a*", "a", false},
        {"\"\"", ""},
        {"\"two words\"", "two words"},
        {R"("a \"quoted\" back\\slash")", R"(a "quoted" back\slash)"},
        {"\"Côte\"", "Côte"},
        {"{3}\r\na\"b", "a\"b"},
        {"{3+}\nabc", "abc"},
        {"{0}\r\n", ""},
        // None of the three.
        {"", {}, true},
        {" abc", {}, false},
        {"(abc)", {}, false},
        {"Côte", "C", false},
        {"\"open", {}, false},
        {"\"odd \\n escape\"", {}, false},
        {"\"ends with \\", {}, false},
        {"\"two\r\nlines\"", {}, false},
        {"{4}\r\nabc", {}, false},
        {"{4}", {}, false},
        {"{x}\r\nabc", {}, false},
    };
    for (const auto& row : rows) {
        SCOPED_TRACE(row.command);
        ImapParser parser(row.command);
        EXPECT_EQ(parser.text(), row.text);
        EXPECT_EQ(parser.atEnd(), row.isAll);
    }
}

TEST(ImapParser, ALabelMayHaveABackslashBeforeIt) {
    EXPECT_EQ(ImapParser("\\Inbox").label(), "\\Inbox");
    EXPECT_EQ(ImapParser("\"\\\\Inbox\"").label(), "\\Inbox");
    EXPECT_EQ(ImapParser("Receipts").label(), "Receipts");
    EXPECT_EQ(ImapParser("\"Brindlet Junk\"").label(), "Brindlet Junk");
    ImapParser bare("\\ Inbox");
    EXPECT_EQ(bare.label(), Text());
    EXPECT_TRUE(bare.take("\\ "));
}

TEST(ImapParser, WhatIsExpectedIsTakenWhateverItsLetterCase) {
    ImapParser parser("fetch 1:*");
    EXPECT_FALSE(parser.take("FETCHED"));
    EXPECT_TRUE(parser.take("FETCH "));
    EXPECT_EQ(parser.wildcards(), "1:*");
    EXPECT_TRUE(parser.atEnd());
    EXPECT_FALSE(parser.take("x"));
}

}  // namespace
}  // namespace brindlet::sample
