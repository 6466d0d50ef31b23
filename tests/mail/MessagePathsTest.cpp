#include "mail/MessagePaths.h"

#include <gtest/gtest.h>

#include <map>
#include <random>

namespace brindlet {
namespace {

TEST(MessageFileName, GivesTheNumberOfWholeAndPartialFiles) {
    const std::pair<const char*, std::int64_t> rows[] = {
        {"12345.emlx", 12345},
        {"12345.partial.emlx", 12345},
        {"0.emlx", 0},
        {"007.emlx", 7},
        {"+5.emlx", 5},
        {"-5.emlx", -5},
        {"9223372036854775807.emlx", INT64_MAX},
        {"-9223372036854775808.partial.emlx", INT64_MIN},
        // Every piece goes, wherever it stands.
        {"1.emlx2.emlx", 12},
        {"1.partial2.partial.emlx", 12},
        {"1.par.emlxtial.emlx", 1},
    };
    for (const auto& [name, id] : rows) EXPECT_EQ(MessagePaths::idOfFileName(name), id) << name;
}

TEST(MessageFileName, OthersHaveNoNumber) {
    for (const char* name :
         {"", ".emlx", "12345.emlxpart", "abc.emlx", "12345.EMLX", "12345", "12345.eml", " 5.emlx",
          "5 .emlx", "5.x.emlx", "0x1.emlx", "1_0.emlx", "\u0665.emlx", "9223372036854775808.emlx",
          "+-5.emlx", "+.emlx", ".partial.emlx", "1.part.emlxial.emlx.plist"})
        EXPECT_EQ(MessagePaths::idOfFileName(name), std::nullopt) << name;
}

TEST(MessagePaths, FindsTheFullPathOfEachForm) {
    MessagePaths paths;
    const auto first = paths.addDirectory("/mail/a");
    const auto second = paths.addDirectory("/mail/b");
    for (const char* name : {"1.emlx", "2.partial.emlx", "003.emlx", "-4.emlx", "none.emlx"})
        paths.add(first, name);
    paths.add(second, "5.emlx");
    paths.add(second, "100000000000000000.emlx");
    EXPECT_EQ(paths.size(), 6u);
    EXPECT_EQ(paths.find(1), "/mail/a/1.emlx");
    EXPECT_EQ(paths.find(2), "/mail/a/2.partial.emlx");
    EXPECT_EQ(paths.find(3), "/mail/a/003.emlx");
    EXPECT_EQ(paths.find(-4), "/mail/a/-4.emlx");
    EXPECT_EQ(paths.find(5), "/mail/b/5.emlx");
    EXPECT_EQ(paths.find(100'000'000'000'000'000), "/mail/b/100000000000000000.emlx");
    EXPECT_EQ(paths.find(0), std::nullopt);
    EXPECT_EQ(paths.find(4), std::nullopt);
}

TEST(MessagePaths, TheLaterFileOfOneNumberWins) {
    MessagePaths paths;
    const auto directory = paths.addDirectory("/mail");
    paths.add(directory, "5.emlx");
    paths.add(directory, "5.partial.emlx");
    EXPECT_EQ(paths.find(5), "/mail/5.partial.emlx");
    paths.add(directory, "+5.emlx");
    EXPECT_EQ(paths.find(5), "/mail/+5.emlx");
    EXPECT_EQ(paths.size(), 1u);
}

TEST(MessagePaths, EmptyFindsNothing) {
    std::string path = "kept";
    EXPECT_FALSE(MessagePaths().find(1, path));
    EXPECT_EQ(MessagePaths().size(), 0u);
}

TEST(MessagePaths, AgreesWithAPlainMapOverScatteredNumbers) {
    std::mt19937_64 random(7);
    MessagePaths paths;
    std::map<std::int64_t, std::string> expected;
    const auto directory = paths.addDirectory("/m");
    for (int i = 0; i < 50'000; ++i) {
        const auto id = static_cast<std::int64_t>(random()) >> (random() % 64);
        const std::string name =
            std::to_string(id) + (random() % 8 == 0 ? ".partial.emlx" : ".emlx");
        paths.add(directory, name);
        expected[id] = "/m/" + name;
    }
    EXPECT_EQ(paths.size(), expected.size());
    for (const auto& [id, path] : expected) ASSERT_EQ(paths.find(id), path);
}

}  // namespace
}  // namespace brindlet
