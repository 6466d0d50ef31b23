#include "models/embedded/PlainText.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

namespace brindlet {
namespace {

struct Row {
    std::string text;
    std::string result;
};

TEST(Undressed, TakesApartWhatMailProgramsAdd) {
    const std::vector<Row> rows{
        {"", ""},
        {"plain words stay", "plain words stay "},
        {"two   blanks\tand\na line", "two blanks and a line "},
        // Escapes, and lines broken in the middle of a word.
        {"caf=C3=A9 at 5=3D5", "caf\xC3\xA9 at 5=5 "},
        {"unin= terrupted", "uninterrupted "},
        {"a=b =z =4 =", "a=b =z =4 "},
        {"q?a=ad&b", "q?a=ad&b "},
        // Part headers go with their values and parameters.
        {"--b1_0a9c84f21d77 Content-Type: text/plain; charset=utf-8 "
         "Content-Transfer-Encoding: 7bit Hello",
         "Hello "},
        {"Content-Type: text/plain Hello", "Hello "},
        {"Content-Type: text/html; format=flowed; delsp=yes Hello", "Hello "},
        {"the content-type matters", "the content-type matters "},
        {"-- Ada", "-- Ada "},
        {"----------------", "---------------- "},
    };
    for (const auto& row : rows) EXPECT_EQ(undressed(row.text), row.result) << row.text;
}

TEST(Undressed, DecodesRunsOfBase64AndWipesTheirTags) {
    EXPECT_EQ(undressed("see PGh0bWw+PGJvZHk+SGVsbG8gdGhlcmUsIHRoZSBtZWV0aW5nIGhhcyBtb3ZlZCB0 "
                        "byA0IG8nY2xvY2suPC9ib2R5PjwvaHRtbD4= ."),
              "see   Hello there, the meeting has moved to 4 o'clock.   . ");
}

TEST(Undressed, LongWordsThatAreNoBase64Stay) {
    const std::string letters(80, 'a');
    EXPECT_EQ(undressed(letters), letters + " ");
    const std::string path = "/usr/share/Some/Path1/" + std::string(60, 'x') + ".txt";
    EXPECT_EQ(undressed(path), path + " ");
}

TEST(Folded, MakesTypographyPlain) {
    const std::vector<Row> rows{
        {"Don\u2019t \u201CSHOUT\u201D", "don't \"shout\""},
        {"a\u00A0b\u2003c\u202Fd", "a b c d"},
        {"5\u20137 \u2014 x", "5-7 - x"},
        {"in\u200Bvis\u200Cible\u00AD\u034F\uFEFF", "invisible"},
        {"\u00C4RGER, Stra\u00DFe, \u0141\u00F3d\u017A, \u0152uvre, \u00C6r\u00F8",
         "arger, strasse, lodz, oeuvre, aero"},
        {"\u041F\u0440\u0438 2\u00D73", "\u041F\u0440\u0438 2\u00D73"},
        // The older western character sets, as quoted-printable brings them.
        {"caf\xE9 \x93"
         "au lait\x94 \x80"
         "5 it\x92s",
         "cafe \"au lait\" \u20AC5 it's"},
        {"\xFF", "y"},
    };
    for (const auto& row : rows) EXPECT_EQ(folded(row.text), row.result) << row.text;
}

}  // namespace
}  // namespace brindlet
