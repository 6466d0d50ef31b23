#include "base/Utf8.h"

#include <gtest/gtest.h>

namespace brindlet {
namespace {

const std::string mark = "\xEF\xBF\xBD";

TEST(RepairedUtf8, PutsOneMarkForEachMaximalSubpart) {
    struct Row {
        std::string bytes;
        std::string repaired;
    };
    const Row rows[] = {
        {"", ""},
        {"plain", "plain"},
        {"é€😀", "é€😀"},
        {"\xC0\xAF", mark + mark},
        {"\xC1\xBF", mark + mark},
        {"\xED\xA0\x80", mark + mark + mark},
        {"\xE0\x80\x80", mark + mark + mark},
        {"\xF0\x80\x80\x80", mark + mark + mark + mark},
        {"\xF4\x90\x80\x80", mark + mark + mark + mark},
        {"\xF5\x80", mark + mark},
        {"\xE2\x82"
         "A",
         mark + "A"},
        {"\xE2\x82", mark},
        {"\xF0\x9F\x98", mark},
        {"\xF0\x9F\x98\xF0\x9F\x98\x80", mark + "😀"},
        {"\xC3", mark},
        {"\xC3\xC3\xA9", mark + "é"},
        {"\x80\xBF", mark + mark},
        {"\xFF\xFE", mark + mark},
        {"eight ascii bytes, then \xE9t\xE9", "eight ascii bytes, then " + mark + "t" + mark},
        {std::string("a\0b", 3), std::string("a\0b", 3)},
        {"\xEF\xBB\xBFtext", "\xEF\xBB\xBFtext"},
    };
    for (const auto& [bytes, repaired] : rows) {
        EXPECT_EQ(repairedUtf8(bytes), repaired) << testing::PrintToString(bytes);
        EXPECT_EQ(isValidUtf8(bytes), bytes == repaired) << testing::PrintToString(bytes);
    }
}

TEST(FindIllFormedUtf8, TellsPlaceAndLengthAndGoesOn) {
    const std::string bytes =
        "ab\xE2\x82"
        "cd\xFF";
    const auto first = findIllFormedUtf8(bytes);
    EXPECT_EQ(first.start, 2u);
    EXPECT_EQ(first.length, 2u);
    const auto second = findIllFormedUtf8(bytes, first.start + first.length);
    EXPECT_EQ(second.start, 6u);
    EXPECT_EQ(second.length, 1u);
    const auto none = findIllFormedUtf8(bytes, 7);
    EXPECT_EQ(none.start, bytes.size());
    EXPECT_EQ(none.length, 0u);
}

TEST(CodePoints, FromIllFormedBytesAreThoseOfTheRepairedText) {
    for (const std::string bytes : {"a\xE2\x82"
                                    "b\xC0\xAFé\xF0\x9F",
                                    "\x80", "😀\xED\xA0\x80", ""}) {
        std::string read;
        for (const char *at = bytes.data(), *const end = at + bytes.size(); at < end;)
            appendCodePoint(read, nextRepairedCodePoint(at, end));
        EXPECT_EQ(read, repairedUtf8(bytes)) << testing::PrintToString(bytes);
    }
}

TEST(CodePoints, GoThereAndBack) {
    for (char32_t c = 0; c <= 0x10FFFF; c += c < 0x3000 ? 1 : 61) {
        if (c >= 0xD800 && c <= 0xDFFF) continue;
        std::string text;
        appendCodePoint(text, c);
        ASSERT_TRUE(isValidUtf8(text)) << static_cast<unsigned>(c);
        const char* at = text.data();
        ASSERT_EQ(nextCodePoint(at, text.data() + text.size()), c);
        ASSERT_EQ(at, text.data() + text.size());
    }
}

}  // namespace
}  // namespace brindlet
