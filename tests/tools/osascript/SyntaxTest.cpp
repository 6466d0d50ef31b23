#include <gtest/gtest.h>

#include "InProcess.h"

namespace brindlet::osascript {
namespace {

TEST(Syntax, WhatIsNotOfTheLanguageIsAnError) {
    struct Row {
        std::string script;
        std::string problem;
    };
    const std::vector<Row> rows{
        {"return", "Expected expression but found end of line."},
        {"return )", "Expected “{” but found “)”."},
        {"return (1", "Expected “)” but found end of line."},
        {"return {1,", "Expected expression but found end of line."},
        {"return 1 2", "Expected end of line but found a value."},
        {"return \"a", "Expected “\"” but found end of script."},
        {"return «class", "Expected “»” but found end of script."},
        {"return 99999999999999999999", "The number is too large."},
        {"return 1 # 2", "Expected expression but found unknown token."},
        {"return 1 ¬ 2", "Expected end of line after “¬”."},
        {"return 1 as real", "Expected a class that values can become but found end of line."},
        {"return - x", "Expected a number but found “x”."},
        {"return then", "Expected expression but found “then”."},
        {"if true then\nreturn 1", "Expected “end if” but found end of line."},
        {"if true\nend if", "Expected “then” but found end of line."},
        {"repeat with x\nend repeat", "Expected “from” but found end of line."},
        {"try\nend tell", "Expected expression but found “end tell”."},
        {"set x", "Expected “to” but found end of line."},
        {"set 1 to 2", "Expected a variable but found a value."},
        {"tell window 1", "Expected “application” but found “window”."},
        {"read 1", "Expected “as” but found end of line."},
        {"write 1 to 2 as text", "Expected “«class utf8»” but found “text”."},
        {"return message 1 whose name is 2", "Expected “every” before “whose” but found “name”."},
        {"return every thing", "Expected a class of elements but found end of line."},
        {"on run argv\nend run\nreturn 1", "Expected end of script but found “return”."},
    };
    for (const auto& [script, problem] : rows)
        EXPECT_EQ(resultOf(script), "syntax: " + problem) << script;
}

TEST(Syntax, AMistakeIsToldWithItsPlaceInCharacters) {
    const auto script = parsed("-- ü\nreturn then");
    const auto& error = std::get<SyntaxError>(script);
    EXPECT_EQ(error.range.from, 12u);
    EXPECT_EQ(error.range.to, 16u);
}

}  // namespace
}  // namespace brindlet::osascript
