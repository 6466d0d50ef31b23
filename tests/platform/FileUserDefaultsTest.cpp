#include "platform/linux/FileUserDefaults.h"

#include <gtest/gtest.h>

#include <cmath>
#include <filesystem>
#include <limits>

#include "base/Files.h"
#include "doubles/Doubles.h"

namespace brindlet {
namespace {

struct FileUserDefaultsTest : testing::Test {
    doubles::TemporaryDirectories directories;
    const std::string path = directories.root() + "/settings.json";
};

void fill(UserDefaults& defaults) {
    defaults.setBoolean("flag", true);
    defaults.setInteger("whole", 9007199254740993);
    defaults.setNumber("number", 1700000000.25);
    defaults.setNumber("round", 2.0);
    defaults.setString("text", "a/\"é\"\n");
    defaults.setData("data", std::string("[]\0\xFF", 4));
    defaults.setStrings("list", {"b", "", "a"});
    defaults.setDictionary("map", {{"x", "1"}, {"", "2"}});
}

void expectFilled(const UserDefaults& defaults) {
    EXPECT_EQ(defaults.boolean("flag"), true);
    EXPECT_EQ(defaults.integer("whole"), 9007199254740993);
    EXPECT_EQ(defaults.number("number"), 1700000000.25);
    EXPECT_EQ(defaults.number("round"), 2.0);
    EXPECT_EQ(defaults.string("text"), "a/\"é\"\n");
    EXPECT_EQ(defaults.data("data"), std::string("[]\0\xFF", 4));
    EXPECT_EQ(defaults.strings("list"), (UserDefaults::Strings{"b", "", "a"}));
    EXPECT_EQ(defaults.dictionary("map"), (UserDefaults::Dictionary{{"x", "1"}, {"", "2"}}));
}

TEST_F(FileUserDefaultsTest, EveryTypeComesBackFromTheFile) {
    FileUserDefaults first(path);
    fill(first);
    expectFilled(first);
    expectFilled(FileUserDefaults(path));
}

TEST_F(FileUserDefaultsTest, WithoutAPathItKeepsAllInMemory) {
    FileUserDefaults defaults;
    fill(defaults);
    expectFilled(defaults);
    defaults.remove("flag");
    EXPECT_EQ(defaults.boolean("flag"), std::nullopt);
}

TEST_F(FileUserDefaultsTest, AValueAnswersToItsOwnTypeAlone) {
    FileUserDefaults defaults;
    fill(defaults);
    const char* const keys[] = {"flag", "whole", "number", "text", "data", "list", "map", "none"};
    for (const std::string key : keys) {
        SCOPED_TRACE(key);
        EXPECT_EQ(defaults.boolean(key).has_value(), key == "flag");
        EXPECT_EQ(defaults.integer(key).has_value(), key == "whole");
        EXPECT_EQ(defaults.number(key).has_value(), key == "number" || key == "whole");
        EXPECT_EQ(defaults.string(key).has_value(), key == "text");
        EXPECT_EQ(defaults.data(key).has_value(), key == "data");
        EXPECT_EQ(defaults.strings(key).has_value(), key == "list");
        EXPECT_EQ(defaults.dictionary(key).has_value(), key == "map");
    }
}

TEST_F(FileUserDefaultsTest, ATypeOutlivesTheFileThoughItsDigitsLookAlike) {
    FileUserDefaults(path).setNumber("x", 2);
    EXPECT_EQ(FileUserDefaults(path).integer("x"), std::nullopt);
    EXPECT_EQ(FileUserDefaults(path).number("x"), 2.0);
}

TEST_F(FileUserDefaultsTest, EachChangeIsWrittenAtOnce) {
    FileUserDefaults defaults(path);
    EXPECT_FALSE(files::exists(path));
    defaults.setBoolean("a", false);
    EXPECT_EQ(files::read(path), R"({"a":{"boolean":false}})");
    defaults.setString("a", "now text");
    EXPECT_EQ(files::read(path), R"({"a":{"string":"now text"}})");
    defaults.setData("b", "[]");
    EXPECT_EQ(files::read(path), R"({"a":{"string":"now text"},"b":{"data":"5b5d"}})");
    defaults.remove("a");
    defaults.remove("b");
    EXPECT_EQ(files::read(path), "{}");
}

TEST_F(FileUserDefaultsTest, ADamagedFileCountsAsEmpty) {
    for (const char* text :
         {"", "{", "[]", R"({"a":true})", R"({"a":{"boolean":1}})", R"({"a":{"boolean":true}} x)",
          R"({"a":{"data":"5"}})", R"({"a":{"data":"xx"}})", R"({"a":{"dictionary":{"k":1}}})"}) {
        ASSERT_TRUE(files::write(path, text));
        FileUserDefaults defaults(path);
        EXPECT_EQ(defaults.boolean("a"), std::nullopt) << text;
        EXPECT_EQ(defaults.data("a"), std::nullopt) << text;
        EXPECT_EQ(defaults.dictionary("a"), std::nullopt) << text;
        defaults.setInteger("b", 1);
        EXPECT_EQ(FileUserDefaults(path).integer("b"), 1) << text;
    }
}

TEST_F(FileUserDefaultsTest, ATypeOfALaterVersionIsPassedOver) {
    ASSERT_TRUE(files::write(path, R"({"a":{"colour":[1,2]},"b":{"integer":3}})"));
    const FileUserDefaults defaults(path);
    EXPECT_EQ(defaults.string("a"), std::nullopt);
    EXPECT_EQ(defaults.integer("b"), 3);
}

TEST_F(FileUserDefaultsTest, NothingWrittenCanSpoilTheFile) {
    FileUserDefaults defaults(path);
    defaults.setNumber("n", 5);
    defaults.setNumber("n", std::numeric_limits<double>::infinity());
    EXPECT_EQ(defaults.number("n"), std::nullopt);
    defaults.setString("s", "bad \xFF byte");
    defaults.setStrings("l", {"\xC3"});
    defaults.setDictionary("d", {{"\xC3", "\xFF"}});
    defaults.setBoolean("\xFF", true);
    const FileUserDefaults back(path);
    EXPECT_EQ(back.string("s"), "bad \uFFFD byte");
    EXPECT_EQ(back.strings("l"), UserDefaults::Strings{"\uFFFD"});
    EXPECT_EQ(back.dictionary("d"), (UserDefaults::Dictionary{{"\uFFFD", "\uFFFD"}}));
}

TEST_F(FileUserDefaultsTest, AFailedSaveKeepsTheOldFileAndTheNewState) {
    FileUserDefaults defaults(path);
    defaults.setInteger("a", 1);
    // The place of the file that is written first is taken.
    ASSERT_TRUE(files::createDirectories(path + ".new"));
    defaults.setInteger("a", 2);
    EXPECT_EQ(defaults.integer("a"), 2);
    EXPECT_EQ(FileUserDefaults(path).integer("a"), 1);
}

TEST_F(FileUserDefaultsTest, TheFileIsItsOwnersAloneAndNothingStaysBesideIt) {
    FileUserDefaults(path).setInteger("a", 1);
    using std::filesystem::perms;
    EXPECT_EQ(std::filesystem::status(path).permissions(), perms::owner_read | perms::owner_write);
    EXPECT_FALSE(files::exists(path + ".new"));
}

}  // namespace
}  // namespace brindlet
