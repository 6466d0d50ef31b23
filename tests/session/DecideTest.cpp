#include "session/Decide.h"

#include <gtest/gtest.h>

namespace brindlet {
namespace {

constexpr Decision kept{false, false, false};
constexpr Decision junk{true, false, false};
constexpr Decision vetoed{false, true, false};
constexpr Decision keptByRule{false, false, true};
constexpr Decision junkByRule{true, false, true};
constexpr Decision vetoedByRule{false, true, true};

DecisionGround ground() {
    DecisionGround ground;
    ground.own = AddressSet({"me@home.example"});
    ground.correspondents = AddressSet({"bob@x.com"});
    return ground;
}

Rule rule(Rule::Verdict verdict, std::optional<std::string> category = {},
          std::vector<std::string> words = {}) {
    Rule rule;
    rule.sender = "shop.example";
    rule.category = std::move(category);
    rule.verdict = verdict;
    rule.templateWords = std::move(words);
    return rule;
}

const std::string shop = "Shop <News@Shop.Example>";

TEST(Decide, FollowsTheCategoryWithoutRules) {
    for (const auto category : allCases<Category>())
        EXPECT_EQ(decide(category, shop, "Hello", {}, ground()),
                  isDefaultJunk(category) ? junk : kept)
            << rawValue(category);
}

TEST(Decide, VetoHoldsBackWhatWouldBeJunk) {
    EXPECT_EQ(decide(Category::advertisingOrPromotion, shop, "Your receipt", {}, ground()), vetoed);
}

TEST(Decide, ProtectionLeavesNoMarkOnWhatWasKeptAnyway) {
    EXPECT_EQ(decide(Category::billOrPayment, shop, "Your receipt", {}, ground()), kept);
}

TEST(Decide, OwnAddressProtectsInAnyLetterCase) {
    EXPECT_EQ(
        decide(Category::advertisingOrPromotion, "Me <ME@Home.Example>", "Sale", {}, ground()),
        vetoed);
}

// Having written to someone protects only where the message is personal or unclear.
TEST(Decide, CorrespondentsProtectInTwoCategoriesAlone) {
    auto flipped = ground();
    for (const auto category : allCases<Category>())
        flipped.overrides[category] = Rule::Verdict::junk;
    for (const auto category : allCases<Category>()) {
        const auto decision = decide(category, "Bob <bob@x.com>", "Hi", {}, flipped);
        EXPECT_EQ(decision.vetoed, isProtectedByCorrespondence(category)) << rawValue(category);
    }
}

TEST(Decide, CorrespondentsAreSubstrings) {
    auto flipped = ground();
    flipped.overrides[Category::cannotTell] = Rule::Verdict::junk;
    EXPECT_EQ(decide(Category::cannotTell, "notbob@x.com", "Hi", {}, flipped), vetoedByRule);
}

TEST(Decide, VetoStillProtectsCorrespondentsCategories) {
    auto flipped = ground();
    flipped.overrides[Category::cannotTell] = Rule::Verdict::junk;
    EXPECT_EQ(decide(Category::cannotTell, "carol@z.com", "Your order #4", {}, flipped),
              vetoedByRule);
}

TEST(Decide, RuleBeatsFlipAndDefault) {
    const auto keep = rule(Rule::Verdict::keep);
    auto flipped = ground();
    flipped.overrides[Category::cannotTell] = Rule::Verdict::junk;
    EXPECT_EQ(decide(Category::advertisingOrPromotion, shop, "Sale", {&keep}, ground()),
              keptByRule);
    EXPECT_EQ(decide(Category::cannotTell, shop, "Sale", {&keep}, flipped), keptByRule);
}

TEST(Decide, JunkRuleIsHeldBackByProtection) {
    const auto narrow = rule(Rule::Verdict::junk, "billOrPayment");
    EXPECT_EQ(decide(Category::billOrPayment, shop, "News", {&narrow}, ground()), junkByRule);
    EXPECT_EQ(decide(Category::billOrPayment, shop, "Your bill", {&narrow}, ground()),
              vetoedByRule);
}

TEST(Decide, RuleOfAnotherCategoryOrPatternIsPassedOver) {
    const auto other = rule(Rule::Verdict::keep, "billOrPayment");
    const auto pattern = rule(Rule::Verdict::keep, "advertisingOrPromotion", {"summer", "sale"});
    const std::vector<const Rule*> rules{&other, &pattern};
    EXPECT_EQ(decide(Category::advertisingOrPromotion, shop, "Winter sale", rules, ground()), junk);
    EXPECT_EQ(decide(Category::advertisingOrPromotion, shop, "Big summer sale", rules, ground()),
              keptByRule);
}

TEST(Decide, FlipThatAgreesWithTheDefaultIsNoRule) {
    auto flipped = ground();
    flipped.overrides[Category::advertisingOrPromotion] = Rule::Verdict::junk;
    flipped.overrides[Category::billOrPayment] = Rule::Verdict::keep;
    EXPECT_EQ(decide(Category::advertisingOrPromotion, shop, "Sale", {}, flipped), junk);
    EXPECT_EQ(decide(Category::billOrPayment, shop, "Hello", {}, flipped), kept);
}

TEST(Decide, FlipThatDisagreesDecidesByRule) {
    auto flipped = ground();
    flipped.overrides[Category::newsletterOrDigest] = Rule::Verdict::keep;
    flipped.overrides[Category::accountWelcomeOrInvitation] = Rule::Verdict::junk;
    EXPECT_EQ(decide(Category::newsletterOrDigest, shop, "Weekly", {}, flipped), keptByRule);
    EXPECT_EQ(decide(Category::accountWelcomeOrInvitation, shop, "Hi", {}, flipped), junkByRule);
    EXPECT_EQ(decide(Category::accountWelcomeOrInvitation, shop, "Your order #1", {}, flipped),
              vetoedByRule);
}

// A rule over the whole sender is the person's own word: nothing protects against it.
TEST(Decide, BlanketKnowsNoProtection) {
    const auto asJunk = decideByBlanket(Rule::Verdict::junk);
    EXPECT_EQ(asJunk.category, Category::advertisingOrPromotion);
    EXPECT_EQ(asJunk.decision, junkByRule);
    const auto asKept = decideByBlanket(Rule::Verdict::keep);
    EXPECT_EQ(asKept.category, Category::personalMessageOrReminder);
    EXPECT_EQ(asKept.decision, keptByRule);
}

}  // namespace
}  // namespace brindlet
