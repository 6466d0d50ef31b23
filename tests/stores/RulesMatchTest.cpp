#include <gtest/gtest.h>

#include "stores/Rules.h"

namespace brindlet {
namespace {

using Verdict = Rule::Verdict;
using Words = std::vector<std::string>;

Rule rule(std::string sender, Verdict verdict, std::optional<std::string> category = {},
          Words templateWords = {}) {
    Rule made;
    made.sender = std::move(sender);
    made.verdict = verdict;
    made.category = std::move(category);
    made.templateWords = std::move(templateWords);
    return made;
}

const std::string news = "newsletterOrDigest";

TEST(RuleAddressTest, CoversAnAddressExactlyAndADomainWithItsSubdomains) {
    const struct {
        const char* ruleSender;
        const char* sender;
        bool covered;
    } rows[] = {
        {"bob@shop.example", "Bob <BOB@Shop.Example>", true},
        {"bob@shop.example", " \tbob@shop.example ", true},
        {"bob@shop.example", "< bob@shop.example\u00a0>", true},
        {"bob@shop.example", "bob@news.shop.example", false},
        {"bob@shop.example", "notbob@shop.example", false},
        {"bob@shop.example", "bob@shop.example\n", false},
        {"shop.example", "bob@shop.example", true},
        {"shop.example", "bob@news.shop.example", true},
        {"shop.example", "bob@a.b.shop.example", true},
        {"shop.example", "bob@workshop.example", false},
        {"shop.example", "bob@example", false},
        {"shop.example", "bob@shop.example.org", false},
        // With no "@" the whole address is the domain.
        {"shop.example", "shop.example", true},
        {"shop.example", "news.shop.example", true},
        {"shop.example", "a@b@shop.example", true},
        {"a@b@shop.example", "a@b@shop.example", true},
        {"shop.example", "<a@shop.example> <b@other.example>", false},
        // The brackets stand the wrong way round: the text is taken whole.
        {"shop.example", ">a@shop.example<", false},
        {"shop.example", "", false},
        {"", "", true},
        {"", "bob@", true},
        {"", "bob@shop.", true},
        {"", "bob@shop", false},
        {"Shop.Example", "bob@shop.example", false},
    };
    for (const auto& row : rows)
        EXPECT_EQ(Rules::covers(rule(row.ruleSender, Verdict::junk), row.sender), row.covered)
            << row.ruleSender << " over " << row.sender;
}

TEST(RuleAddressTest, AKeyLearnedWithBlanksCoversNobody) {
    const auto learned = rule(Rules::senderKey("  bob@x.example"), Verdict::junk);
    EXPECT_FALSE(Rules::covers(learned, "  bob@x.example"));
    EXPECT_FALSE(Rules::covers(learned, "bob@x.example"));
}

TEST(RulesBlanketVerdict, IsThatOfTheFirstGeneralRule) {
    auto held = rule("shop.example", Verdict::keep);
    held.legacy = true;
    const std::vector<Rule> rules = {
        held,
        rule("shop.example", Verdict::keep, news),
        rule("shop.example", Verdict::keep, std::nullopt, {"your", "order"}),
        rule("other.example", Verdict::keep),
        rule("shop.example", Verdict::junk),
        rule("bob@shop.example", Verdict::keep),
    };
    EXPECT_EQ(Rules::blanketVerdict(rules, "Bob <bob@shop.example>"), Verdict::junk);
    EXPECT_EQ(Rules::blanketVerdict(rules, "ann@other.example"), Verdict::keep);
    EXPECT_EQ(Rules::blanketVerdict(rules, "ann@third.example"), std::nullopt);
    EXPECT_EQ(Rules::blanketVerdict({}, "ann@third.example"), std::nullopt);
}

TEST(RulesMatch, TheNarrowerRuleBeatsTheWiderAndTheOlderTheNewer) {
    auto held = rule("s.example", Verdict::junk, news, {"your", "weekly", "digest", "is", "here"});
    held.legacy = true;
    const auto general = rule("s.example", Verdict::junk);
    const auto laterGeneral = rule("s.example", Verdict::keep);
    const auto ofNews = rule("s.example", Verdict::keep, news);
    const auto ofBills = rule("s.example", Verdict::junk, "billOrPayment");
    const auto shortOfNews = rule("s.example", Verdict::junk, news, {"weekly", "digest"});
    const auto longOfAny =
        rule("s.example", Verdict::keep, std::nullopt, {"your", "weekly", "digest"});
    const auto sameLength = rule("s.example", Verdict::junk, news, {"weekly", "digest", "is"});
    const auto tooLong = rule("s.example", Verdict::junk, std::nullopt, Words(30, "your"));
    const auto ofOthers =
        rule("o.example", Verdict::junk, news, {"your", "weekly", "digest", "is"});

    const struct {
        const char* name;
        std::vector<Rule> rules;
        const char* category;
        const char* subject;
        std::optional<Verdict> verdict;
    } rows[] = {
        {"no rule", {}, "newsletterOrDigest", "hello", std::nullopt},
        {"held back", {held}, "newsletterOrDigest", "Your weekly digest is here", std::nullopt},
        {"general", {general, laterGeneral}, "cannotTell", "hello", Verdict::junk},
        {"category beats an older general one",
         {general, ofNews},
         "newsletterOrDigest",
         "hello",
         Verdict::keep},
        {"another category", {general, ofNews}, "billOrPayment", "hello", Verdict::junk},
        {"first category", {ofNews, shortOfNews}, "newsletterOrDigest", "hello", Verdict::keep},
        {"template beats category",
         {general, ofNews, shortOfNews},
         "newsletterOrDigest",
         "Weekly digest!",
         Verdict::junk},
        {"template of another category",
         {ofBills, shortOfNews, general},
         "billOrPayment",
         "Weekly digest",
         Verdict::junk},
        {"long template without category beats a short one with it",
         {shortOfNews, longOfAny},
         "newsletterOrDigest",
         "Re: YOUR weekly-digest",
         Verdict::keep},
        {"earlier of equal length",
         {longOfAny, sameLength},
         "newsletterOrDigest",
         "your weekly digest is here",
         Verdict::keep},
        {"earlier of equal length, the other way round",
         {sameLength, longOfAny},
         "newsletterOrDigest",
         "your weekly digest is here",
         Verdict::junk},
        {"words must stand together",
         {longOfAny},
         "newsletterOrDigest",
         "your other weekly digest",
         std::nullopt},
        {"longer than any subject",
         {tooLong, laterGeneral},
         "cannotTell",
         "your your your",
         Verdict::keep},
        {"all at once",
         {held, ofOthers, tooLong, general, ofBills, ofNews, shortOfNews, longOfAny, sameLength},
         "newsletterOrDigest",
         "Your weekly digest is here",
         Verdict::keep},
    };
    for (const auto& row : rows)
        EXPECT_EQ(Rules::match(row.rules, "a@s.example", row.category, row.subject), row.verdict)
            << row.name;
}

}  // namespace
}  // namespace brindlet
