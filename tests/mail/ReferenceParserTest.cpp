#include "mail/ReferenceParser.h"

#include <gtest/gtest.h>

#include <random>

// The parser looks at bytes first and at characters only where it must. Here random texts, built of
// what is most likely to lead it astray, go through it and through the plain way.

namespace brindlet {
namespace {

using namespace std::string_view_literals;

constexpr std::string_view pieces[] = {
    "<"sv,
    "<"sv,
    ">"sv,
    ">"sv,
    "&"sv,
    ";"sv,
    ";"sv,
    " "sv,
    "\t"sv,
    "\n"sv,
    "\r"sv,
    "\r\n"sv,
    "\r\n\r\n"sv,
    "\n\n"sv,
    "a"sv,
    "s"sv,
    "S"sv,
    "word "sv,
    "0123456789"sv,
    "<b>"sv,
    "&amp;"sv,
    "<script"sv,
    "<SCRIPT>"sv,
    "</script"sv,
    "</ScRiPt>"sv,
    "<style>"sv,
    "<StYle"sv,
    "</style>"sv,
    "</STYLE"sv,
    "script"sv,
    "tyle"sv,
    "/"sv,
    "\u0301"sv,
    "\u0301\u0301"sv,
    "\u200D"sv,
    "\u200C"sv,
    "\u200B"sv,
    "\u2028"sv,
    "\u0085"sv,
    "\u00A0"sv,
    "\u3000"sv,
    "\u212A"sv,
    "\u017F"sv,
    "\u0130"sv,
    "\u00E9"sv,
    "\u0416"sv,
    "\u4E00"sv,
    "\uAC00"sv,
    "\u1161"sv,
    "\u1100"sv,
    "\u11A8"sv,
    "\u0600"sv,
    "\u0903"sv,
    "\U0001F469"sv,
    "\U0001F469\u200D\U0001F466"sv,
    "\U0001F1E6"sv,
    "\uFE0F"sv,
    "\u201C"sv,
    "\u2764"sv,
    "\xFF"sv,
    "\x80"sv,
    "\xC3"sv,
    "\xE2\x82"sv,
    "\xED\xA0\x80"sv,
    "\xF0\x9F"sv,
    "\xF0\x9F\x91"sv,
    "\xD8"sv,
    "\0"sv,
    "\v"sv,
    "\uFEFF"sv,
    "Message-ID: <"sv,
    "\nMessage-Id:"sv,
    "\nmessage-id: "sv,
    "\nMe\u017F\u017Fage-ID:"sv,
    "\n "sv,
    "\r\n\t"sv,
    "x@y"sv,
    "<x@y>"sv,
};

std::string randomText(std::mt19937& random, std::size_t most) {
    std::string text;
    for (auto left = random() % (most + 1); left > 0; --left) {
        const std::string_view piece = pieces[random() % std::size(pieces)];
        // Now and then many of one, to pass the limits that count characters.
        for (auto times = random() % 12 == 0 ? random() % 30 : 1; times > 0; --times) text += piece;
    }
    return text;
}

std::string escaped(std::string_view text) {
    std::string out;
    for (const char c : text) {
        constexpr char digits[] = "0123456789ABCDEF";
        const auto byte = static_cast<unsigned char>(c);
        if (byte >= 0x20 && byte < 0x7F)
            out += c;
        else
            out += {'\\', 'x', digits[byte >> 4], digits[byte & 15], ' '};
    }
    return out;
}

TEST(VisibleText, AgreesWithThePlainWayOnRandomTexts) {
    std::mt19937 random(20'240'229);
    for (int round = 0; round < 150'000; ++round) {
        const std::string text = randomText(random, 24);
        const std::int64_t limit =
            random() % 3 == 0 ? static_cast<std::int64_t>(random() % 20) : 700;
        ASSERT_EQ(MailStore::visibleText(text, limit), testing::referenceVisibleText(text, limit))
            << "round " << round << ", limit " << limit << ": " << escaped(text);
    }
}

TEST(MessageParser, AgreesWithThePlainWayOnRandomMessages) {
    std::mt19937 random(1);
    for (int round = 0; round < 60'000; ++round) {
        const std::string text = (random() % 4 == 0 ? "" : "12\n") + randomText(random, 30);
        ASSERT_EQ(MailStore::parseMessage(text, 50), testing::referenceParse(text, 50))
            << "round " << round << ": " << escaped(text);
    }
}

TEST(VisibleText, AgreesWithThePlainWayOnLongTexts) {
    std::mt19937 random(2);
    for (int round = 0; round < 60; ++round) {
        const std::string text = randomText(random, 6'000);
        ASSERT_EQ(MailStore::visibleText(text, 700), testing::referenceVisibleText(text, 700))
            << "round " << round;
    }
}

}  // namespace
}  // namespace brindlet
