#include <gtest/gtest.h>

#include "session/ReviewFixture.h"

namespace brindlet {
namespace {

using Role = MailFolder::Role;
using Ids = AppState::Ids;

/// Ticking many messages at once, and undoing it.
class SweepTest : public ReviewTest {
  protected:
    /// Three messages each of three templates, of one sender; all are ticked in an inbox.
    void showShapes(Role folderRole = Role::inbox) {
        for (const auto* shape : {"Parcel left depot ", "Weekly report ready ", "Ann wrote you "})
            for (int i = 0; i < 3; ++i) addVerdict("ann@x.example", shape + std::to_string(i + 1));
        show(folderRole);
    }
    AppState::PendingRule handMade() const {
        AppState::PendingRule offer;
        offer.sender = offer.display = "ann@x.example";
        offer.category = Category::newsletterOrDigest;
        offer.sourceID = 1;
        offer.templateWords = {"parcel", "left", "depot"};
        offer.members = {2, 3};
        offer.everything = {2, 3, 4};
        offer.kin = {2, 3, 4, 5};
        return offer;
    }
    const Words parcel{"parcel", "left", "depot"};
};

// In a junk folder the sweep goes against the tick that it came from.
TEST_F(SweepTest, GoesByTheRuleAndNotByTheTick) {
    struct Row {
        Role role;
        bool tick;
        bool insertsOthers;
    };
    const Row rows[] = {
        {Role::inbox, true, true},
        {Role::inbox, false, false},
        {Role::junk, true, false},
        {Role::junk, false, true},
    };
    for (const auto& row : rows) {
        SCOPED_TRACE(testing::Message() << rawValue(row.role) << row.tick);
        list.clear();
        addVerdicts(3, "a@x.example", "News");
        show(row.role);
        state->approved.set(row.tick ? Ids() : Ids{1, 2, 3});
        state->toggleMessage(1);
        ASSERT_TRUE(state->pending->has_value());
        EXPECT_EQ((*state->pending)->wantApproved, row.tick);
        const auto before = state->approved->common({2, 3});
        state->applyPendingRule(**state->pending, false, SweepChoice::everything);
        EXPECT_EQ(ticked(1), row.tick);
        EXPECT_EQ(ticked(2), row.insertsOthers);
        EXPECT_EQ(ticked(3), row.insertsOthers);
        EXPECT_EQ((*state->lastSweep)->what, row.insertsOthers ? "ticked 2" : "unticked 2");
        EXPECT_EQ((*state->lastSweep)->wereApproved, before);
        EXPECT_EQ((*state->lastSweep)->ids, (Numbers{2, 3}));
        EXPECT_EQ((*state->lastSweep)->learned, std::nullopt);
        EXPECT_EQ(*state->pending, std::nullopt);
    }
}

TEST_F(SweepTest, TakesTheListThatWasChosen) {
    showShapes();
    const std::pair<SweepChoice, Numbers> rows[] = {
        {SweepChoice::members, {2, 3}},
        {SweepChoice::kin, {2, 3, 4, 5}},
        {SweepChoice::everything, {2, 3, 4}},
    };
    for (const auto& [choice, ids] : rows) {
        state->applyPendingRule(handMade(), false, choice);
        EXPECT_EQ((*state->lastSweep)->ids, ids);
        for (const auto id : ids) EXPECT_FALSE(ticked(id)) << id;
        state->undoSweep();
        EXPECT_EQ(state->approved->size(), 9u);
    }
    EXPECT_TRUE(state->rules.combined().empty());
}

TEST_F(SweepTest, ThatLearnsKeepsTheTemplateUnlessItTookEverything) {
    showShapes();
    const std::pair<SweepChoice, Words> rows[] = {
        {SweepChoice::members, parcel}, {SweepChoice::kin, parcel}, {SweepChoice::everything, {}}};
    for (const auto& [choice, words] : rows) {
        state->applyPendingRule(handMade(), true, choice);
        ASSERT_EQ(state->rules.all->size(), 1u);
        const Rule& rule = state->rules.all->front();
        EXPECT_EQ(rule.templateWords, words);
        EXPECT_EQ(rule.sender, "ann@x.example");
        EXPECT_EQ(rule.category, "newsletterOrDigest");
        EXPECT_EQ(rule.verdict, Rule::Verdict::keep);
        EXPECT_EQ(rule.example, "Parcel left depot 1");
        EXPECT_EQ((*state->lastSweep)->learned, rule);
        state->undoSweep();
        EXPECT_TRUE(state->rules.all->empty());
    }
    EXPECT_EQ(*state->learned, 0);
    EXPECT_TRUE(state->calibration.byCategory->empty());
}

TEST_F(SweepTest, OfAnOfferWhoseMessageIsGoneLearnsNothing) {
    showShapes();
    auto offer = handMade();
    offer.sourceID = 99;
    state->applyPendingRule(offer, true, SweepChoice::members);
    EXPECT_TRUE(state->rules.combined().empty());
    EXPECT_FALSE(ticked(2));
    EXPECT_TRUE(state->lastSweep->has_value());
}

TEST_F(SweepTest, TakesTheVeryOfferOnShow) {
    showShapes();
    state->toggleMessage(1);
    state->applyPendingRule(**state->pending, true, SweepChoice::members);
    EXPECT_EQ((*state->lastSweep)->ids, (Numbers{2, 3}));
    EXPECT_EQ(state->rules.all->front().templateWords, parcel);
}

// A lasting rule takes the session rule's place where both say the same of the same mail, so only
// one that says it of more leaves the first lesson standing.
TEST_F(SweepTest, UndoneTakesTheFirstLessonWithItUnlessTheRuleWasWider) {
    showShapes();
    state->toggleMessage(1);
    ASSERT_EQ(state->rules.session->size(), 1u);
    const Rule lesson = state->rules.session->front();
    state->applyPendingRule(**state->pending, true, SweepChoice::everything);
    EXPECT_EQ(state->rules.session->size(), 1u);
    state->undoSweep();
    EXPECT_EQ(*state->rules.session, std::vector<Rule>{lesson});
    EXPECT_TRUE(state->rules.all->empty());

    state->toggleMessage(2);
    state->applyPendingRule(**state->pending, true, SweepChoice::members);
    EXPECT_TRUE(state->rules.session->empty());
    state->undoSweep();
    EXPECT_TRUE(state->rules.combined().empty());
}

TEST_F(SweepTest, UndoneForgetsEvenARuleThatItOnlyStrengthened) {
    showShapes();
    state->rules.add("ann@x.example", Category::newsletterOrDigest, Rule::Verdict::keep,
                     Rule::Scope::always, "Long ago", parcel);
    state->applyPendingRule(handMade(), true, SweepChoice::members);
    EXPECT_EQ((*state->lastSweep)->learned->hits, 2);
    state->undoSweep();
    EXPECT_TRUE(state->rules.combined().empty());
}

TEST_F(SweepTest, UndoneKeepsTalliesAndTheCountOfLessons) {
    showShapes();
    state->toggleMessage(1);
    state->applyPendingRule(**state->pending, true, SweepChoice::members);
    state->pending.set(handMade());
    state->undoSweep();
    EXPECT_EQ(*state->learned, 1);
    EXPECT_EQ(state->calibration.byCategory->at("newsletterOrDigest").toKeep, 1);
    EXPECT_FALSE(ticked(1)) << "the tick itself is no part of the sweep";
    EXPECT_EQ(*state->lastSweep, std::nullopt);
    EXPECT_EQ(*state->pending, std::nullopt);
}

TEST_F(SweepTest, UndoneOnceIsUndone) {
    showShapes();
    state->setCategoryTicked(Category::newsletterOrDigest, false);
    state->undoSweep();
    const auto revision = state->approved.revision();
    state->approved.set({1});
    state->undoSweep();
    EXPECT_EQ(*state->approved, Ids{1});
    EXPECT_EQ(state->approved.revision(), revision + 1);
}

TEST_F(SweepTest, UndoneRestoresWhatWasTickedBeforeEachMessage) {
    showShapes();
    state->approved.set({1, 5});
    state->setMessagesTicked({1, 2, 5, 6}, true, false);
    state->toggleMessage(9);
    state->undoSweep();
    EXPECT_EQ(*state->approved, (Ids{1, 5, 9})) << "what came later stays";
}

TEST_F(SweepTest, OfACategoryTakesAllThatHaveAMessageIDMovedOnesIncluded) {
    for (int i = 0; i < 4; ++i)
        addVerdict("a@x.example", "Buy now", Category::advertisingOrPromotion);
    addVerdict("b@x.example", "News");
    list[1].messageID.reset();
    list[2].vetoed = true;
    show();
    state->approved.set({4, 5});
    state->movedAlready.set({"1@example"});
    state->pending.set(handMade());
    state->setCategoryTicked(Category::advertisingOrPromotion, true);
    EXPECT_EQ(*state->approved, (Ids{1, 3, 4, 5}));
    EXPECT_EQ(*state->lastSweep,
              (Sweep{"ticked all ads & promotions", {1, 3, 4}, {4}, std::nullopt}));
    EXPECT_EQ(*state->pending, std::nullopt);
    EXPECT_TRUE(state->rules.combined().empty());
    EXPECT_EQ(*state->learned, 0);
    state->undoSweep();
    EXPECT_EQ(*state->approved, (Ids{4, 5}));

    state->setCategoryTicked(Category::advertisingOrPromotion, false);
    EXPECT_EQ(*state->approved, Ids{5});
    EXPECT_EQ((*state->lastSweep)->what, "unticked all ads & promotions");
}

TEST_F(SweepTest, OfACategoryWithoutMailCanBeUndoneToo) {
    show();
    state->setCategoryTicked(Category::billOrPayment, true);
    ASSERT_TRUE(state->lastSweep->has_value());
    EXPECT_TRUE((*state->lastSweep)->ids.empty());
    state->undoSweep();
    EXPECT_TRUE(state->approved->empty());
}

TEST_F(SweepTest, OfMessagesLearnsOneSessionRuleForEachCategory) {
    addVerdict("a@x.example", "First news");
    addVerdict("b@x.example", "Second news");
    addVerdict("c@x.example", "A bill", Category::billOrPayment);
    show();
    state->setMessagesTicked({3, 2, 1}, false, true);
    EXPECT_TRUE(state->approved->empty());
    ASSERT_EQ(state->rules.session->size(), 2u);
    const Rule& news = (*state->rules.session)[0];
    EXPECT_EQ(news.sender, "a@x.example") << "the first of them on show, not the first named";
    EXPECT_EQ(news.verdict, Rule::Verdict::keep);
    EXPECT_EQ(news.category, "newsletterOrDigest");
    EXPECT_EQ(news.example, "First news");
    EXPECT_EQ(news.templateWords, Words());
    EXPECT_EQ((*state->rules.session)[1].sender, "c@x.example");
    EXPECT_EQ(*state->learned, 2);
    EXPECT_TRUE(state->calibration.byCategory->empty());
    EXPECT_EQ(*state->lastSweep, (Sweep{"unticked 3", {3, 2, 1}, {1, 2}, std::nullopt}));
    state->undoSweep();
    EXPECT_EQ(state->rules.session->size(), 2u) << "such lessons stay";
}

TEST_F(SweepTest, OfMessagesSaysTheOppositeInAJunkFolder) {
    const std::tuple<Role, bool, Rule::Verdict> rows[] = {
        {Role::inbox, true, Rule::Verdict::junk},
        {Role::inbox, false, Rule::Verdict::keep},
        {Role::junk, true, Rule::Verdict::keep},
        {Role::junk, false, Rule::Verdict::junk},
    };
    for (const auto& [folderRole, tick, verdict] : rows) {
        list.clear();
        addVerdict("a@x.example", "News");
        show(folderRole);
        state->setMessagesTicked({1}, tick, true);
        EXPECT_EQ(state->rules.session->front().verdict, verdict);
        EXPECT_EQ(ticked(1), tick);
    }
}

TEST_F(SweepTest, OfAFilteredListTeachesNothing) {
    addVerdicts(2, "a@x.example", "News");
    show();
    state->pending.set(handMade());
    state->setMessagesTicked({1, 2}, false, false);
    EXPECT_TRUE(state->rules.combined().empty());
    EXPECT_EQ(*state->learned, 0);
    EXPECT_EQ(*state->pending, std::nullopt);
}

TEST_F(SweepTest, OfMessagesPassesOverThoseWithoutAMessageIDAndStrangers) {
    addVerdicts(3, "a@x.example", "News");
    list[0].messageID.reset();
    show();
    state->approved.set({});
    state->setMessagesTicked({1, 2, 77}, true, true);
    EXPECT_EQ(*state->approved, Ids{2});
    EXPECT_EQ((*state->lastSweep)->what, "ticked 1");
    EXPECT_EQ(*state->learned, 1);
    state->setMessagesTicked({1}, true, true);
    EXPECT_EQ((*state->lastSweep)->what, "ticked 0");
    EXPECT_EQ(*state->learned, 1);
}

TEST_F(SweepTest, OfMessagesOfASenderWithoutAKeyStillCountsAsALesson) {
    addVerdict("Shop Team", "News");
    show();
    state->setMessagesTicked({1}, false, true);
    EXPECT_TRUE(state->rules.combined().empty());
    EXPECT_EQ(*state->learned, 1);
}

TEST_F(SweepTest, IsWordedWithGroupedDigits) {
    addVerdicts(1234, "a@x.example", "News");
    show();
    Numbers ids;
    for (const auto& verdict : list) ids.push_back(verdict.id);
    state->setMessagesTicked(ids, false, false);
    EXPECT_EQ((*state->lastSweep)->what, "unticked 1,234");
}

TEST_F(SweepTest, OutlivesANewScan) {
    addVerdicts(2, "a@x.example", "News");
    show();
    state->setCategoryTicked(Category::newsletterOrDigest, false);
    const auto id = add("b@x.example", "Hello");
    scan();
    ASSERT_TRUE(verdictOf(id));
    ASSERT_TRUE(state->lastSweep->has_value());
    EXPECT_EQ(*state->approved, Ids{});
    state->undoSweep();
    EXPECT_EQ(*state->approved, (Ids{1, 2})) << "by row id, whatever is on show";
}

}  // namespace
}  // namespace brindlet
