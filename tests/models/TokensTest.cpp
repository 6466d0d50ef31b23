#include "models/embedded/Tokens.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

namespace brindlet {
namespace {

std::string joined(const std::string& text, std::size_t limit = 100) {
    std::string out;
    for (const auto token : tokens(text, limit)) {
        if (!out.empty()) out += ' ';
        out += token;
    }
    return out;
}

TEST(Tokens, AreWordsAndMarks) {
    struct Row {
        std::string text;
        std::string result;
    };
    const std::vector<Row> rows{
        {"", ""},
        {"don't stop", "don't stop"},
        {"'quoted' words'", "quoted words"},
        {"l'abonnement dell'ordine it's o'clock", "abonnement ordine it's o'clock"},
        {"caf\xC3\xA9", "caf\xC3\xA9"},
        {"see https://a.test/x?y=1 now", "see #url now"},
        {"www.a.test", "#url"},
        {"ask me@a.test now", "ask #address now"},
        {"code 123456, or 7", "code #n6 or #n1"},
        {"123456789012", "#n10"},
        {"at 10:30 on 3/4/2025", "at #time on #date"},
        {"1,234.50", "#dec"},
        {"$5", "#money #n1"},
        {"\xE2\x82\xAC"
         "5 \xC2\xA3"
         "6",
         "#money #n1 #money #n1"},
        {"30% off", "#pct off"},
        {"a1b2 1z9", "a #mixed #mixed"},
        {"wow!!! really??", "wow #bang really #ask"},
        {"> said", "#quoted said"},
        {"\"title\"", "#quote title #quote"},
        {"[list] #4", "#bracket list #hash #n1"},
        {"-----", "#rule"},
        {"\xF0\x9F\x94\xA5\xF0\x9F\x94\xA5 sale", "#picture sale"},
        {"\xF0", "#picture"},
        {"abcdefghijklmnopqrstuvwxyz", "#long"},
    };
    for (const auto& row : rows) EXPECT_EQ(joined(row.text), row.result) << row.text;
}

TEST(Tokens, StopAtTheLimit) {
    EXPECT_EQ(joined("one two three", 2), "one two");
}

}  // namespace
}  // namespace brindlet
