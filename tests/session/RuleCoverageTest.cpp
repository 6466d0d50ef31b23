#include "session/RuleCoverage.h"

#include <gtest/gtest.h>

#include <numeric>
#include <random>

#include "stores/Rules.h"

namespace brindlet {
namespace {

using Positions = std::vector<std::uint32_t>;

Verdict verdict(std::string sender, std::string subject,
                Category category = Category::newsletterOrDigest) {
    Verdict made;
    made.sender = std::move(sender);
    made.subject = std::move(subject);
    made.category = category;
    return made;
}

Rule rule(std::string sender, std::optional<std::string> category = {},
          std::vector<std::string> words = {}) {
    Rule made;
    made.sender = std::move(sender);
    made.category = std::move(category);
    made.templateWords = std::move(words);
    return made;
}

Positions allOf(const VerdictList& verdicts) {
    Positions positions(verdicts.size());
    std::iota(positions.begin(), positions.end(), 0U);
    return positions;
}

RuleCoverage coverageOf(const VerdictList& verdicts, const std::vector<Rule>& rules) {
    RuleCoverage coverage;
    coverage.setVerdicts(verdicts, allOf(verdicts));
    coverage.setRules(rules);
    return coverage;
}

TEST(RuleCoverage, HoldsAMessageAgainstSenderCategoryAndTemplate) {
    const VerdictList verdicts({
        verdict("Shop <hello@shop.example>", "Your order 17 has shipped"),
        verdict("hello@mail.shop.example", "your ORDER again"),
        verdict("hello@workshop.example", "Your order"),
        verdict("\"x\" <HELLO@Shop.example>", "Order your own", Category::billOrPayment),
        verdict("no address at all", "Your order"),
    });
    const struct {
        Rule rule;
        Positions covered;
    } rows[] = {
        {rule("shop.example"), {0, 1, 3}},
        {rule("mail.shop.example"), {1}},
        {rule("hello@shop.example"), {0, 3}},
        {rule("example"), {0, 1, 2, 3}},
        {rule("elsewhere.example"), {}},
        {rule("shop.example", "billOrPayment"), {3}},
        {rule("shop.example", "nonsense"), {}},
        {rule("shop.example", {}, {"your", "order"}), {0, 1}},
        {rule("shop.example", "billOrPayment", {"your", "order"}), {}},
        {rule("shop.example", "billOrPayment", {"order", "your"}), {3}},
        {rule("shop.example", {}, {"your", "order", "17", "has", "shipped", "today"}), {}},
        {rule("shop.example", {}, {"never", "written"}), {}},
    };
    std::vector<Rule> rules;
    for (const auto& row : rows) rules.push_back(row.rule);
    auto coverage = coverageOf(verdicts, rules);
    for (std::size_t i = 0; i < rules.size(); ++i) {
        SCOPED_TRACE(rules[i].id());
        EXPECT_EQ(coverage.covered(i), rows[i].covered);
        EXPECT_EQ(coverage.count(i), static_cast<std::int64_t>(rows[i].covered.size()));
    }
}

TEST(RuleCoverage, AHeldRuleCoversWhatItWouldCover) {
    const VerdictList verdicts({verdict("a@shop.example", "Sale")});
    auto held = rule("shop.example");
    held.legacy = true;
    EXPECT_EQ(coverageOf(verdicts, {held}).count(0), 1);
}

TEST(RuleCoverage, APhraseThatStandsTwiceIsOneMessage) {
    const VerdictList verdicts({verdict("a@shop.example", "big sale, very big sale")});
    EXPECT_EQ(coverageOf(verdicts, {rule("shop.example", {}, {"big", "sale"})}).count(0), 1);
}

TEST(RuleCoverage, LooksOnlyAtTheGivenPositions) {
    const VerdictList verdicts({verdict("a@shop.example", "one"), verdict("a@shop.example", "two"),
                                verdict("a@shop.example", "three")});
    RuleCoverage coverage;
    coverage.setVerdicts(verdicts, {0, 2});
    coverage.setRules({rule("shop.example")});
    EXPECT_EQ(coverage.count(0), 2);
    EXPECT_EQ(coverage.covered(0), (Positions{0, 2}));
}

TEST(RuleCoverage, OtherRulesAndOtherVerdictsReplaceTheFormer) {
    const VerdictList first({verdict("a@shop.example", "big sale")});
    const VerdictList second(
        {verdict("b@club.example", "big sale"), verdict("b@club.example", "x")});
    auto coverage = coverageOf(first, {rule("shop.example", {}, {"big", "sale"})});
    EXPECT_EQ(coverage.count(0), 1);
    coverage.setRules({rule("club.example"), rule("shop.example", {}, {"sale"})});
    EXPECT_EQ(coverage.count(0), 0);
    EXPECT_EQ(coverage.count(1), 1);
    coverage.setVerdicts(second, allOf(second));
    coverage.setRules({rule("club.example"), rule("club.example", {}, {"sale"})});
    EXPECT_EQ(coverage.count(0), 2);
    EXPECT_EQ(coverage.count(1), 1);
}

/// A rule on its own, asked for its opinion: whether it would decide about the message.
bool decides(const Rule& rule, const Verdict& verdict) {
    auto applied = rule;
    applied.legacy = false;
    return Rules::match({applied}, verdict.sender, rawValue(verdict.category), verdict.subject)
        .has_value();
}

/// Mail and rules of few senders and words, so that they meet often.
struct RandomMail {
    Verdict message() {
        std::string subject;
        for (auto left = random() % 6; left > 0; --left) subject += pick(words) + " ";
        return verdict(pick(senders), subject,
                       random() % 2 ? Category::billOrPayment : Category::newsletterOrDigest);
    }
    Rule anyRule() {
        auto made = rule(pick(keys));
        if (random() % 2) made.category = pick(categories);
        for (auto left = random() % 4; left > 0; --left) made.templateWords.push_back(pick(words));
        made.legacy = random() % 4 == 0;
        return made;
    }
    std::string pick(const std::vector<std::string>& choices) {
        return choices[random() % choices.size()];
    }

