#include <gtest/gtest.h>

#include <cstdint>
#include <limits>
#include <random>
#include <vector>

#include "base/Json.h"
#include "base/JsonGrammar.h"

namespace brindlet {
namespace {

std::optional<std::int64_t> integerFrom(const std::string& text) {
    JsonReader in(text);
    const auto value = in.integer();
    return in.finish() ? std::optional(value) : std::nullopt;
}

std::optional<double> numberFrom(const std::string& text) {
    JsonReader in(text);
    const auto value = in.number();
    return in.finish() ? std::optional(value) : std::nullopt;
}

std::optional<std::string> stringFrom(const std::string& text) {
    JsonReader in(text);
    auto value = in.string();
    return in.finish() ? std::optional(value) : std::nullopt;
}

std::optional<bool> booleanFrom(const std::string& text) {
    JsonReader in(text);
    const auto value = in.boolean();
    return in.finish() ? std::optional(value) : std::nullopt;
}

bool isJson(const std::string& text) {
    JsonReader in(text);
    in.skip();
    return in.finish();
}

TEST(JsonReader, IntegersAreWholeNumbersHoweverWritten) {
    using Row = std::pair<const char*, std::optional<std::int64_t>>;
    const Row rows[] = {
        {"0", 0},
        {"-0", 0},
        {"500", 500},
        {" 7 \n", 7},
        {"2.0", 2},
        {"-2.000", -2},
        {"0.0", 0},
        {"0e0", 0},
        {"12e1", 120},
        {"120e-1", 12},
        {"0e999999999999", 0},
        {"9007199254740993", 9007199254740993},
        {"9007199254740993.0", 9007199254740993},
        {"9223372036854775807", std::numeric_limits<std::int64_t>::max()},
        {"-9223372036854775808", std::numeric_limits<std::int64_t>::min()},
        {"-9223372036854775808.0", std::numeric_limits<std::int64_t>::min()},
        {"9223372036854775808", std::nullopt},
        {"-9223372036854775809", std::nullopt},
        {"99999999999999999999", std::nullopt},
        {"1.5", std::nullopt},
        {"1e-1", std::nullopt},
        {"1e400", std::nullopt},
        {"1e19", std::nullopt},
        {"\"5\"", std::nullopt},
        {"true", std::nullopt},
        {"null", std::nullopt},
        {"[1]", std::nullopt},
        {"01", std::nullopt},
        {"+1", std::nullopt},
        {"1.", std::nullopt},
        {".5", std::nullopt},
        {"1e", std::nullopt},
        {"-", std::nullopt},
        {"0x10", std::nullopt},
        {"1 2", std::nullopt},
        {"1,", std::nullopt},
        {"", std::nullopt},
        {" ", std::nullopt},
    };
    for (const auto& [text, value] : rows) {
        EXPECT_EQ(integerFrom(text), value) << text;
        JsonReader nested("[" + std::string(text) + "]");
        std::int64_t inside = -1;
        nested.array([&] { inside = nested.integer(); });
        if (value)
            EXPECT_TRUE(nested.finish() && inside == *value) << text << " in an array";
        else
            EXPECT_FALSE(nested.finish() && inside != -1) << text << " in an array";
    }
}

TEST(JsonReader, NumbersTakeIntegersButNoOtherType) {
    EXPECT_EQ(numberFrom("721692800.123456"), 721692800.123456);
    EXPECT_EQ(numberFrom("5"), 5.0);
    EXPECT_EQ(numberFrom("-1.25e-3"), -1.25e-3);
    EXPECT_EQ(numberFrom("1.7e+09"), 1.7e9);
    EXPECT_EQ(numberFrom("123456789012345678901234567890"), 1.2345678901234568e29);
    for (const char* text : {"1e400", "-1e400", "\"5\"", "true", "null", "{}", "NaN", "Infinity"})
        EXPECT_EQ(numberFrom(text), std::nullopt) << text;
}

TEST(JsonReader, BooleansAreTheTwoWordsAlone) {
    EXPECT_EQ(booleanFrom("true"), true);
    EXPECT_EQ(booleanFrom(" false "), false);
    for (const char* text : {"1", "0", "\"true\"", "null", "truex", "tru", "True", "falsey"})
        EXPECT_EQ(booleanFrom(text), std::nullopt) << text;
}

TEST(JsonReader, NullIsTakenOrLeft) {
    JsonReader in(R"({"a":null,"b":3})");
    std::int64_t b = 0;
    int nulls = 0;
    in.object([&](std::string_view key) {
        if (in.takeNull())
            ++nulls;
        else if (key == "b")
            b = in.integer();
    });
    EXPECT_TRUE(in.finish());
    EXPECT_EQ(nulls, 1);
    EXPECT_EQ(b, 3);
    JsonReader alone("null");
    EXPECT_TRUE(alone.takeNull());
    EXPECT_TRUE(alone.finish());
    for (const char* text : {"nullx", "nul", "nulls", "null null"}) {
        JsonReader damaged(text);
        damaged.takeNull();
        EXPECT_FALSE(damaged.finish()) << text;
    }
}

TEST(JsonReader, StringsAreUnescaped) {
    using Row = std::pair<const char*, std::optional<std::string>>;
    const Row rows[] = {
        {R"("")", ""},
        {R"("plain text, longer than a word")", "plain text, longer than a word"},
        {R"("a\/b\\c\"d")", "a/b\\c\"d"},
        {R"("\b\f\n\r\t")", "\b\f\n\r\t"},
        {R"("\u00e9\u00C9")", "éÉ"},
        {R"("\u20AC")", "€"},
        {R"("\ud83d\ude00!")", "😀!"},
        {R"("\u0000")", std::string(1, '\0')},
        {"\"é€😀\"", "é€😀"},
        {R"("\ud83d")", std::nullopt},
        {R"("\ud83dx")", std::nullopt},
        {R"("\ude00")", std::nullopt},
        {R"("\ud83d\u0041")", std::nullopt},
        {R"("\u12g4")", std::nullopt},
        {R"("\u12")", std::nullopt},
        {R"("\x41")", std::nullopt},
        {R"("open)", std::nullopt},
        {R"("open\")", std::nullopt},
        {"\"tab\there\"", std::nullopt},
        {"\"line\nend\"", std::nullopt},
        {"\"\xC0\xAF\"", std::nullopt},
        {"\"\xED\xA0\x80\"", std::nullopt},
        {"\"\xE2\x82\"", std::nullopt},
        {R"('a')", std::nullopt},
        {R"("a" "b")", std::nullopt},
        {"5", std::nullopt},
    };
    for (const auto& [text, value] : rows) {
        EXPECT_EQ(stringFrom(text), value) << text;
        JsonReader nested("{\"k\":" + std::string(text) + "}");
        std::string inside;
        nested.object([&](std::string_view) { inside = nested.string(); });
        EXPECT_EQ(nested.finish(), value.has_value()) << text << " in an object";
        if (value) {
            EXPECT_EQ(inside, *value) << text;
        }
    }
}

TEST(JsonReader, ViewsLiveAsLongAsTheReader) {
    JsonReader in(R"({"\u00e9":"a\nb","second":"c\/d"})");
    std::vector<std::string_view> seen;
    in.object([&](std::string_view key) {
        seen.push_back(key);
        seen.push_back(in.stringView());
    });
    ASSERT_TRUE(in.finish());
    EXPECT_EQ(seen, (std::vector<std::string_view>{"é", "a\nb", "second", "c/d"}));
}

TEST(JsonReader, WalksNestedContainersInOrder) {
    JsonReader in(R"( [ {"name":"x","numbers":[1,2,[]],"none":{}} , [] , 4 ] )");
    std::string trace;
    int element = 0;
    in.array([&] {
        if (element == 0) {
            in.object([&](std::string_view key) {
                trace += key;
                trace += ' ';
                if (key == "name") {
                    trace += in.stringView();
                } else if (key == "numbers") {
                    int at = 0;
                    in.array([&] {
                        if (at++ < 2)
                            trace += std::to_string(in.integer());
                        else
                            in.array([&] { trace += "never"; });
                    });
                } else {
                    in.object([&](std::string_view) { trace += "never"; });
                }
                trace += ';';
            });
        } else if (element == 1) {
            in.array([&] { trace += "never"; });
        } else {
            trace += std::to_string(in.integer());
        }
        ++element;
    });
    EXPECT_TRUE(in.finish());
    EXPECT_EQ(trace, "name x;numbers 12;none ;4");
}

TEST(JsonReader, AValueLeftAloneIsSkippedAndChecked) {
    const auto readsA = [](const std::string& text) {
        JsonReader in(text);
        std::int64_t a = 0;
        in.object([&](std::string_view key) {
            if (key == "a") a = in.integer();
        });
        return in.finish() && a == 1;
    };
    EXPECT_TRUE(readsA(R"({"x":{"y":[true,"z"]},"a":1,"last":[[]]})"));
    EXPECT_TRUE(readsA(R"({"huge":1e400,"long":123456789012345678901234567890,"a":1})"));
    for (const char* damage : {"tru", "[1 2]", "{\"y\" 1}", "{\"y\":1,}", "[1,]", "\"\\q\"", "01",
                               "{1:2}", "[}", "\"b\":1", "", "nul"})
        EXPECT_FALSE(readsA(std::string("{\"x\":") + damage + ",\"a\":1}")) << damage;
}

TEST(JsonReader, DamageAnywhereFailsTheWhole) {
    for (const char* text : {"",
                             " ",
                             "{",
                             "}",
                             "[",
                             "]",
                             "{}}",
                             "[]]",
                             "[[]",
                             "{\"a\":1",
                             "{\"a\":1}{",
                             "{} x",
                             "[1,2],3",
                             "{\"a\"}",
                             "{\"a\":}",
                             "{,}",
                             "[,]",
                             "{\"a\":1,,\"b\":2}",
                             "{\"a\":1 \"b\":2}",
                             "{\"x\":{\"a\":\"b\":1},\"c\":2}}",
                             "\xEF\xBB\xBF{}",
                             "// no\n{}",
                             "[1]\x01",
                             "[\"\xFF\"]"})
        EXPECT_FALSE(isJson(text)) << text;
}

TEST(JsonReader, DeepNestingIsRefusedAndNotFollowed) {
    EXPECT_TRUE(isJson("1e400"));
    EXPECT_TRUE(isJson(std::string(512, '[') + std::string(512, ']')));
    EXPECT_FALSE(isJson(std::string(513, '[') + std::string(513, ']')));
    EXPECT_FALSE(isJson(std::string(1'000'000, '[') + std::string(1'000'000, ']')));
}

TEST(JsonReader, NothingWorksAfterAFailure) {
    JsonReader in(R"({"a":"text","b":2})");
    int members = 0;
    in.object([&](std::string_view) {
        ++members;
        EXPECT_EQ(in.integer(), 0);
        EXPECT_FALSE(in.ok());
        EXPECT_EQ(in.string(), "");
        EXPECT_FALSE(in.takeNull());
        in.skip();
    });
    EXPECT_EQ(members, 1);
    EXPECT_FALSE(in.finish());
}

TEST(JsonReader, ACallerCanFailIt) {
    JsonReader in("{}");
    in.object([](std::string_view) {});
    in.fail();
    EXPECT_FALSE(in.finish());
}

TEST(JsonReader, AnUntouchedTextIsNotFinished) {
    JsonReader in("{}");
    EXPECT_FALSE(in.finish());
}

TEST(JsonReader, AgreesWithTheGrammarOnDamagedTexts) {
    const std::string whole =
        R"({"id@x.example":{"junk":true,"when":721692800.25,"account":"é \"q\" \u00e9"},)"
        R"("n":[null,-1e5,[],{}, "\/" ],"big":12345678901234567890})";
    ASSERT_TRUE(isJson(whole));
    const std::string_view alphabet = "{}[]:,\"\\ue09-+.tfn \n\x01\xC3\xA9";
    std::mt19937 random(7);
    const auto below = [&](std::size_t limit) { return random() % limit; };
    int accepted = 0;
    for (int round = 0; round < 30'000; ++round) {
        std::string text = whole;
        for (auto edits = 1 + below(3); edits > 0 && !text.empty(); --edits) {
            const auto at = below(text.size());
            switch (below(4)) {
                case 0:
                    text[at] = alphabet[below(alphabet.size())];
                    break;
                case 1:
                    text.insert(at, 1, alphabet[below(alphabet.size())]);
                    break;
                case 2:
                    text.erase(at, 1 + below(6));
                    break;
                default:
                    text.resize(at);
            }
        }
        const bool expected = JsonGrammar(text).accepts();
        accepted += expected;
        ASSERT_EQ(isJson(text), expected) << text;
    }
    EXPECT_GT(accepted, 300);
}

}  // namespace
}  // namespace brindlet
