#include "stores/RuleIndex.h"

#include <gtest/gtest.h>

#include <random>

#include "classify/Classifier.h"
#include "stores/Rules.h"

namespace brindlet {
namespace {

/// A seeded source of rules and messages that meet often, odd senders among them.
class Sampler {
  public:
    std::size_t below(std::size_t bound) { return random_() % bound; }
    bool chance(std::size_t oneIn) { return below(oneIn) == 0; }
    template <class T>
    const T& pick(const std::vector<T>& choices) {
        return choices[below(choices.size())];
    }

    std::string domain() {
        std::string name = pick(labels_);
        while (chance(2)) name = pick(labels_) + "." + name;
        return name;
    }
    std::string ruleSender() {
        if (chance(30)) return pick(odd_);
        return chance(2) ? domain() : pick(labels_) + "@" + domain();
    }
    std::string sender() {
        if (chance(20)) return pick(odd_);
        const auto address = chance(20) ? domain() : pick(labels_) + "@" + domain();
        switch (below(5)) {
            case 0:
                return address;
            case 1:
                return "Shop <" + address + ">";
            case 2:
                return " " + address + "\t";
            case 3:
                return "\"<x@y>\" <" + address + "> ";
            default:
                return "SHOP <" + address + ".>";
        }
    }
    std::vector<std::string> words(std::size_t most) {
        std::vector<std::string> words;
        for (auto left = below(most + 1); left > 0; --left) words.push_back(pick(labels_));
        return words;
    }
    std::string subject() {
        std::string text;
        for (const auto& word : words(8)) text += word + (chance(3) ? ", " : " ");
        return text;
    }
    Rule rule() {
        Rule rule;
        rule.sender = ruleSender();
        if (chance(2)) rule.category = pick(categories);
        if (chance(2)) rule.templateWords = words(4);
        rule.verdict = chance(2) ? Rule::Verdict::junk : Rule::Verdict::keep;
        rule.legacy = chance(6);
        return rule;
    }

    const std::vector<std::string> categories = {"billOrPayment", "cannotTell", "nonsense", ""};

  private:
    std::mt19937 random_{20240229};
    const std::vector<std::string> labels_ = {"a", "b", "shop", "it's", "été"};
    const std::vector<std::string> odd_ = {
        "",
        "@",
        ".",
        "..",
        "a.",
        "@a",
        "a@",
        "<>",
        "<",
        ">",
        "> <",
        "a@b@shop",
        "a..shop",
        "\t",
        "@.",
        "<@>",
        "<a@b> <",
        "a@.shop",
        std::string(300, '.'),
        "\u00a0a\u00a0",
    };
};

/// The walk over all rules, written down as the words have it.
std::optional<Rule::Verdict> walk(const std::vector<Rule>& rules, const std::string& sender,
                                  const std::string& category, const std::string& subject) {
    const Rule* best = nullptr;
    const auto width = [](const Rule& rule) {
        return rule.templateWords.empty() ? (rule.category ? 1u : 0u)
                                          : 1u + rule.templateWords.size();
    };
    for (const Rule& rule : rules)
        if (!rule.legacy && Rules::covers(rule, sender) &&
            rule.category.value_or(category) == category &&
            Classifier::templateOccurs(rule.templateWords, subject) &&
            (!best || width(rule) > width(*best)))
            best = &rule;
    return best ? std::optional(best->verdict) : std::nullopt;
}

TEST(RuleIndex, ChoosesAsTheWalkOverAllRulesDoes) {
    Sampler sampler;
    int verdicts = 0;
    for (int round = 0; round < 60; ++round) {
        std::vector<Rule> rules;
        for (auto left = sampler.below(80); left > 0; --left) rules.push_back(sampler.rule());
        const RuleIndex index(rules);
        for (int message = 0; message < 200; ++message) {
            const auto sender = sampler.sender();
            const auto category = sampler.pick(sampler.categories);
            const auto subject = sampler.subject();
            SCOPED_TRACE(sender + " | " + category + " | " + subject);

            std::vector<Rule> covering, walked;
            for (const Rule* rule : index.covering(sender)) covering.push_back(*rule);
            for (const Rule& rule : rules)
                if (Rules::covers(rule, sender)) walked.push_back(rule);
            ASSERT_EQ(covering, walked);
            ASSERT_EQ(index.blanketVerdict(sender), Rules::blanketVerdict(rules, sender));
            const auto expected = walk(rules, sender, category, subject);
            ASSERT_EQ(RuleIndex::match(index.covering(sender), category, subject), expected);
            ASSERT_EQ(Rules::match(rules, sender, category, subject), expected);
            verdicts += expected.has_value();
        }
    }
    EXPECT_GT(verdicts, 3000) << "the sample has too few rules that match";
}

TEST(RuleIndex, ASenderOfAHundredThousandDotsCostsNoTime) {
    Rule rule;
    rule.sender = "example";
    const RuleIndex index({rule});
    const std::string dots = "bob@" + std::string(100'000, '.') + "example";
    for (int i = 0; i < 20; ++i) EXPECT_EQ(index.covering(dots).size(), 1u);
}

TEST(RuleIndex, WithoutRulesCoversNobody) {
    const RuleIndex index({});
    EXPECT_TRUE(index.covering("").empty());
    EXPECT_TRUE(index.covering("bob@shop.example").empty());
    EXPECT_EQ(index.blanketVerdict("bob@shop.example"), std::nullopt);
}

}  // namespace
}  // namespace brindlet
