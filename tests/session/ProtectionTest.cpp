#include <gtest/gtest.h>

#include <map>
#include <optional>
#include <string>
#include <vector>

#include "classify/VetoSamples.h"
#include "session/Corrections.h"
#include "session/Decide.h"
#include "session/SessionFixture.h"
#include "stores/RuleIndex.h"

// What holds for a protected message, whichever way it would have become junk.

namespace brindlet {
namespace {

using Role = MailFolder::Role;

constexpr auto categories = allCases<Category>();

/// What may say that a message is junk.
enum class Cause { byDefault, flip, categoryRule, templateRule };
constexpr Cause causes[]{Cause::byDefault, Cause::flip, Cause::categoryRule, Cause::templateRule};

const std::string sender = "Shop <news@shop.example>";

/// A rule for the sender, narrowed to the category or to the subject that begins so.
Rule junkRule(Cause cause, Category category) {
    Rule rule;
    rule.sender = "shop.example";
    rule.verdict = Rule::Verdict::junk;
    if (cause == Cause::categoryRule) rule.category = rawValue(category);
    if (cause == Cause::templateRule) rule.templateWords = {"weekly", "note"};
    return rule;
}

Decision decideFor(Cause cause, Category category, std::string_view from, std::string_view subject,
                   DecisionGround ground = {}) {
    const auto rule = junkRule(cause, category);
    RuleIndex::Covering rules;
    if (cause == Cause::flip) ground.overrides[category] = Rule::Verdict::junk;
    if (cause == Cause::categoryRule || cause == Cause::templateRule) rules.push_back(&rule);
    return decide(category, from, "Weekly note: " + std::string(subject), rules, ground);
}

bool wantsJunk(Cause cause, Category category) {
    return cause != Cause::byDefault || isDefaultJunk(category);
}

/// A flip that only repeats the default counts as the default.
bool isRuled(Cause cause, Category category) {
    if (cause == Cause::flip) return !isDefaultJunk(category);
    return cause != Cause::byDefault;
}

TEST(Protection, HoldsBackEverySampleInEveryCategoryWhateverTheCause) {
    for (const auto& sample : vetoSamples())
        for (const auto category : categories)
            for (const auto cause : causes) {
                const bool wanted = wantsJunk(cause, category);
                const Decision expected{false, wanted, isRuled(cause, category)};
                const auto decision = decideFor(cause, category, sender, sample.subject);
                ASSERT_EQ(decision, expected) << sample.subject << ", " << rawValue(category)
                                              << ", cause " << static_cast<int>(cause);
                // A normal folder ticks what is to go; a junk folder ticks what is to come back.
                EXPECT_FALSE(proposesTick(false, decision.isJunk));
                EXPECT_TRUE(proposesTick(true, decision.isJunk));
            }
}

// Or else the test above would prove nothing.
TEST(Protection, LetsWhatIsUnprotectedGo) {
    for (const auto category : categories)
        for (const auto cause : causes) {
            const bool wanted = wantsJunk(cause, category);
            EXPECT_EQ(decideFor(cause, category, sender, "the best of May"),
                      (Decision{wanted, false, isRuled(cause, category)}))
                << rawValue(category) << ", cause " << static_cast<int>(cause);
        }
}

TEST(Protection, HoldsBackThePersonsOwnMailAndInTwoCategoriesTheCorrespondents) {
    DecisionGround ground;
    ground.own = AddressSet({"me@home.example"});
    ground.correspondents = AddressSet({"bob@shop.example"});
    for (const auto category : categories)
        for (const auto cause : causes) {
            SCOPED_TRACE(std::string(rawValue(category)) + ", cause " +
                         std::to_string(static_cast<int>(cause)));
            const bool wanted = wantsJunk(cause, category);
            const auto mine = decideFor(
                cause, category, "Me at Home <ME@home.example> <x@shop.example>", "May", ground);
            EXPECT_FALSE(mine.isJunk);
            const auto bobs = decideFor(cause, category, "Bob <Bob@Shop.example>", "May", ground);
            EXPECT_EQ(bobs.isJunk, wanted && !isProtectedByCorrespondence(category));
            EXPECT_EQ(bobs.vetoed, wanted && isProtectedByCorrespondence(category));
        }
}

TEST(Protection, OnlyARuleForTheWholeSenderOutranksIt) {
    EXPECT_EQ(decideByBlanket(Rule::Verdict::junk).decision, (Decision{true, false, true}));
    EXPECT_EQ(decideByBlanket(Rule::Verdict::keep).decision, (Decision{false, false, true}));
}

/// A folder with each sample once in each category, each from an address of its own, so that each
/// goes to the model by itself; the model answers the category that stands in the body.
class ProtectedFolder : public SessionTest {
  protected:
    struct Message {
        std::int64_t id = 0;
        Category category = Category::cannotTell;
        bool isProtected = false;
    };

