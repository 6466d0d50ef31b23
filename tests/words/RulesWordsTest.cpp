#include "words/RulesWords.h"

#include <gtest/gtest.h>

#include "words/Session.h"

namespace brindlet {
namespace {

Rule ruleFor(std::string sender, Rule::Scope scope, bool held = false) {
    Rule rule;
    rule.sender = std::move(sender);
    rule.scope = scope;
    rule.legacy = held;
    return rule;
}

std::vector<Rule> rules(int count, Rule::Scope scope, bool held = false) {
    std::vector<Rule> made;
    for (int i = 0; i < count; ++i)
        made.push_back(ruleFor(std::to_string(i) + ".example", scope, held));
    return made;
}

TEST(RulesWords, CountsLeaveOutWhatThereIsNoneOf) {
    const struct {
        int held;
        int live;
        int learned;
        const char* counts;
    } rows[] = {
        {0, 0, 0, "Corrections you make become rules here."},
        {1, 0, 0, "1 need a look"},
        {0, 2, 0, "2 always"},
        {0, 0, 3, "3 learned"},
        // The held ones are always rules too, and are counted apart.
        {1, 2, 0, "1 need a look · 2 always"},
        {0, 1, 1, "1 always · 1 learned"},
        {2, 0, 1, "2 need a look · 1 learned"},
        {1, 1'234, 5, "1 need a look · 1,234 always · 5 learned"},
    };
    for (const auto& row : rows) {
        SCOPED_TRACE(row.counts);
        Session session;
        auto all = rules(row.held, Rule::Scope::always, true);
        for (auto& rule : rules(row.live, Rule::Scope::always)) all.push_back(std::move(rule));
        session->rules.all.set(all);
        session->rules.session.set(rules(row.learned, Rule::Scope::session));
        EXPECT_EQ(rulesWords(session).counts, row.counts);
        EXPECT_EQ(rulesWords(session).canForgetAll, row.held + row.live > 0);
    }
}

TEST(RulesWords, TheNoteStandsOnlyWithoutRulesAndWithoutFlips) {
    constexpr auto note =
        "Nothing yet. Untick a message Brindlet got wrong and it learns one for that kind of mail "
        "from that sender.";
    Session session;
    EXPECT_EQ(rulesWords(session).nothing, note);
    session.flip(Category::newsletterOrDigest, Rule::Verdict::keep, 11);
    EXPECT_EQ(rulesWords(session).nothing, note) << "not flipped yet";
    session.flip(Category::newsletterOrDigest, Rule::Verdict::keep);
    EXPECT_EQ(rulesWords(session).nothing, "");
    EXPECT_EQ(rulesWords(session).counts, "Corrections you make become rules here.")
        << "a flip is no rule";
    session->calibration.mute(Category::newsletterOrDigest);
    EXPECT_EQ(rulesWords(session).nothing, note);
    session->rules.session.set(rules(1, Rule::Scope::session));
    EXPECT_EQ(rulesWords(session).nothing, "");
    session->rules.forget(session->rules.session->front());
    EXPECT_EQ(rulesWords(session).nothing, note) << "the last rule is gone";
}

TEST(RuleSections, StandInTheirOrderWithTheirNotes) {
    Session session;
    const auto held = ruleFor("held.example", Rule::Scope::always, true);
    const auto live = ruleFor("live.example", Rule::Scope::always);
    const auto other = ruleFor("other.example", Rule::Scope::always);
    const auto learned = ruleFor("learned.example", Rule::Scope::session);
    session->rules.all.set({live, held, other});
    session->rules.session.set({learned});
    const std::vector<RuleSection> expected = {
        {"NEEDS A LOOK", "written by a bug - not being applied until you say so", {held}},
        {"ALWAYS", "kept between launches, and used by every mailbox", {live, other}},
        {"LEARNED FROM YOUR TICKS",
         "made automatically as you correct - kept until you remove them",
         {learned}},
    };
    EXPECT_EQ(ruleSections(session), expected);
}

TEST(RuleSections, AnEmptyOneDoesNotStand) {
    Session session;
    EXPECT_TRUE(ruleSections(session).empty());
    session->rules.session.set(rules(2, Rule::Scope::session));
    ASSERT_EQ(ruleSections(session).size(), 1U);
    EXPECT_EQ(ruleSections(session).front().label, "LEARNED FROM YOUR TICKS");
}

TEST(RuleSections, ForgetAllLeavesWhatWasLearnedFromTicks) {
    Session session;
    session->rules.all.set(rules(2, Rule::Scope::always));
    session->rules.session.set(rules(2, Rule::Scope::session));
    session->rules.forgetAll();
    ASSERT_EQ(ruleSections(session).size(), 1U);
    EXPECT_EQ(ruleSections(session).front().label, "LEARNED FROM YOUR TICKS");
}

TEST(RuleCategories, AreAnyKindAndAllThatTheModelCanTell) {
    const auto categories = ruleCategories();
    ASSERT_EQ(categories.size(), allCases<Category>().size());
    EXPECT_EQ(categories.front(), std::nullopt);
    EXPECT_EQ(ruleCategoryLabel(categories.front()), "any kind of mail");
    for (std::size_t i = 1; i < categories.size(); ++i) {
        EXPECT_EQ(categories[i], allCases<Category>()[i - 1]);
        EXPECT_EQ(ruleCategoryLabel(categories[i]), displayName(*categories[i]));
        EXPECT_NE(categories[i], Category::cannotTell);
    }
}

}  // namespace
}  // namespace brindlet
