#include "words/RuleWords.h"

#include <gtest/gtest.h>

#include <limits>

#include "words/Session.h"

namespace brindlet {
namespace {

struct RuleWordsOf : testing::Test {
    RuleWords words(const Rule& of, std::int64_t here = 0, bool marked = false) {
        return ruleWords(world.locale, of, here, marked);
    }
    doubles::World world;
    Rule rule = [] {
        Rule made;
        made.sender = "shop.example";
        made.hits = 1;
        return made;
    }();
};

TEST_F(RuleWordsOf, ThePillTellsTheVerdictAndOffersToFlipIt) {
    rule.verdict = Rule::Verdict::junk;
    EXPECT_EQ(words(rule).verdict, (Mark{"JUNK", Tone::orange, "Flip this rule"}));
    rule.verdict = Rule::Verdict::keep;
    EXPECT_EQ(words(rule).verdict, (Mark{"KEEP", Tone::green, "Flip this rule"}));
}

TEST_F(RuleWordsOf, MailOfTheLastScanIsCountedOnlyIfThereIsAny) {
    const std::pair<std::int64_t, const char*> rows[] = {
        {0, ""}, {1, "1 here"}, {6, "6 here"}, {12'345, "12,345 here"}};
    for (const auto& [here, text] : rows) EXPECT_EQ(words(rule, here).here, text);
}

TEST_F(RuleWordsOf, HitsAreToldFromTwoOn) {
    const std::pair<std::int64_t, const char*> rows[] = {
        {std::numeric_limits<std::int64_t>::min(), ""},
        {0, ""},
        {1, ""},
        {2, "×2"},
        {1'500, "×1,500"},
    };
    for (const auto& [hits, text] : rows) {
        rule.hits = hits;
        EXPECT_EQ(words(rule).hits, text) << hits;
    }
}

TEST_F(RuleWordsOf, TheLineTellsTheMarkBeforeTheHoldAndTheHoldBeforeTheScope) {
    EXPECT_EQ(words(rule).line, "Everything this sender ever sends");
    rule.legacy = true;
    EXPECT_EQ(words(rule).line, "Not being applied - Everything this sender ever sends");
    EXPECT_EQ(words(rule, 0, true).line, "Will be forgotten when you leave this screen");
    rule.legacy = false;
    EXPECT_EQ(words(rule, 0, true).line, "Will be forgotten when you leave this screen");
}

TEST_F(RuleWordsOf, TheScopeNamesTheCategoryAndTheTemplate) {
    rule.category = "receiptOrOrderOrShipping";
    EXPECT_EQ(words(rule).line,
              "Only their receipts & orders - their other mail is sorted normally");
    rule.templateWords = {"your", "order"};
    EXPECT_EQ(words(rule).line,
              "Only their receipts & orders saying “your order” - their other receipts & orders "
              "is sorted normally");
}

TEST_F(RuleWordsOf, AnUnknownCategoryReadsAsEverything) {
    rule.category = "nonsense";
    rule.templateWords = {"your", "order"};
    EXPECT_EQ(words(rule).line, "Everything this sender ever sends");
    rule.legacy = true;
    EXPECT_EQ(words(rule).line, "Not being applied - Everything this sender ever sends");
}

TEST_F(RuleWordsOf, OnlyAHeldRuleCanBeAppliedAgainAndOnlyASessionRuleMadePermanent) {
    EXPECT_FALSE(words(rule).held);
    EXPECT_FALSE(words(rule).ofSession);
    rule.legacy = true;
    EXPECT_TRUE(words(rule).held);
    rule.legacy = false;
    rule.scope = Rule::Scope::session;
    EXPECT_TRUE(words(rule).ofSession);
    EXPECT_FALSE(words(rule).marked);
    EXPECT_TRUE(words(rule, 0, true).marked);
}

TEST(RuleWords, NarrowingIsWorthItFromSixMessagesOn) {
    for (const std::size_t covered : {0U, 1U, 5U}) EXPECT_FALSE(worthNarrowing(covered)) << covered;
    for (const std::size_t covered : {6U, 7U, 50'000U})
        EXPECT_TRUE(worthNarrowing(covered)) << covered;
}

}  // namespace
}  // namespace brindlet
