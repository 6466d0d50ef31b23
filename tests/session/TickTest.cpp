#include <gtest/gtest.h>

#include "session/ReviewFixture.h"

namespace brindlet {
namespace {

using Role = MailFolder::Role;

/// Ticking one message at a time.
class Tick : public ReviewTest {
  protected:
    /// Three shapes of three, told apart by their templates, and then one message of no shape.
    void addShapes(const std::string& sender) {
        for (const auto* shape : {"Parcel left depot ", "Weekly report ready ", "Ann wrote you "})
            for (int i = 0; i < 3; ++i) addVerdict(sender, shape + std::to_string(i + 1));
        addVerdict(sender, "Hello");
    }
    void presetOffer() { state->pending.set(AppState::PendingRule{}); }
    const Calibration::Tally& tally(Category category = Category::newsletterOrDigest) {
        static const Calibration::Tally none;
        const auto found = state->calibration.byCategory->find(std::string(rawValue(category)));
        return found == state->calibration.byCategory->end() ? none : found->second;
    }
};

TEST_F(Tick, OfAMessageThatIsNotThereChangesNothing) {
    addVerdict("a@x.example", "News");
    showRecorded();
    presetOffer();
    const auto before = state->approved.revision();
    state->toggleMessage(2);
    EXPECT_EQ(state->approved.revision(), before);
    EXPECT_TRUE(state->pending->has_value());
    EXPECT_TRUE(state->touched->empty());
    EXPECT_FALSE(state->persistTask());
}

TEST_F(Tick, RemovedFromProposedJunkIsACorrection) {
    addVerdict("Bob <news1@x.example>", "Our news");
    show();
    state->toggleMessage(1);
    EXPECT_FALSE(ticked(1));
    ASSERT_EQ(state->rules.session->size(), 1u);
    Rule rule;
    rule.sender = "x.example";
    rule.category = "newsletterOrDigest";
    rule.verdict = Rule::Verdict::keep;
    rule.scope = Rule::Scope::session;
    rule.hits = 1;
    rule.created = world.clock.now();
    rule.example = "Our news";
    EXPECT_EQ(state->rules.session->front(), rule);
    EXPECT_EQ(tally(), (Calibration::Tally{1, 0, {"x.example"}, {}}));
    EXPECT_EQ(*state->learned, 1);
    EXPECT_EQ(*state->pending, std::nullopt) << "there is nothing like it";
}

TEST_F(Tick, AddedToWhatWasToBeKeptIsACorrection) {
    addVerdict("a@x.example", "A welcome", Category::accountWelcomeOrInvitation);
    show();
    state->toggleMessage(1);
    EXPECT_TRUE(ticked(1));
    EXPECT_EQ(state->rules.session->front().verdict, Rule::Verdict::junk);
    EXPECT_EQ(tally(Category::accountWelcomeOrInvitation).toJunk, 1);
}

TEST_F(Tick, ThatAgreesAndHasNoNeighboursTeachesNothing) {
    addVerdict("a@x.example", "News");
    show();
    state->approved.set({});
    presetOffer();
    state->toggleMessage(1);
    EXPECT_TRUE(ticked(1));
    EXPECT_TRUE(state->rules.session->empty());
    EXPECT_EQ(*state->learned, 0);
    EXPECT_EQ(*state->pending, std::nullopt);
    EXPECT_EQ(*state->touched, Numbers{1}) << "it was handled all the same";
}

TEST_F(Tick, ThatAgreesAndHasNeighboursMakesARuleAndAnOfferButNoCorrection) {
    addVerdicts(2, "a@x.example", "News");
    show();
    state->approved.set({});
    state->toggleMessage(1);
    EXPECT_EQ(state->rules.session->front().verdict, Rule::Verdict::junk);
    EXPECT_EQ(*state->learned, 1);
    EXPECT_TRUE(state->calibration.byCategory->empty());
    ASSERT_TRUE(state->pending->has_value());
    EXPECT_EQ((*state->pending)->everything, Numbers{2});
}

TEST_F(Tick, RemovedAndPutBackTeachesALoneSenderOnce) {
    addVerdict("a@x.example", "News");
    show();
    state->toggleMessage(1);
    state->toggleMessage(1);
    EXPECT_TRUE(ticked(1));
    ASSERT_EQ(state->rules.session->size(), 1u);
    EXPECT_EQ(state->rules.session->front().verdict, Rule::Verdict::keep);
    EXPECT_EQ(tally().toKeep, 1);
    EXPECT_EQ(*state->learned, 1);
    EXPECT_EQ(*state->pending, std::nullopt);
}

TEST_F(Tick, RemovedAndPutBackAmongNeighboursLeavesTheLaterRule) {
    addVerdicts(3, "a@x.example", "News");
    show();
    state->toggleMessage(2);
    state->toggleMessage(1);
    EXPECT_EQ(state->rules.session->front().hits, 2);
    state->toggleMessage(1);
    ASSERT_EQ(state->rules.session->size(), 1u);
    EXPECT_EQ(state->rules.session->front().verdict, Rule::Verdict::junk);
    EXPECT_EQ(state->rules.session->front().hits, 1);
    EXPECT_EQ(tally(), (Calibration::Tally{2, 0, {"a@x.example"}, {}}));
    EXPECT_EQ(*state->learned, 3);
}

TEST_F(Tick, InAJunkFolderOfWhatWasCalledGoodIsNoCorrection) {
    addVerdict("a@x.example", "A welcome", Category::accountWelcomeOrInvitation);
    show(Role::junk);
    EXPECT_TRUE(ticked(1));
    state->approved.set({});
    state->toggleMessage(1);
    EXPECT_EQ(*state->learned, 0);
    EXPECT_TRUE(state->calibration.byCategory->empty());
}

TEST_F(Tick, InAJunkFolderOfWhatWasCalledJunkIsACorrectionToKeep) {
    addVerdict("a@x.example", "News");
    show(Role::junk);
    EXPECT_FALSE(ticked(1));
    state->toggleMessage(1);
    EXPECT_EQ(state->rules.session->front().verdict, Rule::Verdict::keep);
    EXPECT_EQ(tally().toKeep, 1);
}

TEST_F(Tick, OfOneInTenWithoutATemplateOffersTheNineOthers) {
    for (const auto* subject :
         {"one", "two", "three", "four", "five", "six", "seven", "eight", "nine", "ten"})
        addVerdict("a@x.example", subject);
    show();
    state->toggleMessage(4);
    ASSERT_TRUE(state->pending->has_value());
    EXPECT_EQ((*state->pending)->members, Numbers());
    EXPECT_EQ((*state->pending)->everything, (Numbers{1, 2, 3, 5, 6, 7, 8, 9, 10}));
}

TEST_F(Tick, OffersThoseOfTheSameTemplateApart) {
    addShapes("Ann Smith <ann@x.example>");
    show();
    state->toggleMessage(2);
    AppState::PendingRule offer;
    offer.sender = offer.display = "ann@x.example";
    offer.category = Category::newsletterOrDigest;
    offer.sourceID = 2;
    offer.templateWords = {"parcel", "left", "depot"};
    offer.members = {1, 3};
    offer.everything = {1, 3, 4, 5, 6, 7, 8, 9, 10};
    EXPECT_EQ(*state->pending, offer);
    EXPECT_EQ(state->rules.session->front().templateWords, offer.templateWords);

    state->toggleMessage(2);
    EXPECT_EQ(*state->pending, std::nullopt) << "the offer is for those in the state that it left";
    state->toggleMessage(10);
    EXPECT_EQ((*state->pending)->templateWords, Words());
    EXPECT_EQ((*state->pending)->members, Numbers());
    EXPECT_EQ((*state->pending)->everything, (Numbers{1, 2, 3, 4, 5, 6, 7, 8, 9}));
    EXPECT_FALSE((*state->pending)->toJunk);
    EXPECT_FALSE((*state->pending)->wantApproved);
}

TEST_F(Tick, WantsTheOppositeOfItsRuleInAJunkFolder) {
    addVerdicts(2, "a@x.example", "News");
    show(Role::junk);
    state->toggleMessage(1);
    ASSERT_TRUE(state->pending->has_value());
    EXPECT_TRUE((*state->pending)->wantApproved);
    EXPECT_FALSE((*state->pending)->toJunk);
}

TEST_F(Tick, DoesNotOfferWhatHasNoMessageID) {
    addVerdicts(3, "a@x.example", "News");
    list[1].messageID.reset();
    show();
    state->approved.set({});
    state->toggleMessage(1);
    EXPECT_EQ((*state->pending)->everything, Numbers{3});
}

// A moved message is unticked, and nothing else tells it from one that stayed.
TEST_F(Tick, OffersAMovedNeighbour) {
    addVerdicts(3, "a@x.example", "News");
    show();
    state->approved.set({});
    state->movedAlready.set({"2@example"});
    state->toggleMessage(1);
    EXPECT_EQ((*state->pending)->everything, (Numbers{2, 3}));
}

TEST_F(Tick, OfASenderWithoutAKeyIsCountedButMakesNoRuleAndNoOffer) {
    addVerdicts(2, "Shop Team", "News");
    show();
    presetOffer();
    state->toggleMessage(1);
    EXPECT_EQ(*state->learned, 1);
    EXPECT_EQ(tally(), (Calibration::Tally{1, 0, {}, {}}));
    EXPECT_TRUE(state->rules.combined().empty());
    EXPECT_EQ(*state->pending, std::nullopt);
    EXPECT_FALSE(state->kindTask());
}

// The screens do not let a person tick such a message; the session would.
TEST_F(Tick, OfAMessageWithoutAMessageIDIsNotRefused) {
    addVerdict("a@x.example", "News").messageID.reset();
    show();
    state->toggleMessage(1);
    EXPECT_TRUE(ticked(1));
}

TEST_F(Tick, CanBeLeftWithoutAnAnswer) {
    addVerdicts(2, "a@x.example", "News");
    show();
    state->toggleMessage(1);
    ASSERT_TRUE(state->pending->has_value());
    state->dismissPending();
    EXPECT_EQ(*state->pending, std::nullopt);
    EXPECT_EQ(state->rules.session->size(), 1u) << "what was learned stays";
}

TEST_F(Tick, ByCorrectionsOfOneKindFlipsTheCategory) {
    for (int i = 0; i < 12; ++i)
        addVerdict("ann" + std::string(1, static_cast<char>('a' + i)) + "@x.example", "News");
    show();
    for (std::int64_t id = 1; id <= 11; ++id) state->toggleMessage(id);
    EXPECT_EQ(state->calibration.flip(Category::newsletterOrDigest), std::nullopt);
    state->toggleMessage(12);
    EXPECT_EQ(state->calibration.flip(Category::newsletterOrDigest), Rule::Verdict::keep);
}

TEST_F(Tick, MinesAFamilyOnceAndAsksTheCacheFromThenOn) {
    addShapes("ann@x.example");
    show();
    EXPECT_EQ(state->familyTemplate(list[0]), (Words{"parcel", "left", "depot"}));
    ASSERT_EQ(state->families.size(), 1u);
    state->families["ann@x.example"][1] = {"from", "the", "cache"};
    EXPECT_EQ(state->familyTemplate(list[0]), (Words{"from", "the", "cache"}));
    EXPECT_EQ(state->familyTemplate(list[9]), Words());

    Verdict stranger = list[0];
    stranger.id = 99;
    EXPECT_EQ(state->familyTemplate(stranger), Words());
    stranger.sender = "nobody@y.example";
    EXPECT_EQ(state->familyTemplate(stranger), Words());
}

TEST_F(Tick, WorksOnTextOfAnyLengthAndScript) {
    const std::string combining = "e\xcc\x81\xcc\x82 na\xc3\xafve caf\xc3\xa9 ";
    const std::string hebrew = "\xd7\xa9\xd7\x9c\xd7\x95\xd7\x9d \xd7\xa2\xd7\x95\xd7\x9c\xd7\x9d ";
    const std::string controls =
        "\xe2\x80\xae"
        "evil\x01\x1f \"quoted\\ ";
    std::string endless;
    while (endless.size() < 10'000) endless += "word" + std::to_string(endless.size()) + " ";
    for (const auto& text : {combining, hebrew, controls, endless, std::string()})
        for (int i = 0; i < 3; ++i)
            addVerdict(hebrew + "<ann@x.example>", text + std::to_string(i));
    showRecorded();
    for (const auto& verdict : list) state->toggleMessage(verdict.id);
    finishSearch();
    settle();
    EXPECT_EQ(*state->learned, std::ssize(list));
    const Rules loaded(world.services());
    EXPECT_EQ(*loaded.session, *state->rules.session);
    EXPECT_FALSE(loaded.session->empty());
    const auto saved = state->history.readScan(state->currentRecord->started);
    ASSERT_TRUE(saved);
    for (std::size_t i = 0; i < list.size(); ++i)
        EXPECT_EQ((*saved)[i], savedFrom(list[i], false)) << i;
}

TEST_F(Tick, FindsItsRuleAmongAThousandOfOneSender) {
    for (int i = 0; i < 1000; ++i)
        state->rules.session.mutate([&](auto& rules) {
            Rule rule;
            rule.sender = "x.example";
            rule.category = "newsletterOrDigest";
            rule.scope = Rule::Scope::session;
            rule.templateWords = {"pattern", std::to_string(i)};
            rules.push_back(rule);
        });
    addVerdicts(2, "Bob <news1@x.example>", "News");
    show();
    state->toggleMessage(1);
    state->toggleMessage(2);
    ASSERT_EQ(state->rules.session->size(), 1001u);
    EXPECT_EQ(state->rules.session->back().hits, 2);
    EXPECT_EQ(Rules(world.services()).session->size(), 1001u);
}

}  // namespace
}  // namespace brindlet
