#include <gtest/gtest.h>

#include "InProcess.h"

namespace brindlet::osascript {
namespace {

struct Row {
    std::string expression;
    std::string result;
};

void expectAll(const std::vector<Row>& rows) {
    for (const auto& [expression, result] : rows)
        EXPECT_EQ(resultOf("return " + expression), result) << expression;
}

TEST(Language, OperatorsBindAsTheLanguageSays) {
    expectAll({
        {"1 + 12 mod 10", "3"},
        {"\"a\" & 1 + 2", "a3"},
        // `as` takes all that was joined before it.
        {"length of (\"1\" & 2 as string)", "2"},
        {"\"1\" & \"2\" as integer", "12"},
        {"class of (1 & 2 as string) is list", "false"},
        // Comparisons come after `as`, `not` after them, `and` last.
        {"\"12\" as integer > 3", "true"},
        {"not 1 is 2", "true"},
        {"not 1 is 1 and false", "false"},
        {"true and 2 > 1", "true"},
        // `of` binds tighter than everything.
        {"length of \"abc\" + 1", "4"},
        {"item 1 of {\"x\"} & \"y\"", "xy"},
    });
}

TEST(Language, AndDoesNotLookAtTheRightSideInVain) {
    expectAll({{"false and nothing", "false"},
               {"true and nothing", "(-2753) The variable nothing is not defined."},
               {"1 and true", "(-1700) Can’t make 1 into type boolean."}});
}

TEST(Language, TextsAreEqualWhateverTheirLetterCase) {
    expectAll({
        {"\"Junk\" is \"JUNK\"", "true"},
        {"\"ÜBER\" is \"über\"", "true"},
        {"\"a\" is \"b\"", "false"},
        {"\"a\" is not \"A\"", "false"},
        {"\"Say Hello\" contains \"hello\"", "true"},
        {"\"Say Hello\" does not contain \"HELLO\"", "false"},
        {"\"x\" contains \"\"", "true"},
        {"{\"A\", \"b\"} contains \"a\"", "true"},
    });
}

TEST(Language, ValuesOfDifferentKindsAreNeverEqual) {
    expectAll({
        {"1 is \"1\"", "false"},
        {"true is \"true\"", "false"},
        {"missing value is \"\"", "false"},
        {"missing value is false", "false"},
        {"missing value is missing value", "true"},
        {"{1} is 1", "false"},
        {"{1, {\"A\"}} is {1, {\"a\"}}", "true"},
        {"{1} is {1, 2}", "false"},
    });
}

TEST(Language, AListContainsAListAsItsPart) {
    expectAll({
        {"{1, 2, 3} contains {2, 3}", "true"},
        {"{1, 2, 3} contains {1, 3}", "false"},
        {"{1, 2} contains {}", "true"},
        {"{} contains 1", "false"},
        {"{{1}, 2} contains {1}", "false"},
        {"{{1}, 2} contains {{1}}", "true"},
        {"12 contains 1", "(-1700) Can’t make 12 into type list."},
    });
}

TEST(Language, JoiningMakesATextOfATextAndAListOfAllElse) {
    expectAll({
        {"\"a\" & 1 & true", "a1true"},
        {"\"a\" & missing value", "amissing value"},
        {"class of (1 & \"a\") is list", "true"},
        {"count of (1 & \"a\" & {2, 3})", "4"},
        {"\"a\" & {\"b\", \"c\"}", "abc"},
    });
}

TEST(Language, CoercionsMakeTextsAndNumbers) {
    expectAll({
        {"12 as string", "12"},
        {"false as text", "false"},
        {"{1, 2} as string", "12"},
        {"\"  -7\" as integer", "-7"},
        {"\"7x\" as integer", "(-1700) Can’t make \"7x\" into type integer."},
        {"\"\" as integer", "(-1700) Can’t make \"\" into type integer."},
        {"true as integer", "(-1700) Can’t make true into type integer."},
        {"{a:1} as text", "(-1700) Can’t make {a:1} into type text."},
    });
}

TEST(Language, NumbersOverflowWithAnError) {
    expectAll(
        {{"9223372036854775807 + 1", "(-2702) The result of a numeric operation was too large."},
         {"5 mod 0", "(-2701) Can’t divide 5 by zero."},
         {"7 mod 3", "1"},
         {"2 ≥ 2", "true"},
         {"2 > 2", "false"}});
}

TEST(Language, LengthsCountCharactersAndItems) {
    expectAll({{"length of \"\"", "0"},
               {"length of \"äe\u0301\"", "2"},
               {"length of {1, 2}", "2"},
               {"count of \"abc\"", "3"},
               {"count of {}", "0"},
               {"class of {} is list", "true"},
               {"class of \"\" is list", "false"},
               {"length of 12", "(-1728) Can’t get length of 12."}});
}

TEST(Language, ItemsCountFromOne) {
    expectAll({{"item 2 of {1, 2}", "2"},
               {"item 3 of {1, 2}", "(-1728) Can’t get item 3 of {1, 2}."},
               {"item 0 of {1, 2}", "(-1728) Can’t get item 0 of {1, 2}."}});
}

TEST(Language, DelimitersSplitAndJoinUntilTheyAreSetAgain) {
    EXPECT_EQ(resultOf("set AppleScript's text item delimiters to tab\n"
                       "set parts to text items of \"7\\ta\\tb\"\n"
                       "set AppleScript's text item delimiters to \"-\"\n"
                       "return ((count of parts) as string) & parts"),
              "37-a-b");
}

TEST(Language, DelimitersSurviveAnError) {
    EXPECT_EQ(resultOf("try\n"
                       "set AppleScript's text item delimiters to \"+\"\n"
                       "error \"x\"\n"
                       "end try\n"
                       "return {1, 2} as string"),
              "1+2");
}

TEST(Language, PiecesOfTextAreCounted) {
    const auto pieces = [](const std::string& text, const std::string& delimiter) {
        return resultOf("set AppleScript's text item delimiters to " + delimiter +
                        "\nreturn count of (text items of " + text + ")");
    };
    // A text that is empty, or ends in a delimiter, has an empty piece.
    EXPECT_EQ(pieces("\"\"", "linefeed"), "1");
    EXPECT_EQ(pieces("\"a\\nb\\n\"", "linefeed"), "3");
    EXPECT_EQ(pieces("\"abc\"", "\"\""), "3");
    EXPECT_EQ(pieces("\"\"", "\"\""), "1");
    EXPECT_EQ(pieces("\"abc\"", "\"bc\""), "2");
}

TEST(Language, AListIsSharedByAllThatHoldIt) {
    EXPECT_EQ(resultOf("set a to {}\nset b to a\nset end of b to 1\nreturn count of a"), "1");
    EXPECT_EQ(resultOf("set a to 1\nset end of a to 2"), "(-10006) Can’t set end of 1.");
}

TEST(Language, ALoopsVariableIsAReferenceAndNotTheItem) {
    EXPECT_EQ(resultOf("set out to \"\"\n"
                       "repeat with x in {\"a\", \"b\"}\n"
                       "if x is \"a\" then set out to out & \"bare \"\n"
                       "if (x as string) is \"a\" then set out to out & \"text \"\n"
                       "set out to out & length of x\n"
                       "end repeat\n"
                       "return out"),
              "text 11");
}

TEST(Language, LoopsCountAndEndEarly) {
    EXPECT_EQ(resultOf("set n to 0\n"
                       "repeat with i from 3 to 10\n"
                       "set n to n + i\n"
                       "if i ≥ 5 then exit repeat\n"
                       "end repeat\n"
                       "return n"),
              "12");
    EXPECT_EQ(resultOf("repeat with i from 2 to 1\nerror \"never\"\nend repeat\nreturn 1"), "1");
    EXPECT_EQ(resultOf("repeat with x in \"ab\"\nend repeat"),
              "(-1700) Can’t make \"ab\" into type list.");
}

TEST(Language, ExitRepeatLeavesTheInnermostLoopThroughItsTry) {
    EXPECT_EQ(resultOf("set n to 0\n"
                       "repeat with i from 1 to 3\n"
                       "repeat with k from 1 to 3\n"
                       "try\n"
                       "exit repeat\n"
                       "on error\n"
                       "set n to n + 100\n"
                       "end try\n"
                       "end repeat\n"
                       "set n to n + 1\n"
                       "end repeat\n"
                       "return n"),
              "3");
}

TEST(Language, BranchesAreTriedInTurn) {
    const std::string script =
        "on run argv\n"
        "set n to (item 1 of argv) as integer\n"
        "if n is 1 then\n"
        "return \"one\"\n"
        "else if n is 2 then\n"
        "return \"two\"\n"
        "else\n"
        "return \"many\"\n"
        "end if\n"
        "end run";
    EXPECT_EQ(resultOf(script, {"1"}), "one");
    EXPECT_EQ(resultOf(script, {"2"}), "two");
    EXPECT_EQ(resultOf(script, {"3"}), "many");
    EXPECT_EQ(resultOf("if 1 then return 2"), "(-1700) Can’t make 1 into type boolean.");
}

TEST(Language, ErrorsAreCaughtAndRaisedAnew) {
    EXPECT_EQ(resultOf("error \"No \" & 7"), "(-2700) No 7");
    EXPECT_EQ(resultOf("try\nerror \"x\"\non error\nreturn \"caught\"\nend try"), "caught");
    EXPECT_EQ(resultOf("try\nerror \"x\"\non error\nerror \"y\"\nend try"), "(-2700) y");
    EXPECT_EQ(resultOf("try\nerror \"x\"\nend try\nreturn \"on\""), "on");
}

TEST(Language, AnErrorTellsTheInnermostStatementsPlace) {
    const auto place = [](const std::string& source) {
        BareSurroundings surroundings;
        const auto outcome = Interpreter(surroundings).run(std::get<Script>(parsed(source)), {});
        const Range range = std::get<Failure>(outcome).range;
        return std::to_string(range.from) + ':' + std::to_string(range.to);
    };
    EXPECT_EQ(place("error \"x\""), "0:9");
    // Characters count, not bytes.
    EXPECT_EQ(place("-- «ü»\nif true then\n  error \"x\"\nend if"), "22:31");
    EXPECT_EQ(place("try\nerror \"x\"\nend try\nerror \"y\""), "22:31");
    EXPECT_EQ(place("if 1 then return 2"), "0:9");
}

TEST(Language, WithoutAReturnTheLastExpressionIsTheResult) {
    EXPECT_EQ(resultOf("1 + 1"), "2");
    EXPECT_EQ(resultOf("\"a\"\nset x to \"b\""), "a");
    EXPECT_EQ(resultOf(""), "nothing");
    EXPECT_EQ(resultOf("return \"\""), "");
    EXPECT_EQ(resultOf("return {1, \"b\"}"), "1, b");
}

TEST(Language, CommentsContinuationsAndLetterCaseDoNotMatter) {
    EXPECT_EQ(resultOf("SET x TO \"--\" ¬ \n  & 1 -- and so on\nReturn X"), "--1");
    EXPECT_EQ(resultOf("return \"\\\"q\\\"\\\\ \\t\""), "\"q\"\\ \t");
}

TEST(Language, NobodyIsToldOnAMachineWithoutApplications) {
    EXPECT_EQ(resultOf("tell application \"Mail\"\nactivate\nend tell"),
              "(-600) Application “Mail” isn’t running.");
    EXPECT_EQ(resultOf("activate"), "(-1708) Nobody is told to do this.");
    EXPECT_EQ(resultOf("count of accounts"), "(-1728) Can’t get account.");
    EXPECT_EQ(resultOf("move 1 to 2"), "(-1708) 1 doesn’t understand this message.");
}

TEST(Language, DelaysAreTheSurroundings) {
    BareSurroundings surroundings;
    Interpreter(surroundings).run(std::get<Script>(parsed("delay 3\ndelay 1 + 1")), {});
    EXPECT_EQ(surroundings.waited, 5);
}

}  // namespace
}  // namespace brindlet::osascript
