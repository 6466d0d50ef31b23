#include "stores/Rules.h"

#include <gtest/gtest.h>

#include "base/Text.h"
#include "stores/StoreWorld.h"

namespace brindlet {
namespace {

using Verdict = Rule::Verdict;
using Scope = Rule::Scope;

constexpr auto anyCategory = std::optional<Category>();
const std::vector<std::string> anySubject;

struct RulesWorld : StoreWorld {
    Rules rules{services()};

    Rule add(Verdict verdict, Scope scope, std::string_view example = "Sale") {
        const auto rule = rules.add("bob@shop.example", Category::newsletterOrDigest, verdict,
                                    scope, example, {"weekly", "digest"});
        EXPECT_TRUE(rule);
        return *rule;
    }
    /// What the next start would find.
    Rules reloaded() { return Rules(services()); }
};

TEST(RuleId, NamesTargetAndScope) {
    Rule rule;
    rule.sender = "shop.example";
    EXPECT_EQ(rule.id(), "shop.example|*||always");
    rule.category = "billOrPayment";
    rule.templateWords = {"your", "bill"};
    rule.scope = Scope::session;
    EXPECT_EQ(rule.id(), "shop.example|billOrPayment|your bill|session");
}

TEST(RuleScopeText, TellsHowFarTheRuleReaches) {
    Rule rule;
    EXPECT_EQ(rule.scopeText(), "Everything this sender ever sends");
    rule.templateWords = {"your", "bill"};
    EXPECT_EQ(rule.scopeText(), "Everything this sender ever sends") << "a pattern, no category";
    rule.category = "nonsense";
    EXPECT_EQ(rule.scopeText(), "Everything this sender ever sends") << "an unknown category";

    rule.category = rawValue(Category::newsletterOrDigest);
    const std::string label = lowercased(displayName(Category::newsletterOrDigest));
    EXPECT_EQ(rule.scopeText(), "Only their " + label +
                                    " saying \u201cyour bill\u201d - their other " + label +
                                    " is sorted normally");
    rule.templateWords.clear();
    EXPECT_EQ(rule.scopeText(), "Only their " + label + " - their other mail is sorted normally");
}

TEST(RulesAdd, MakesARuleOfOneHit) {
    RulesWorld world;
    const auto rule = world.add(Verdict::junk, Scope::always, "Weekly digest 7");
    EXPECT_EQ(rule.sender, "bob@shop.example");
    EXPECT_EQ(rule.category, "newsletterOrDigest");
    EXPECT_EQ(rule.verdict, Verdict::junk);
    EXPECT_EQ(rule.scope, Scope::always);
    EXPECT_EQ(rule.hits, 1);
    EXPECT_EQ(rule.created, world.clock.now());
    EXPECT_EQ(rule.example, "Weekly digest 7");
    EXPECT_EQ(rule.templateWords, (std::vector<std::string>{"weekly", "digest"}));
    EXPECT_FALSE(rule.legacy);
    EXPECT_EQ(*world.rules.all, std::vector{rule});
    EXPECT_EQ(*world.reloaded().all, std::vector{rule});
}

TEST(RulesAdd, TheSameDecisionAgainAddsAHit) {
    RulesWorld world;
    const auto first = world.add(Verdict::junk, Scope::always, "first");
    world.clock.advance(60);
    const auto again = world.add(Verdict::junk, Scope::always, "again");
    EXPECT_EQ(again.hits, 2);
    EXPECT_EQ(again.created, first.created);
    EXPECT_EQ(again.example, "first");
    EXPECT_EQ(*world.rules.all, std::vector{again});
    EXPECT_EQ(*world.reloaded().all, std::vector{again});
}

TEST(RulesAdd, TheOppositeDecisionTurnsTheRuleAndCountsAnew) {
    RulesWorld world;
    world.add(Verdict::junk, Scope::always, "first");
    world.add(Verdict::junk, Scope::always, "again");
    world.clock.advance(60);
    const auto turned = world.add(Verdict::keep, Scope::always, "turned");
    EXPECT_EQ(turned.verdict, Verdict::keep);
    EXPECT_EQ(turned.hits, 1);
    EXPECT_EQ(turned.created, world.clock.now());
    EXPECT_EQ(turned.example, "turned");
    EXPECT_EQ(*world.rules.all, std::vector{turned});
}

TEST(RulesAdd, ADecisionOfTheSessionNeverWeakensALastingRule) {
    RulesWorld world;
    world.add(Verdict::junk, Scope::always);
    const auto updated = world.add(Verdict::keep, Scope::session);
    EXPECT_EQ(updated.scope, Scope::always);
    EXPECT_EQ(updated.verdict, Verdict::keep);
    EXPECT_EQ(*world.rules.all, std::vector{updated});
    EXPECT_TRUE(world.rules.session->empty());
}

TEST(RulesAdd, ASessionRuleIsFoundAgainAmongTheSessions) {
    RulesWorld world;
    world.add(Verdict::junk, Scope::session);
    const auto again = world.add(Verdict::junk, Scope::session);
    EXPECT_EQ(again.hits, 2);
    EXPECT_EQ(again.scope, Scope::session);
    const auto turned = world.add(Verdict::keep, Scope::session, "turned");
    EXPECT_EQ(turned.hits, 1);
    EXPECT_EQ(turned.example, "turned");
    EXPECT_EQ(*world.rules.session, std::vector{turned});
    EXPECT_TRUE(world.rules.all->empty());
}

TEST(RulesAdd, ALastingRuleReplacesTheSessionsAndDoesNotTakeItsHits) {
    RulesWorld world;
    world.add(Verdict::junk, Scope::session);
    world.add(Verdict::junk, Scope::session);
    const auto lasting = world.add(Verdict::junk, Scope::always);
    EXPECT_EQ(lasting.hits, 1);
    EXPECT_EQ(lasting.scope, Scope::always);
    EXPECT_TRUE(world.rules.session->empty());
    EXPECT_EQ(*world.rules.all, std::vector{lasting});
}

TEST(RulesAdd, SenderCategoryAndTemplateTellRulesApart) {
    RulesWorld world;
    auto& rules = world.rules;
    const auto add = [&](const char* sender, std::optional<Category> category,
                         const std::vector<std::string>& words) {
        rules.add(sender, category, Verdict::junk, Scope::always, "x", words);
    };
    add("bob@shop.example", anyCategory, anySubject);
    add("bob@shop.example", Category::billOrPayment, anySubject);
    add("bob@shop.example", anyCategory, {"your", "bill"});
    add("ann@shop.example", anyCategory, anySubject);
    ASSERT_EQ(rules.all->size(), 4u);
    add("Bob <BOB@shop.example>", anyCategory, anySubject);
    EXPECT_EQ(rules.all->size(), 4u);
    EXPECT_EQ(rules.all->front().hits, 2);
}

TEST(RulesAdd, StoresNothingForASenderWithoutAKey) {
    RulesWorld world;
    const Signals signals(world.rules);
    for (const char* sender : {"", "Bob", "bob@", "<>"})
        EXPECT_EQ(world.rules.add(sender, anyCategory, Verdict::junk, Scope::always, "x", {}),
                  std::nullopt)
            << sender;
    EXPECT_TRUE(world.rules.combined().empty());
    EXPECT_EQ(signals.count(), 0);
    EXPECT_FALSE(world.has("rules.json"));
}

TEST(RulesAdd, AcceptsARuleThatWasHeldBack) {
    StoreWorld world;
    world.put("rules.json",
              R"([{"sender":"shop.example","verdict":"junk","hits":3,"created":0,"example":"x"}])");
    Rules rules(world.services());
    ASSERT_EQ(rules.held().size(), 1u);
    EXPECT_TRUE(rules.live().empty());
    EXPECT_EQ(Rules::blanketVerdict(rules.combined(), "a@shop.example"), std::nullopt);

    rules.add("news77@shop.example", anyCategory, Verdict::junk, Scope::session, "y", {});
    EXPECT_TRUE(rules.held().empty());
    ASSERT_EQ(rules.live().size(), 1u);
    EXPECT_EQ(rules.live()[0].hits, 4);
    EXPECT_EQ(Rules::blanketVerdict(rules.combined(), "a@shop.example"), Verdict::junk);
}

TEST(RulesPromote, MakesASessionRuleLastWithItsHitsAndDate) {
    RulesWorld world;
    world.add(Verdict::junk, Scope::session);
    const auto rule = world.add(Verdict::junk, Scope::session);
    world.clock.advance(60);
    world.rules.promote(rule);
    auto lasting = rule;
    lasting.scope = Scope::always;
    EXPECT_TRUE(world.rules.session->empty());
    EXPECT_EQ(*world.rules.all, std::vector{lasting});
    EXPECT_EQ(*world.reloaded().all, std::vector{lasting});
}

TEST(RulesPromote, AnEqualLastingRuleStaysAndTheSessionsIsDropped) {
    StoreWorld world;
    world.put("rules.json", R"([
        {"sender":"a.example","verdict":"keep","scope":"always","hits":7,"created":0,"example":"x"},
        {"sender":"a.example","verdict":"junk","scope":"session","hits":2,"created":0,"example":"y"}
    ])");
    Rules rules(world.services());
    const auto existing = rules.all->front();
    rules.promote(rules.session->front());
    EXPECT_TRUE(rules.session->empty());
    EXPECT_EQ(*rules.all, std::vector{existing});
}

TEST(RulesPromote, DoesNothingToALastingRule) {
    RulesWorld world;
    const auto rule = world.add(Verdict::junk, Scope::always);
    files::remove(world.file("rules.json"));
    world.rules.promote(rule);
    EXPECT_EQ(*world.rules.all, std::vector{rule});
    EXPECT_FALSE(world.has("rules.json"));
}

TEST(RulesFlip, TurnsTheVerdictAndKeepsTheRest) {
    for (const Scope scope : allCases<Scope>()) {
        SCOPED_TRACE(rawValue(scope));
        RulesWorld world;
        world.add(Verdict::junk, scope);
        auto rule = world.add(Verdict::junk, scope);
        world.clock.advance(60);
        world.rules.flip(rule);
        rule.verdict = Verdict::keep;
        EXPECT_EQ(world.rules.combined(), std::vector{rule});
        EXPECT_EQ(world.reloaded().combined(), std::vector{rule});
        world.rules.flip(rule);
        EXPECT_EQ(world.rules.combined()[0].verdict, Verdict::junk);
    }
}

TEST(RulesFlip, ARuleThatIsGoneChangesAndWritesNothing) {
    RulesWorld world;
    const auto rule = world.add(Verdict::junk, Scope::session);
    world.rules.forget(rule);
    files::remove(world.file("rules.json"));
    const Signals signals(world.rules);
    world.rules.flip(rule);
    world.rules.enable(rule);
    EXPECT_EQ(signals.count(), 0);
    EXPECT_FALSE(world.has("rules.json"));
}

TEST(RulesForget, TheSameTargetOfTheOtherScopeStays) {
    StoreWorld world;
    world.put("rules.json", R"([
        {"sender":"a.example","verdict":"keep","scope":"always","hits":1,"created":0,"example":"x"},
        {"sender":"a.example","verdict":"keep","scope":"session","hits":1,"created":0,"example":"x"}
    ])");
    Rules rules(world.services());
    const auto lasting = rules.all->front();
    const auto ofSession = rules.session->front();
    EXPECT_NE(lasting.id(), ofSession.id());
    rules.forget(lasting);
    EXPECT_TRUE(rules.all->empty());
    EXPECT_EQ(*rules.session, std::vector{ofSession});
    EXPECT_EQ(Rules(world.services()).combined(), std::vector{ofSession});
}