    std::mt19937 random{7};
    const std::vector<std::string> senders = {"a@x.com",     "Ann <a@x.com>", "b@m.x.com",
                                              "b@yx.com",    "x.com",         "",
                                              "<a@x.com> c", "d@.com",        "e@x.com."};
    const std::vector<std::string> keys = {"a@x.com", "x.com", "m.x.com", "com", "b@m.x.com", ""};
    const std::vector<std::string> words = {"a", "b", "c"};
    const std::vector<std::string> categories = {"newsletterOrDigest", "billOrPayment", "nonsense"};
};

TEST(RuleCoverage, CoversExactlyTheMailThatARuleWouldDecide) {
    RandomMail some;
    for (int round = 0; round < 100; ++round) {
        std::vector<Verdict> mail(20);
        for (auto& message : mail) message = some.message();
        const VerdictList verdicts(mail);
        RuleCoverage coverage;
        coverage.setVerdicts(verdicts, allOf(verdicts));
        std::vector<Rule> rules;
        // Rules come and go, as they do while a person ticks.
        for (int change = 0; change < 4; ++change) {
            std::erase_if(rules, [&](const Rule&) { return some.random() % 3 == 0; });
            for (int i = 0; i < 10; ++i) rules.push_back(some.anyRule());
            coverage.setRules(rules);
            for (std::size_t i = 0; i < rules.size(); ++i) {
                SCOPED_TRACE(testing::Message()
                             << "round " << round << "." << change << ", " << rules[i].id());
                Positions expected;
                for (std::uint32_t m = 0; m < mail.size(); ++m)
                    if (decides(rules[i], mail[m])) expected.push_back(m);
                ASSERT_EQ(coverage.covered(i), expected);
                ASSERT_EQ(coverage.count(i), static_cast<std::int64_t>(expected.size()));
            }
        }
    }
}

TEST(RuleCoverage, ASenderOfManyDotsCostsNoMoreThanItsLength) {
    const VerdictList verdicts({verdict("a@" + std::string(200'000, '.'), "x")});
    EXPECT_EQ(coverageOf(verdicts, {rule("shop.example")}).count(0), 0);
}

}  // namespace
}  // namespace brindlet
