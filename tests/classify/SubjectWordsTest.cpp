#include <gtest/gtest.h>

#include "RandomSubjects.h"
#include "base/Text.h"
#include "classify/Classifier.h"

namespace brindlet {
namespace {

using Words = Classifier::Words;

TEST(SubjectWords, AreLowerCasedRunsOfLettersNumbersAndApostrophes) {
    const struct {
        const char* subject;
        Words words;
    } table[] = {
        {"", {}},
        {" \t - \u2013 !?", {}},
        {"Your Weekly REPORT", {"your", "weekly", "report"}},
        {"don't", {"don't"}},
        {"'tis '' o'", {"'tis", "''", "o'"}},
        {"re: Fwd:x", {"re", "fwd", "x"}},
        {"a_b-c.d/e", {"a", "b", "c", "d", "e"}},
        {"#1234 50% 2FA", {"1234", "50", "2fa"}},
        // The curly apostrophe is none.
        {"it\u2019s ok", {"it", "s", "ok"}},
        {"Caf\u00e9 \u00dcn\u00efcode", {"caf\u00e9", "\u00fcn\u00efcode"}},
        // Accents apart belong to their letter, and stay apart.
        {"E\u0301te\u0301 x", {"e\u0301te\u0301", "x"}},
        // A mark without a letter joins what stands before it, here a blank.
        {"a \u0301b", {"a", "b"}},
        // An accented apostrophe is no straight one.
        {"a'\u0301b", {"a", "b"}},
        {"\u0393\u0395\u0399\u0391 \u03a3\u039f\u03a6\u039f\u03a3",
         {"\u03b3\u03b5\u03b9\u03b1", "\u03c3\u03bf\u03c6\u03bf\u03c2"}},
        {"\u0130stanbul", {"i\u0307stanbul"}},
        {"STRASSE Stra\u00dfe", {"strasse", "stra\u00dfe"}},
        // Numbers in other scripts, fractions, raised digits.
        {"\u0663\u0664 \u0967\u0968", {"\u0663\u0664", "\u0967\u0968"}},
        {"\u00bd x\u00b2 \u2163", {"\u00bd", "x\u00b2", "\u2173"}},
        {"\u6ce8\u6587\u756a\u53f712\u3002\u767a\u9001",
         {"\u6ce8\u6587\u756a\u53f712", "\u767a\u9001"}},
        {"\uc8fc\ubb38 \u1112\u1161\u11ab", {"\uc8fc\ubb38", "\u1112\u1161\u11ab"}},
        // A picture is no letter, even with a joiner and one more picture behind it.
        {"a\U0001F600b \U0001F469\u200d\U0001F680 c", {"a", "b", "c"}},
        // A joiner behind a letter belongs to it.
        {"a\u200db", {"a\u200db"}},
        {"one\r\ntwo\nthree", {"one", "two", "three"}},
        {"a\u00a0b\u3000c", {"a", "b", "c"}},
    };
    for (const auto& [subject, expected] : table)
        EXPECT_EQ(Classifier::subjectWords(subject), expected) << subject;
}

TEST(SubjectWords, CrossBlocksOfEightAndSixtyFour) {
    for (std::size_t length = 0; length < 200; ++length) {
        const std::string word(length, 'Q');
        const std::string lowered(length, 'q');
        SCOPED_TRACE(length);
        EXPECT_EQ(Classifier::subjectWords(word), length == 0 ? Words{} : Words{lowered});
        EXPECT_EQ(Classifier::subjectWords(word + " x"),
                  length == 0 ? Words{"x"} : (Words{lowered, "x"}));
        EXPECT_EQ(Classifier::subjectWords(word + "."), length == 0 ? Words{} : Words{lowered});
    }
}

TEST(SubjectWords, EveryAsciiCharacterExtendsOrEnds) {
    for (int c = 0; c < 0x80; ++c) {
        const std::string middle = std::string("ab") + static_cast<char>(c) + "cd";
        const bool joins =
            (c >= '0' && c <= '9') || (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z') || c == '\'';
        const std::string low(1, static_cast<char>(c >= 'A' && c <= 'Z' ? c + 32 : c));
        EXPECT_EQ(Classifier::subjectWords(middle),
                  joins ? Words{"ab" + low + "cd"} : (Words{"ab", "cd"}))
            << c;
    }
}

TEST(SubjectWords, AreTheLetterNumberWordsOfTheLoweredText) {
    RandomSubjects random(1);
    for (int round = 0; round < 20'000; ++round) {
        const auto subject = random.text();
        ASSERT_EQ(Classifier::subjectWords(subject),
                  letterNumberWords(lowercased(subject), Apostrophe::joins))
            << subject;
    }
}

TEST(TemplateOccurs, WantsOneUnbrokenRun) {
    const struct {
        Words words;
        const char* subject;
        bool occurs;
    } table[] = {
        {{}, "", true},
        {{}, "anything", true},
        {{"has", "shipped"}, "", false},
        {{"has", "shipped"}, "Order 17 HAS shipped!", true},
        {{"has", "shipped"}, "has-shipped", true},
        {{"has", "shipped"}, "has now shipped", false},
        {{"has", "shipped"}, "shipped has", false},
        {{"has", "shipped"}, "has has shipped", true},
        {{"has", "shipped"}, "hash shipped", false},
        {{"has", "shipped"}, "has", false},
        {{"don't"}, "I don't", true},
        {{"don't"}, "I don\u2019t", false},
        // Word lists hold lowered words; anything else is found nowhere.
        {{"Has"}, "Has", false},
    };
    for (const auto& [words, subject, occurs] : table) {
        EXPECT_EQ(Classifier::templateOccurs(words, subject), occurs) << subject;
        EXPECT_EQ(Classifier::templateOccurs(words, Classifier::subjectWords(subject)), occurs)
            << subject;
    }
}

TEST(TemplateOccurs, LooksBeyondTheTwentyFourWordsOfMining) {
    std::string subject;
    for (int i = 0; i < 40; ++i) subject += "word" + std::to_string(i) + " ";
    EXPECT_TRUE(Classifier::templateOccurs({"word38", "word39"}, subject));
}

}  // namespace
}  // namespace brindlet