    ProtectedFolder() {
        world.model.setScript([](const doubles::ScriptedModel::Call& call) {
            const auto body = call.prompt.rfind('\n') + 1;
            return LanguageModel::Answer{{"category", call.prompt.substr(body)}};
        });
    }
    void fill() {
        for (const auto category : categories) {
            for (const auto& sample : vetoSamples())
                messages.push_back({addFor(category, sample.subject), category, true});
            messages.push_back({addFor(category, "The best of May"), category, false});
        }
        open();
        state->seen.setSkipSeen(false);
    }
    std::int64_t addFor(Category category, std::string_view subject) {
        return add("news" + std::to_string(messages.size()) + "@many.example", std::string(subject),
                   std::string(rawValue(category)));
    }
    /// Scans once more, as if nothing had been decided before.
    void scanAgain() {
        state->seen.clear();
        scan();
        ASSERT_EQ(state->verdicts->size(), messages.size());
    }
    /// What each message must be, given the categories that are to become junk.
    void expectProtection(const std::map<Category, bool>& wantJunk) {
        const bool inJunk = role == Role::junk;
        int held = 0;
        for (const auto& message : messages) {
            const auto* verdict = verdictOf(message.id);
            ASSERT_TRUE(verdict);
            const bool wanted = wantJunk.at(message.category);
            held += message.isProtected && wanted;
            ASSERT_EQ(verdict->category, message.category);
            ASSERT_EQ(verdict->isJunk, wanted && !message.isProtected)
                << verdict->subject << ", " << rawValue(message.category);
            ASSERT_EQ(verdict->vetoed, wanted && message.isProtected)
                << verdict->subject << ", " << rawValue(message.category);
            ASSERT_EQ(state->approved->contains(message.id), verdict->isJunk != inJunk)
                << verdict->subject << ", " << rawValue(message.category);
        }
        EXPECT_GT(held, 0) << "or else nothing was proved";
    }
    void expectProtectionWhateverTheCause() {
        fill();
        std::map<Category, bool> wantJunk;
        for (const auto category : categories) wantJunk[category] = isDefaultJunk(category);
        scanAgain();
        expectProtection(wantJunk);

        // The only category that corrections can flip to junk, and one flipped the other way.
        for (int i = 0; i < 12; ++i) {
            const auto corrected = "c" + std::to_string(i) + ".example";
            state->calibration.record(Category::accountWelcomeOrInvitation, Rule::Verdict::junk,
                                      corrected);
            state->calibration.record(Category::socialMediaBlast, Rule::Verdict::keep, corrected);
        }
        wantJunk[Category::accountWelcomeOrInvitation] = true;
        wantJunk[Category::socialMediaBlast] = false;
        ASSERT_EQ(state->calibration.flips().size(), 2u);
        scanAgain();
        expectProtection(wantJunk);

        for (const auto category : categories) {
            state->rules.add("news1@many.example", category, Rule::Verdict::junk,
                             Rule::Scope::always, "x", {});
            wantJunk[category] = true;
        }
        scanAgain();
        expectProtection(wantJunk);
    }