TEST(RulesForgetAll, LeavesTheSessionsRules) {
    RulesWorld world;
    world.rules.add("ann@a.example", anyCategory, Verdict::keep, Scope::always, "x", {});
    const auto ofSession = world.add(Verdict::junk, Scope::session);
    world.rules.forgetAll();
    EXPECT_TRUE(world.rules.all->empty());
    EXPECT_EQ(world.reloaded().combined(), std::vector{ofSession});
}

TEST(RulesEnable, AcceptsAHeldRuleAndKeepsItsCount) {
    StoreWorld world;
    world.put("rules.json",
              R"([{"sender":"shop.example","verdict":"junk","hits":3,"created":0,"example":"x"}])");
    Rules rules(world.services());
    auto rule = rules.held().at(0);
    rules.enable(rule);
    rule.legacy = false;
    EXPECT_EQ(*rules.all, std::vector{rule});
    EXPECT_EQ(*Rules(world.services()).all, std::vector{rule});
}

TEST(RulesOrder, LastingRulesComeBeforeTheSessions) {
    RulesWorld world;
    const auto ofSession = world.add(Verdict::junk, Scope::session);
    const auto lasting =
        *world.rules.add("ann@a.example", anyCategory, Verdict::keep, Scope::always, "x", {});
    EXPECT_EQ(world.rules.combined(), (std::vector{lasting, ofSession}));
}

TEST(RulesObservers, AreToldBeforeEachChange) {
    RulesWorld world;
    std::vector<std::size_t> seen;
    const auto subscription =
        world.rules.subscribe([&] { seen.push_back(world.rules.combined().size()); });
    const auto rule = world.add(Verdict::junk, Scope::session);
    EXPECT_EQ(seen, (std::vector<std::size_t>{0}));
    world.rules.forget(rule);
    EXPECT_EQ(seen, (std::vector<std::size_t>{0, 1, 1})) << "both lists are assigned";
}

}  // namespace
}  // namespace brindlet
