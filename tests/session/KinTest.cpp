#include "session/Kin.h"

#include <gtest/gtest.h>

namespace brindlet {
namespace {

using Words = Classifier::Words;
using Numbers = std::vector<std::int64_t>;

/// One sender's messages with templates made by hand; ids count from 1.
struct Family {
    std::vector<Verdict> list;
    FamilyTemplates templates;

    Verdict& add(const std::string& subject, const Words& words = {}) {
        Verdict verdict;
        verdict.id = std::ssize(list) + 1;
        verdict.messageID = "m";
        verdict.sender = "ann@x.example";
        verdict.subject = subject;
        templates[verdict.id] = words;
        return list.emplace_back(std::move(verdict));
    }
    KinQuestions questions(std::uint32_t position = 0) const {
        const VerdictList verdicts(list);
        return kinQuestions(position, verdicts, VerdictIndex(verdicts), templates);
    }
    std::optional<PendingRule> with(const PendingRule& offer, const KinAnswers& answers,
                                    const IdSet& approved) const {
        const VerdictList verdicts(list);
        return withKin(offer, answers, verdicts, VerdictIndex(verdicts), templates, approved);
    }
};

Numbers candidateIds(const KinQuestions& questions) {
    Numbers ids;
    for (const auto& candidate : questions.candidates) ids.push_back(candidate.id);
    return ids;
}

std::vector<Words> shapeWords(const KinQuestions& questions) {
    std::vector<Words> shapes;
    for (const auto& shape : questions.shapes) shapes.push_back(shape.templateWords);
    return shapes;
}

TEST(KinQuestions, CandidatesAreTheFirstTwelveSubjectsOfSenderAndCategory) {
    Family family;
    for (int i = 0; i < 20; ++i) family.add("subject " + std::to_string(i));
    family.list[1].sender = "bob@x.example";
    family.list[2].category = Category::billOrPayment;
    family.list[4].subject = family.list[3].subject;
    family.list[5].messageID.reset();
    family.list[6].subject = family.list[0].subject;
    const auto questions = family.questions();
    EXPECT_EQ(questions.reference, "subject 0");
    EXPECT_EQ(candidateIds(questions), (Numbers{4, 6, 7, 8, 9, 10, 11, 12, 13, 14, 15, 16}))
        << "neither the state nor a Message-ID counts, and the source's own subject may come again";
    EXPECT_EQ(questions.candidates[0].subject, "subject 3");
}

TEST(KinQuestions, WithoutATemplateTheFirstTenShapesAreAsked) {
    Family family;
    family.add("source");
    family.add("no shape");
    for (int i = 0; i < 15; ++i)
        for (int twice = 0; twice < 2; ++twice)
            family.add("subject " + std::to_string(family.list.size()),
                       {"shape", std::to_string(i)});
    const auto questions = family.questions();
    ASSERT_EQ(questions.shapes.size(), 10u);
    for (int i = 0; i < 10; ++i) {
        const auto& shape = questions.shapes[static_cast<std::size_t>(i)];
        EXPECT_EQ(shape.templateWords, (Words{"shape", std::to_string(i)}));
        EXPECT_EQ(shape.subject, "subject " + std::to_string(2 + 2 * i));
    }
}

TEST(KinQuestions, WithATemplateTheLikestShapesAreAsked) {
    Family family;
    family.add("source", {"parcel", "left", "depot"});
    family.add("same", {"parcel", "left", "depot"});
    family.add("far", {"weekly", "report", "ready"});
    family.add("near", {"parcel", "arrived"});
    family.add("farther", {"ann", "wrote"});
    family.add("farthest", {"concert", "tickets"});
    family.add("nearest", {"parcel", "left", "port"});
    family.add("near again", {"parcel", "arrived"});
    const auto questions = family.questions();
    EXPECT_EQ(shapeWords(questions),
              (std::vector<Words>{{"parcel", "left", "port"}, {"parcel", "arrived"}}));
    EXPECT_EQ(questions.shapes[1].subject, "near");
}

TEST(KinQuestions, AtMostTenOfTheLikestShapesAreAsked) {
    Family family;
    family.add("source", {"rare", "word"});
    for (int i = 0; i < 11; ++i) family.add("a", {"rare", "kind", std::to_string(i)});
    for (int i = 0; i < 40; ++i) family.add("b", {"other", std::to_string(i)});
    EXPECT_EQ(family.questions().shapes.size(), 10u);
}

class WithKin : public testing::Test {
  protected:
    WithKin() {
        for (int i = 0; i < 10; ++i) family.add("subject " + std::to_string(i));
        offer.sender = offer.display = "ann@x.example";
        offer.sourceID = 1;
        offer.wantApproved = true;
        offer.templateWords = {"parcel", "left"};
    }
    Family family;
    PendingRule offer;
};

// What is found stands among what the offer takes anyway, as long as the offer is whole.
TEST_F(WithKin, FindsNothingNewInAWholeOffer) {
    offer.members = {2};
    offer.everything = {2, 3, 4, 5, 6, 7, 8, 9, 10};
    EXPECT_EQ(family.with(offer, {{3, 4}, {}}, {1}), std::nullopt);
}

TEST_F(WithKin, AddsWhatTheOfferLacks) {
    offer.members = {3};
    offer.everything = {2, 3, 4, 5, 6, 7, 8, 9};
    const auto complete = family.with(offer, {{4, 10}, {}}, {1});
    ASSERT_TRUE(complete);
    EXPECT_EQ(complete->kin, (Numbers{3, 2, 4, 5, 6, 7, 8, 9, 10}));
    EXPECT_EQ(complete->kinWhat, "parcel left");
    auto rest = *complete;
    rest.kin.clear();
    rest.kinWhat.clear();
    EXPECT_EQ(rest, offer) << "all else is fixed";
}

TEST_F(WithKin, TakesMessagesOfAnAnsweredTemplate) {
    family.templates[9] = {"weekly", "report"};
    family.templates[10] = {"ann", "wrote"};
    offer.everything = {2};
    const auto complete = family.with(offer, {{}, {{"weekly", "report"}}}, {1});
    ASSERT_TRUE(complete);
    EXPECT_EQ(complete->kin, (Numbers{2, 9}));
}

TEST_F(WithKin, LeavesWhatNoLongerBelongs) {
    family.list[1].messageID.reset();
    family.list[2].category = Category::billOrPayment;
    family.list[3].sender = "bob@x.example";
    EXPECT_EQ(family.with(offer, {{1, 2, 3, 4, 5, 77}, {}}, {1, 5}), std::nullopt);
    EXPECT_EQ(family.with(offer, {{1, 2, 3, 4, 5, 6}, {}}, {1, 5})->kin, Numbers{6});
    offer.wantApproved = false;
    EXPECT_EQ(family.with(offer, {{1, 2, 3, 4, 5, 6}, {}}, {1, 5})->kin, Numbers{5});
}

TEST_F(WithKin, IsMeasuredByTheLongerOfItsLists) {
    offer.members = {2, 3};
    offer.everything = {3, 4};
    EXPECT_EQ(family.with(offer, {}, {1})->kin, (Numbers{2, 3, 4})) << "three are more than two";
    offer.everything = {2, 3, 4};
    EXPECT_EQ(family.with(offer, {}, {1}), std::nullopt);
    offer.sender = "nobody";
    EXPECT_EQ(family.with(offer, {{5}, {}}, {1}), std::nullopt);
}

}  // namespace
}  // namespace brindlet
