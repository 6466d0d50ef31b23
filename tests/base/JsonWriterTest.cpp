#include <gtest/gtest.h>

#include <cmath>
#include <cstdint>
#include <cstring>
#include <limits>
#include <random>
#include <vector>

#include "base/Json.h"
#include "base/JsonGrammar.h"
#include "doubles/Doubles.h"

namespace brindlet {
namespace {

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

template <class T>
std::string written(const T& value) {
    JsonWriter out;
    out.value(value);
    return std::move(out).text();
}

TEST(JsonWriter, WritesCompactly) {
    JsonWriter out;
    out.beginObject();
    out.member("flag", true);
    out.member("count", 3);
    out.member("text", "a");
    out.member("some", std::optional<double>(0.5));
    out.member("gone", std::optional<std::string>());
    out.key("list");
    out.beginArray();
    out.beginObject();
    out.endObject();
    out.beginArray();
    out.endArray();
    out.null();
    out.value(std::int64_t{9007199254740993});
    out.endArray();
    out.endObject();
    EXPECT_EQ(std::move(out).text(), R"({"flag":true,"count":3,"text":"a","some":0.5,)"
                                     R"("list":[{},[],null,9007199254740993]})");
}

TEST(JsonWriter, EscapesTheSlashAndWhatJsonDemands) {
    EXPECT_EQ(written("a/b"), R"("a\/b")");
    EXPECT_EQ(written("\"\\"), R"("\"\\")");
    EXPECT_EQ(written("\b\f\n\r\t\x01\x1f"), R"("\b\f\n\r\t\u0001\u001f")");
    EXPECT_EQ(written(std::string(1, '\0')), R"("\u0000")");
    EXPECT_EQ(written("é€😀\x7f\u2028"), "\"é€😀\x7f\u2028\"");
    for (int c = 0; c < 0x20; ++c) {
        // At each place of a word, since words without escapes are copied as a whole.
        for (std::size_t at = 0; at < 17; ++at) {
            std::string text(17, 'x');
            text[at] = static_cast<char>(c);
            const auto back = stringFrom(written(text));
            EXPECT_EQ(back, text) << c << " at " << at;
            EXPECT_EQ(written(text).find(static_cast<char>(c)), std::string::npos) << c;
        }
    }
}

TEST(JsonWriter, KeysAreEscapedToo) {
    JsonWriter out;
    out.beginObject();
    out.member("a/\"b", 1);
    out.endObject();
    EXPECT_EQ(std::move(out).text(), R"({"a\/\"b":1})");
}

TEST(JsonWriter, DoublesReadBackEqual) {
    std::vector<double> values = {0.0,
                                  -0.0,
                                  0.1,
                                  1.0 / 3,
                                  721692800.123456,
                                  721692800.1234561,
                                  1.7e9,
                                  5e-324,
                                  std::numeric_limits<double>::max(),
                                  std::numeric_limits<double>::min()};
    std::mt19937_64 random(11);
    for (int i = 0; i < 20'000; ++i) {
        const std::uint64_t bits = random();
        double value;
        std::memcpy(&value, &bits, sizeof value);
        if (std::isfinite(value)) values.push_back(value);
        values.push_back(7e8 + static_cast<double>(bits >> 11) * 0x1p-30);
    }
    for (int i = 0; i < 20'000; ++i) {
        // Decimals of few places, at every size that has a short cut and just beyond it.
        const double scale = std::pow(10.0, static_cast<double>(random() % 17));
        values.push_back(std::floor(static_cast<double>(random() % 1'000'000'007) * scale) / 1e6);
    }
    for (const double value : values) {
        const auto text = written(value);
        const auto back = numberFrom(text);
        ASSERT_TRUE(back) << text;
        EXPECT_EQ(*back, value) << text;
        EXPECT_EQ(std::signbit(*back), std::signbit(value)) << text;
    }
    EXPECT_EQ(written(721692800.123456), "721692800.123456");
    EXPECT_EQ(written(0.1), "0.1");
    EXPECT_EQ(written(0.000001), "0.000001");
    EXPECT_EQ(written(3.05), "3.05");
    EXPECT_EQ(written(721692800.0), "721692800");
    EXPECT_EQ(written(999999999.999999), "999999999.999999");
    EXPECT_EQ(written(1e9 + 0.5), "1000000000.5");
    EXPECT_EQ(written(std::numeric_limits<double>::infinity()), "null");
    EXPECT_EQ(written(std::nan("")), "null");
}

TEST(JsonWriter, IntegersKeepAllTheirDigits) {
    EXPECT_EQ(written(std::numeric_limits<std::int64_t>::min()), "-9223372036854775808");
    EXPECT_EQ(written(std::numeric_limits<std::int64_t>::max()), "9223372036854775807");
    EXPECT_EQ(written(std::int64_t{9007199254740993}), "9007199254740993");
}

TEST(JsonWriter, StreamsIntoAFileInPieces) {
    const doubles::TemporaryDirectories directories;
    const auto path = directories.root() + "/big.json";
    const std::string longText(700'000, '/');
    JsonWriter collected;
    files::Writer file(path);
    {
        JsonWriter streamed(file);
        for (JsonWriter* out : {&collected, &streamed}) {
            out->beginArray();
            for (int i = 0; i < 50'000; ++i) {
                out->value("a text of some length");
                out->value(i);
            }
            out->value(longText);
            out->endArray();
        }
    }
    ASSERT_TRUE(file.finish());
    const auto bytes = files::read(path);
    ASSERT_TRUE(bytes);
    EXPECT_TRUE(*bytes == std::move(collected).text());
    EXPECT_TRUE(JsonGrammar(*bytes).accepts());
}

}  // namespace
}  // namespace brindlet