    std::vector<Message> messages;
};

TEST_F(ProtectedFolder, IsNeverProposedForTheJunk) {
    expectProtectionWhateverTheCause();
}

// There a tick brings a message back to the inbox.
TEST_F(ProtectedFolder, IsNeverLeftBehindInTheJunk) {
    role = Role::junk;
    expectProtectionWhateverTheCause();
}

TEST_F(ProtectedFolder, GoesByARuleForTheWholeSenderWhichIsThePersonsWord) {
    fill();
    state->rules.add("news1@many.example", {}, Rule::Verdict::junk, Rule::Scope::always, "x", {});
    const auto calls = world.model.calls().size();
    scanAgain();
    EXPECT_EQ(world.model.calls().size(), calls) << "no model is asked";
    for (const auto& message : messages) {
        EXPECT_TRUE(verdictOf(message.id)->isJunk);
        EXPECT_TRUE(verdictOf(message.id)->byRule);
        EXPECT_FALSE(verdictOf(message.id)->vetoed);
        EXPECT_TRUE(state->approved->contains(message.id));
    }
}

TEST_F(ProtectedFolder, GoesByThePersonsOwnTickAndByNoOther) {
    const auto held = addFor(Category::advertisingOrPromotion, "Your receipt");
    messages.push_back({held, Category::advertisingOrPromotion, true});
    const auto other = addFor(Category::advertisingOrPromotion, "The best of May");
    messages.push_back({other, Category::advertisingOrPromotion, false});
    open();
    state->seen.setSkipSeen(false);
    scanAgain();
    EXPECT_EQ(*state->approved, AppState::Ids{other});
    state->toggleMessage(held);
    EXPECT_EQ(*state->approved, (AppState::Ids{held, other}));
    EXPECT_TRUE(verdictOf(held)->vetoed) << "a tick changes no verdict";
    scanAgain();
    EXPECT_EQ(*state->approved, AppState::Ids{other})
        << "what was learned from the tick is held back again";
}

TEST_F(ProtectedFolder, KnowsWhoThePersonIsAndWhomThePersonHasWrittenTo) {
    doubles::MailHome::Message sent;
    sent.mailbox = home.addMailbox("Sent");
    sent.sender = "me@home.example";
    home.addRecipient(home.addMessage(sent), "News1@Many.example");
    const auto personal = std::string(rawValue(Category::personalMessageOrReminder));
    const auto written = add("One <news1@many.example>", "Hi", personal);
    const auto unknown = add("Two <news2@many.example>", "Hi", personal);
    const auto mine = add("Me <ME@home.example>", "Hi", personal);
    open();
    for (const auto* from : {"news1@many.example", "me@home.example"})
        state->rules.add(from, Category::personalMessageOrReminder, Rule::Verdict::junk,
                         Rule::Scope::always, "x", {});
    auto account = this->account();
    account.address = "Me@Home.example";
    state->accounts.set({account});
    state->startScan(account, inbox());
    finishTask();
    EXPECT_TRUE(verdictOf(written)->vetoed);
    EXPECT_TRUE(verdictOf(mine)->vetoed);
    EXPECT_EQ(*state->approved, AppState::Ids{unknown});
}

// The model reads one of them and the others inherit its category - but not what became of it.
TEST_F(ProtectedFolder, IsProtectedAmongTheMembersOfAClusterToo) {
    const std::string sale = "Great sale 20% off lamps, rugs and pillows";
    const std::string ad(rawValue(Category::advertisingOrPromotion));
    std::vector<std::int64_t> hidden;
    for (const auto& sample : vetoSamples()) {
        const auto from = "news@shop" + std::to_string(hidden.size()) + ".example";
        hidden.push_back(add(from, sale + " - " + std::string(sample.subject), ad));
        for (int i = 0; i < 4; ++i) add(from, sale, ad);
    }
    scan();
    EXPECT_EQ(world.model.calls().size(), hidden.size()) << "one of each cluster is read";
    for (const auto id : hidden) {
        EXPECT_TRUE(verdictOf(id)->vetoed) << verdictOf(id)->subject;
        EXPECT_FALSE(state->approved->contains(id)) << verdictOf(id)->subject;
    }
    EXPECT_EQ(state->approved->size(), 4 * hidden.size());
}

}  // namespace
}  // namespace brindlet
