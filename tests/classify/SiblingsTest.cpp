#include <gtest/gtest.h>

#include <algorithm>

#include "classify/Classifier.h"

namespace brindlet {
namespace {

using Words = Classifier::Words;
using Lists = std::vector<Words>;

Words words(std::string_view text) {
    return Classifier::subjectWords(text);
}

TEST(StopWords, AreThirtyTwoInTheirOrder) {
    const auto& all = Classifier::stopWords;
    EXPECT_EQ(all.size(), 32u);
    EXPECT_EQ(all.front(), "a");
    EXPECT_EQ(all[15], "was");
    EXPECT_EQ(all[16], "new");
    EXPECT_EQ(all.back(), "been");
    for (auto word = all.begin(); word != all.end(); ++word)
        EXPECT_EQ(std::count(all.begin(), all.end(), *word), 1) << *word;
}

TEST(SiblingSubjects, RankByDistinctiveWordsAndKeepTiesInOrder) {
    const Lists others{words("red boat sails"), words("green kite"),
                       words("blue boat"),      words("red boat blue sails kite"),
                       words("grey car"),       words("white car"),
                       words("black cart"),     words("pink cow"),
                       words("brown cow")};
    // "boat" stands in 3 of 9, "sails" and "red" in 2.
    EXPECT_EQ(Classifier::siblingSubjects(words("a red boat sails"), others, 10),
              (Lists{others[0], others[3], others[2]}));
    EXPECT_EQ(Classifier::siblingSubjects(words("a red boat sails"), others, 2),
              (Lists{others[0], others[3]}));
    EXPECT_TRUE(Classifier::siblingSubjects(words("a red boat sails"), others, 0).empty());
}

TEST(SiblingSubjects, LeaveOutListsEqualToTheWords) {
    const Lists others{words("red boat"), words("boat red"), words("tall tree"), words("old car"),
                       words("wet dog")};
    EXPECT_EQ(Classifier::siblingSubjects(words("red boat"), others, 5), (Lists{others[1]}));
}

TEST(SiblingSubjects, WordInHalfOfTheListsIsCommonAndCountsForNothing) {
    const Lists others{words("boat one"), words("boat two"), words("red three"), words("four")};
    EXPECT_EQ(Classifier::siblingSubjects(words("boat red"), others, 5), (Lists{others[2]}));
}

TEST(SiblingSubjects, RepeatsInOneListCountOnce) {
    const Lists others{words("boat boat boat"), words("red boat"), words("one"), words("two"),
                       words("three")};
    EXPECT_EQ(Classifier::siblingSubjects(words("red boat x"), others, 5),
              (Lists{others[1], others[0]}));
}

TEST(SiblingSubjects, StopWordsNeverCount) {
    const Lists others{words("your new boat"), words("your new car"), words("x"), words("y"),
                       words("z")};
    EXPECT_EQ(Classifier::siblingSubjects(words("your new car park"), others, 5),
              (Lists{others[1]}));
    EXPECT_TRUE(Classifier::siblingSubjects(words("your new"), others, 5).empty());
}

TEST(SiblingSubjects, NothingWhenEveryWordIsCommon) {
    // The rarest word stands in as distinctive, but being common it is never found.
    const Lists others{words("red boat"), words("red boat sails"), words("car"), words("red car")};
    EXPECT_TRUE(Classifier::siblingSubjects(words("red boat"), others, 5).empty());
}

TEST(SiblingSubjects, NothingFromNothing) {
    EXPECT_TRUE(Classifier::siblingSubjects({}, {words("red boat")}, 5).empty());
    EXPECT_TRUE(Classifier::siblingSubjects(words("red boat"), {}, 5).empty());
}

}  // namespace
}  // namespace brindlet
