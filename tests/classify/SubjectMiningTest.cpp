#include <gtest/gtest.h>

#include "NaiveMining.h"
#include "RandomSubjects.h"
#include "classify/Classifier.h"

namespace brindlet {
namespace {

using Words = Classifier::Words;
using Subjects = std::vector<std::string>;

Words words(std::string_view text) {
    return Classifier::subjectWords(text);
}

std::vector<Words> mined(const Subjects& subjects) {
    const auto templates = Classifier::mineTemplates(subjects);
    EXPECT_EQ(templates, naiveTemplates(subjects));
    return templates;
}

/// Each name says the sentence three times, so that name and sentence together are a phrase.
Subjects saidBy(const Subjects& names, const std::string& sentence) {
    Subjects subjects;
    for (int round = 0; round < 3; ++round)
        for (const auto& name : names) subjects.push_back(name + " " + sentence);
    return subjects;
}

void append(Subjects& subjects, std::size_t count, const std::string& subject) {
    subjects.insert(subjects.end(), count, subject);
}

TEST(MineTemplates, FewerThanThreeSubjectsHaveNone) {
    EXPECT_TRUE(mined({}).empty());
    EXPECT_EQ(mined({"has shipped has shipped has shipped"}), std::vector<Words>(1));
    EXPECT_EQ(mined(Subjects(2, "has shipped has shipped")), std::vector<Words>(2));
}

TEST(MineTemplates, PhraseOfThreeSubjectsIsTheirTemplate) {
    EXPECT_EQ(mined({"Order 1 has shipped!", "Order 2 has shipped", "order 3: HAS SHIPPED"}),
              std::vector<Words>(3, words("has shipped")));
}

TEST(MineTemplates, TwoOccurrencesAreTooFew) {
    EXPECT_EQ(mined({"has shipped", "has shipped", "other"}), std::vector<Words>(3));
}

TEST(MineTemplates, PhraseThatRepeatsInOneSubjectCountsEachTime) {
    EXPECT_EQ(mined({"very good, very good", "very good", "nothing"}),
              (std::vector<Words>{words("very good"), words("very good"), {}}));
}

TEST(MineTemplates, LongerPhraseWinsOverAMoreFrequentShorterOne) {
    Subjects subjects(3, "alpha beta gamma");
    append(subjects, 3, "alpha beta");
    append(subjects, 3, "mid lake");
    append(subjects, 3, "deep sea");
    append(subjects, 3, "old tree");
    const auto templates = mined(subjects);
    EXPECT_EQ(templates[0], words("alpha beta gamma"));
    EXPECT_EQ(templates[3], words("alpha beta"));
}

TEST(MineTemplates, TieGoesToTheAlphabeticallySmaller) {
    // Both pairs occur three times. Two templates alone would blank each other.
    const auto templates = mined({"zebra yak apple bear", "zebra yak", "apple bear", "apple bear",
                                  "zebra yak", "mid lake", "mid lake", "mid lake"});
    EXPECT_EQ(templates[0], words("apple bear"));
    EXPECT_EQ(templates[1], words("zebra yak"));
}

TEST(MineTemplates, AlphabetIsTheOrderOfCodePoints) {
    const auto templates = mined({"\u00e9 \u00e9 zz zz", "\u00e9 \u00e9", "\u00e9 \u00e9", "zz zz",
                                  "zz zz", "mid lake", "mid lake", "mid lake"});
    EXPECT_EQ(templates[0], words("zz zz"));
}

TEST(MineTemplates, LongestPhraseHasTwelveWords) {
    const std::string thirteen = "a1 b2 c3 d4 e5 f6 g7 h8 i9 j10 k11 l12 m13";
    EXPECT_EQ(mined(Subjects(3, thirteen))[0], words("a1 b2 c3 d4 e5 f6 g7 h8 i9 j10 k11 l12"));
}

/// "has shipped" behind so many words that no other subject has.
std::string behind(int fillers, int seed) {
    std::string text;
    for (int i = 0; i < fillers; ++i)
        text += "f" + std::to_string(seed) + "x" + std::to_string(i) + " ";
    return text + "has shipped";
}

TEST(MineTemplates, WordsPastTheTwentyFourthTakeNoPart) {
    EXPECT_EQ(mined({behind(22, 1), behind(22, 2), behind(22, 3)}),
              std::vector<Words>(3, words("has shipped")));
    EXPECT_EQ(mined({behind(23, 1), behind(23, 2), behind(23, 3)}), std::vector<Words>(3));
    EXPECT_TRUE(Classifier::templateOccurs(words("has shipped"), behind(23, 1)));
}

TEST(MineTemplates, ChangingNameIsTrimmedOffTheFront) {
    EXPECT_EQ(mined(saidBy({"ann", "bob", "cid", "dee", "eve"}, "has subscribed to you")),
              std::vector<Words>(15, words("has subscribed to you")));
}

TEST(MineTemplates, FourNamesAreTooFewToTrim) {
    const auto templates = mined(saidBy({"ann", "bob", "cid", "dee"}, "has subscribed to you"));
    EXPECT_EQ(templates[0], words("ann has subscribed to you"));
    EXPECT_EQ(templates[1], words("bob has subscribed to you"));
}

TEST(MineTemplates, StartOfTheSubjectCountsAsOneOfTheWordsBefore) {
    auto subjects = saidBy({"ann", "bob", "cid", "dee"}, "has subscribed to you");
    append(subjects, 3, "has subscribed to you");
    EXPECT_EQ(mined(subjects), std::vector<Words>(15, words("has subscribed to you")));
}

TEST(MineTemplates, PhraseMustEndNineTenthsOfItsSubjectsToBeTrimmedTo) {
    auto subjects = saidBy({"ann", "bob", "cid", "dee", "eve", "fay"}, "has subscribed to you");
    append(subjects, 1, "x has subscribed to you today");
    append(subjects, 1, "y has subscribed to you yesterday");
    // 18 of 20 are exactly enough.
    EXPECT_EQ(mined(subjects)[0], words("has subscribed to you"));
    append(subjects, 1, "z has subscribed to you again");
    EXPECT_EQ(mined(subjects)[0], words("ann has subscribed to you"));
}

TEST(MineTemplates, OneNameAboveAllIsNotChangeEnough) {
    Subjects subjects(400, "ann has subscribed to you");
    for (const auto& name : {"bob", "cid", "dee", "eve"})
        append(subjects, 1, std::string(name) + " has subscribed to you");
    EXPECT_EQ(mined(subjects)[0], words("ann has subscribed to you"));
}

TEST(MineTemplates, TemplateOfTwoWordsIsNeverTrimmed) {
    EXPECT_EQ(mined(saidBy({"ann", "bob", "cid", "dee", "eve"}, "waves"))[0], words("ann waves"));
}

TEST(MineTemplates, TemplateThatFewOfItsSubjectsChoseIsWithdrawn) {
    const auto family = [](std::size_t longOnes) {
        Subjects subjects(3, "alpha beta");
        append(subjects, longOnes, "alpha beta gamma");
        append(subjects, 3, "mid lake");
        append(subjects, 3, "deep sea");
        append(subjects, 3, "old tree");
        return mined(subjects);
    };
    // Three chose "alpha beta". It occurs nine times, which they are a third of, or ten times.
    EXPECT_EQ(family(6)[0], words("alpha beta"));
    EXPECT_EQ(family(7)[0], Words{});
    EXPECT_EQ(family(7)[3], words("alpha beta gamma"));
}

TEST(MineTemplates, ChoosersAreCountedAfterTheTrim) {
    // Not one subject chose "has subscribed to you" before the trim, and it occurs 15 times.
    auto subjects = saidBy({"ann", "bob", "cid", "dee", "eve"}, "has subscribed to you");
    append(subjects, 3, "mid lake");
    append(subjects, 3, "deep blue sea");
    const auto templates = mined(subjects);
    EXPECT_EQ(templates[0], words("has subscribed to you"));
    EXPECT_EQ(templates[15], words("mid lake"));
    EXPECT_EQ(templates[18], words("deep blue sea"));
}

TEST(MineTemplates, TwoTemplatesBlankEachOther) {
    // One is half of two, so that every word is common.
    Subjects subjects(3, "alpha beta");
    append(subjects, 3, "gamma delta");
    EXPECT_EQ(mined(subjects), std::vector<Words>(6));
    append(subjects, 3, "sigma tau");
    const auto templates = mined(subjects);
    EXPECT_EQ(templates[0], words("alpha beta"));
    EXPECT_EQ(templates[3], words("gamma delta"));
    EXPECT_EQ(templates[6], words("sigma tau"));
}

TEST(MineTemplates, SingleTemplateIsNeverBlanked) {
    EXPECT_EQ(mined(Subjects(3, "alpha beta")), std::vector<Words>(3, words("alpha beta")));
}

TEST(MineTemplates, TemplateOfSharedWordsAloneIsBlanked) {
    Subjects subjects(3, "alpha beta");
    append(subjects, 3, "alpha beta one");
    append(subjects, 3, "alpha beta two");
    const auto templates = mined(subjects);
    EXPECT_EQ(templates[0], Words{});
    EXPECT_EQ(templates[3], words("alpha beta one"));
    EXPECT_EQ(templates[6], words("alpha beta two"));
}

TEST(MineTemplates, AllAreBlankedWhenHalfOfThemShareEveryWord) {
    Subjects subjects(3, "alpha beta");
    append(subjects, 3, "beta alpha");
    append(subjects, 3, "alpha alpha");
    EXPECT_EQ(mined(subjects), std::vector<Words>(9));
}

TEST(MineTemplates, SubjectsOfOneWordOrNoneHaveNone) {
    EXPECT_EQ(mined({"one", "one", "one", ""}), std::vector<Words>(4));
    EXPECT_EQ(mined({"", "", ""}), std::vector<Words>(3));
}

TEST(MineTemplates, PhrasesDoNotCrossSubjects) {
    EXPECT_EQ(mined({"alpha", "beta", "alpha", "beta", "alpha", "beta"}), std::vector<Words>(6));
}

TEST(MineTemplates, GivesWhatPlainMapsGive) {
    for (std::uint32_t seed = 0; seed < 600; ++seed) {
        RandomSubjects random(seed);
        const auto subjects = random.family(random.below(seed % 20 == 0 ? 400 : 60));
        ASSERT_EQ(Classifier::mineTemplates(subjects), naiveTemplates(subjects)) << "seed " << seed;
    }
}

TEST(MineTemplates, RandomFamiliesHaveBothKinds) {
    // Without this the comparison above might never see a template.
    std::size_t with = 0;
    std::size_t without = 0;
    for (std::uint32_t seed = 0; seed < 100; ++seed) {
        RandomSubjects random(seed);
        for (const auto& found : Classifier::mineTemplates(random.family(50)))
            ++(found.empty() ? without : with);
    }
    EXPECT_GT(with, 500u);
    EXPECT_GT(without, 500u);
}

}  // namespace
}  // namespace brindlet
