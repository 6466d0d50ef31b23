#include "sample/Templates.h"

#include <gtest/gtest.h>

#include <set>

namespace brindlet::sample {
namespace {

const WordLists words("# a remark\nfruit: pear|plum|fig\n\ncode: *##|^-#\n");
const Person sender{"Nora Vance", "nora@pinebrook.example"};
const Person recipient{"Robin Ashdown", "robin@fernhill.example"};
// 14 January 2026
constexpr std::int64_t moment = 1'768'392'000;

std::string filled(std::string_view text, std::uint64_t key = 1) {
    return Template(text, words).filled({words, key, sender, recipient, moment});
}

TEST(Template, TakesWhatTheMessageItselfSays) {
    EXPECT_EQ(filled("{me} of {domain} to {you}, from {brand}"),
              "Nora of pinebrook.example to Robin, from Nora Vance");
    EXPECT_EQ(filled("{today} {year}, {season}"), "14 January 2026, winter");
    EXPECT_EQ(filled("{month}"), "December");
}

TEST(Template, OneMessageHasOneWordForOnePlace) {
    const std::string twice = filled("{fruit} {fruit}");
    EXPECT_EQ(twice.substr(0, twice.find(' ')), twice.substr(twice.find(' ') + 1));
    std::set<std::string> all;
    for (std::uint64_t key = 0; key < 40; ++key) all.insert(filled("{fruit}", key));
    EXPECT_EQ(all, (std::set<std::string>{"pear", "plum", "fig"}));
}

TEST(Template, FurtherTurnsOfAListGiveOtherWords) {
    for (std::uint64_t key = 0; key < 20; ++key) {
        const std::set<std::string> three{filled("{fruit}", key), filled("{fruit2}", key),
                                          filled("{fruit3}", key)};
        EXPECT_EQ(three.size(), 3u) << key;
    }
}

TEST(Template, MarksInWordsBecomeDigitsAndLetters) {
    for (std::uint64_t key = 0; key < 20; ++key) {
        const std::string code = filled("{code}", key);
        ASSERT_EQ(code.size(), 3u);
        if (code[1] == '-')
            EXPECT_TRUE(code[0] >= 'A' && code[0] <= 'Z') << code;
        else
            EXPECT_TRUE(code[0] >= '1' && code[0] <= '9') << code;
        EXPECT_TRUE(code[2] >= '0' && code[2] <= '9') << code;
    }
}

TEST(Template, UnknownAndUnfinishedPlacesStayAsWritten) {
    EXPECT_EQ(filled("a {nothing} b"), "a {nothing} b");
    EXPECT_EQ(filled("a {fruit"), "a {fruit");
    EXPECT_EQ(filled("plain"), "plain");
}

TEST(Person, IsShownWithItsNameWhereThereIsOne) {
    EXPECT_EQ(sender.shown(), "Nora Vance <nora@pinebrook.example>");
    EXPECT_EQ((Person{"", "a@b.example"}).shown(), "a@b.example");
    EXPECT_EQ((Person{"", "nowhere"}).domain(), "localhost.example");
}

}  // namespace
}  // namespace brindlet::sample
