#include "osascript/CommandLine.h"

#include <gtest/gtest.h>

namespace brindlet::osascript {
namespace {

CommandLine lineOf(std::vector<std::string> words) {
    std::vector<char*> values;
    for (std::string& word : words) values.push_back(word.data());
    return {static_cast<int>(values.size()), values.data()};
}

TEST(CommandLine, ADashTakesTheScriptFromStandardInput) {
    const auto line = lineOf({"osascript", "-", "a", "-e", ""});
    EXPECT_TRUE(line.fromStandardInput);
    EXPECT_EQ(line.arguments, (std::vector<std::string>{"a", "-e", ""}));
    EXPECT_TRUE(lineOf({"osascript"}).fromStandardInput);
}

TEST(CommandLine, LinesOfScriptAddUp) {
    const auto line = lineOf({"osascript", "-e", "one", "-e", "two", "three"});
    EXPECT_FALSE(line.fromStandardInput);
    EXPECT_EQ(line.script, "one\ntwo");
    EXPECT_EQ(line.arguments, std::vector<std::string>{"three"});
}

TEST(CommandLine, AnythingElseIsAProblem) {
    EXPECT_EQ(lineOf({"osascript", "-e"}).problem, "A line of script is missing after -e.");
    EXPECT_EQ(lineOf({"osascript", "file.scpt"}).problem,
              "Scripts come by -e, or by standard input after -; this host opens no file.");
    EXPECT_EQ(lineOf({"osascript", "-"}).problem, "");
}

}  // namespace
}  // namespace brindlet::osascript
