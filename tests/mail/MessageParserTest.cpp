#include <gtest/gtest.h>

#include "mail/MailStore.h"

namespace brindlet {
namespace {

MailStore::Parsed parse(std::string_view bytes) {
    return MailStore::parseMessage(bytes, 700);
}

std::string messageID(std::string_view header) {
    return parse("1\n" + std::string(header) + "\n\n").messageID.value_or("(none)");
}

TEST(MessageParser, TakesIdAndBody) {
    EXPECT_EQ(parse("497       \nFrom: a@b\nMessage-ID: <x@y>\nTo: c@d\n\nHello <b>you</b>\n"),
              (MailStore::Parsed{"Hello you", "x@y"}));
}

TEST(MessageParser, TheTrailingPropertyListIsTextLikeAnyOther) {
    EXPECT_EQ(
        parse("1\nA: b\n\nHi\n<?xml version=\"1.0\"?><plist><integer>7</integer></plist>").body,
        "Hi 7");
}

TEST(MessageParser, WithoutAGapAllIsHeaderAndThereIsNoBody) {
    EXPECT_EQ(parse("1\nMessage-ID: <x@y>\nhello"), (MailStore::Parsed{"", "x@y"}));
    EXPECT_EQ(parse("1\nA: b\n \nhello").body, "") << "a blank between the line ends";
}

TEST(MessageParser, EmptyAndShortInputs) {
    for (const char* bytes : {"", "\n", "1", "1\n", "\r\n", "\n\n", "1\n\n", "\r", "Message-ID:"})
        EXPECT_EQ(parse(bytes), MailStore::Parsed()) << bytes;
}

TEST(MessageParser, ALineFeedOfTheCountLineDoesNotOpenAGap) {
    EXPECT_EQ(parse("9\n\nHello"), MailStore::Parsed());
}

TEST(MessageParserCountLine, AFileWithoutOneLosesItsFirstHeaderLine) {
    EXPECT_EQ(parse("Message-ID: <x@y>\nA: b\n\nHi"), (MailStore::Parsed{"Hi", std::nullopt}));
}

TEST(MessageParserCountLine, StaysInAFileWhoseLinesAllEndInCarriageReturnLineFeed) {
    EXPECT_EQ(parse("9\r\nMessage-ID: <x@y>\r\n\r\nHi\r\n"), (MailStore::Parsed{"Hi", "x@y"}));
}

TEST(MessageParserCountLine, ALoneLineFeedInTheBodyTakesTheHeaderWithIt) {
    EXPECT_EQ(parse("9\r\nMessage-ID: <x@y>\r\n\r\nHi\nyou"), MailStore::Parsed());
}

TEST(MessageParserGap, WithCarriageReturnsWinsWhereverItStands) {
    EXPECT_EQ(parse("1\nA: b\n\nMessage-ID: <deep@y>\n\r\n\r\nrest"),
              (MailStore::Parsed{"rest", "deep@y"}));
}

TEST(MessageParserGap, IsTheFirstOfItsKind) {
    EXPECT_EQ(parse("1\nA: b\n\none\n\ntwo").body, "one two");
    EXPECT_EQ(parse("1\r\nA: b\r\n\r\none\r\n\r\ntwo").body, "one two");
    EXPECT_EQ(parse("1\nA: b\r\n\nHi").body, "Hi");
    EXPECT_EQ(parse("1\nA: b\r\r\n\r\nHi").body, "Hi");
}

TEST(MessageID, IsFoundInAnyCaseAtTheStartOfALine) {
    const std::pair<const char*, const char*> rows[] = {
        {"Message-ID: <a@b>", "a@b"},
        {"Message-Id: <a@b>", "a@b"},
        {"message-id: <a@b>", "a@b"},
        {"MESSAGE-ID: <a@b>", "a@b"},
        {"Me\u017F\u017Fage-ID: <a@b>", "a@b"},
        {"A: b\nMessage-ID: <a@b>\nC: d", "a@b"},
        {"A: b\r\nMessage-ID: <a@b>\r\nC: d", "a@b"},
        {" Message-ID: <a@b>", "(none)"},
        {"X-Message-ID: <a@b>", "(none)"},
        {"Message-ID : <a@b>", "(none)"},
        {"In-Reply-To: <a@b>", "(none)"},
        {"A: Message-ID: <a@b>", "(none)"},
        {"A: b\rMessage-ID: <a@b>", "(none)"},
        {"A: b\u2028Message-ID: <a@b>", "(none)"},
        {"A: b\n Message-ID: <a@b>", "(none)"},
        {"Message-I", "(none)"},
    };
    for (const auto& [header, id] : rows) EXPECT_EQ(messageID(header), id) << header;
}

TEST(MessageID, IsTheSameWithAndWithoutBrackets) {
    for (const char* value : {"<a@b>", "a@b", "<a@b", "a@b>", "\t <a@b>x", "<a@b <c", "a@b c",
                              "a@b<c", "a@b\u00A0c", "a@b\u2028c", "a@b\u0085c"})
        EXPECT_EQ(messageID(std::string("Message-ID:") + value), "a@b") << value;
}

TEST(MessageID, FoldedOntoTheNextLineIsFound) {
    for (const char* fold :
         {"\n ", "\n\t", "\r\n ", " \n  ", "\n \n ", "\t\r\n\t\r\n \t", "\n \r\n\t"})
        EXPECT_EQ(messageID(std::string("Message-ID:") + fold + "<a@b>"), "a@b") << fold;
    for (const char* gap : {"\n", "\r\n", "\n\n ", "\r \n ", "\n\v", "\v"})
        EXPECT_EQ(messageID(std::string("Message-ID:") + gap + "<a@b>"), "(none)") << gap;
}

TEST(MessageID, WithoutAValueIsPassedOverForALaterOne) {
    EXPECT_EQ(messageID("Message-ID: <>\nMessage-ID:\nMessage-ID: <a@b>\nMessage-ID: <c@d>"),
              "a@b");
    EXPECT_EQ(messageID("Message-ID: <<a@b>>"), "(none)");
    EXPECT_EQ(messageID("Message-ID: < a@b>"), "(none)");
    EXPECT_EQ(messageID("Message-ID: <a b@x>"), "a");
}

TEST(MessageID, BytesThatAreNoUtf8AreRepaired) {
    EXPECT_EQ(messageID("Message-ID: <a\xFF\xC0\xAF@b>"), "a\uFFFD\uFFFD\uFFFD@b");
    EXPECT_EQ(messageID("Message-ID: <\xE2\x82>"), "\uFFFD");
    EXPECT_EQ(messageID(std::string("Message-ID: <a\0b>", 18)), std::string("a\0b", 3));
}

TEST(MessageParser, BadUtf8StillParses) {
    const std::pair<std::string, std::string> rows[] = {
        {"a\xC0\xAF"
         "b",
         "a\uFFFD\uFFFD"
         "b"},
        {"\xED\xA0\x80", "\uFFFD\uFFFD\uFFFD"},
        {"\xE2\x82x", "\uFFFDx"},
        {"\xF0\x9F\x98", "\uFFFD"},
        {"\xFF<b>\xFE", "\uFFFD \uFFFD"},
    };
    for (const auto& [body, text] : rows) EXPECT_EQ(parse("1\nA: b\n\n" + body).body, text) << body;
}

TEST(MessageParser, BinaryInputGivesWhatItGives) {
    std::string bytes;
    for (int i = 0; i < 4096; ++i) bytes += static_cast<char>(i * 167 + i / 256);
    for (std::size_t at = 0; at < bytes.size(); at += 97) parse(std::string_view(bytes).substr(at));
    EXPECT_EQ(parse(std::string(120'000, '\0')), MailStore::Parsed());
}

TEST(MessageParser, AHeaderOf119000BytesIsSearchedThrough) {
    const std::string filler(119'000, 'x');
    EXPECT_EQ(parse("1\nA: " + filler + "\nMessage-ID: <a@b>\n\nHi"),
              (MailStore::Parsed{"Hi", "a@b"}));
    EXPECT_EQ(parse("1\nMessage-ID: <" + filler + ">\n\nHi"), (MailStore::Parsed{"Hi", filler}));
    std::string folds = "1\nMessage-ID:";
    while (folds.size() < 119'000) folds += "\n \t";
    EXPECT_EQ(parse(folds + "<a@b>\n\nHi"), (MailStore::Parsed{"Hi", "a@b"}));
}

TEST(MessageParser, TheLimitIsInCharacters) {
    EXPECT_EQ(MailStore::parseMessage("1\nA: b\n\n12345", 3).body, "123");
    EXPECT_EQ(MailStore::parseMessage("1\nA: b\n\n12345", 0).body, "");
    EXPECT_EQ(parse("1\nA: b\n\n" + std::string(900, 'w')).body, std::string(700, 'w'));
}

}  // namespace
}  // namespace brindlet
