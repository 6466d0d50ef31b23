#include "sample/MimeText.h"

#include <gtest/gtest.h>

namespace brindlet::sample {
namespace {

TEST(MimeText, Base64GivesThePublishedExamples) {
    const std::pair<std::string_view, std::string_view> rows[] = {
        {"f", "Zg==\n"},        {"fo", "Zm8=\n"},        {"foo", "Zm9v\n"},
        {"foob", "Zm9vYg==\n"}, {"fooba", "Zm9vYmE=\n"}, {"foobar", "Zm9vYmFy\n"},
        {"\xff\xfe", "//4=\n"},
    };
    for (const auto& [bytes, lines] : rows) EXPECT_EQ(base64Lines(bytes), lines) << bytes;
    EXPECT_EQ(base64Lines(""), "");
    EXPECT_EQ(base64Lines(std::string(58, 'a')).find('\n'), 76u);
}

TEST(MimeText, QuotedPrintableEscapesWhatIsNotPlain) {
    EXPECT_EQ(quotedPrintable("a=b"), "a=3Db");
    EXPECT_EQ(quotedPrintable("é"), "=C3=A9");
    EXPECT_EQ(quotedPrintable("end \nnext"), "end=20\nnext");
    EXPECT_EQ(quotedPrintable("in between"), "in between");
}

TEST(MimeText, QuotedPrintableLinesStayShort) {
    const std::string text = quotedPrintable(std::string(200, 'x') + std::string(50, '='));
    std::size_t from = 0;
    std::size_t lines = 0;
    for (std::size_t end = 0; end != std::string::npos; from = end + 1, ++lines) {
        end = text.find('\n', from);
        EXPECT_LE(std::min(end, text.size()) - from, 76u);
    }
    EXPECT_EQ(lines, 5u);
}

TEST(MimeText, Latin1TakesOnlyWhatItHolds) {
    EXPECT_EQ(latin1("aé"), "a\xe9");
    EXPECT_EQ(latin1("€"), std::nullopt);
}

TEST(MimeText, HeaderTextIsEncodedOnlyWhereItMustBe) {
    EXPECT_EQ(headerText("plain"), "plain");
    EXPECT_EQ(headerText("é"), "=?UTF-8?B?w6k=?=");
    // No character is split between two words.
    const std::string words = headerText(std::string(41, 'a') + "éb");
    EXPECT_NE(words.find("?=\n =?UTF-8?B?w6li?="), std::string::npos) << words;
}

TEST(MimeText, WrappedBreaksAtBlanksAndKeepsParagraphs) {
    const std::string line(40, 'x');
    EXPECT_EQ(wrapped(line + ' ' + line, ""), line + '\n' + line + '\n');
    EXPECT_EQ(wrapped("a\n\nb", "> "), "> a\n> \n> b\n");
    const std::string unbroken(100, 'y');
    EXPECT_EQ(wrapped(unbroken, ""), unbroken + '\n');
}

}  // namespace
}  // namespace brindlet::sample
