#include "SortLabelled.h"

#include <gtest/gtest.h>

#include "doubles/Doubles.h"

namespace brindlet::tools {
namespace {

using enum Category;

class SortLabelled : public testing::Test {
  protected:
    void add(const std::string& sender, const std::string& subject, const std::string& body = "") {
        mails.push_back({std::to_string(mails.size()), sender, subject, body, cannotTell, false});
    }
    /// An advertisement, unless the subject says "letter".
    std::vector<Answer> sort(DecisionGround ground = {}) {
        model.setScript([](const doubles::ScriptedModel::Call& call) {
            const bool letter = call.prompt.find("letter") != std::string::npos;
            return LanguageModel::Answer{
                {"category", std::string(rawValue(letter ? personalMessageOrReminder
                                                         : advertisingOrPromotion))}};
        });
        return sortLabelled(mails, std::make_shared<const Classifier>(model), std::move(ground));
    }
    doubles::ScriptedModel model;
    std::vector<LabelledMail> mails;
};

TEST_F(SortLabelled, LikeSubjectsInheritWithoutBeingRead) {
    for (const auto* subject :
         {"Big sale today 1", "Big sale today 2", "Big sale today 3", "Big sale today letter"})
        add("Shop <news@shop.example>", subject);
    const auto answers = sort();
    EXPECT_EQ(model.calls().size(), 1U);
    for (const auto& answer : answers) {
        EXPECT_EQ(answer.category, advertisingOrPromotion);
        EXPECT_TRUE(answer.junk);
    }
}

TEST_F(SortLabelled, WhereTheProbesDisagreeAllAreRead) {
    for (int i = 0; i < 9; ++i)
        add("Shop <news@shop.example>", i == 3 ? "Big sale today letter" : "Big sale today");
    const auto answers = sort();
    EXPECT_EQ(model.calls().size(), 9U);
    EXPECT_EQ(answers[3].category, personalMessageOrReminder);
    EXPECT_FALSE(answers[3].junk);
    EXPECT_TRUE(answers[4].junk);
}

TEST_F(SortLabelled, ProtectionHoldsBack) {
    add("Shop <news@shop.example>", "Your receipt");
    add("Me <ME@home.example>", "Sale");
    add("Shop <news@shop.example>", "Sale");
    DecisionGround ground;
    ground.own = AddressSet({"me@home.example"});
    const auto answers = sort(ground);
    EXPECT_TRUE(answers[0].vetoed);
    EXPECT_TRUE(answers[1].vetoed);
    EXPECT_FALSE(answers[2].vetoed);
    EXPECT_FALSE(answers[0].junk);
    EXPECT_FALSE(answers[1].junk);
    EXPECT_TRUE(answers[2].junk);
}

TEST_F(SortLabelled, CorrespondentsAreKnown) {
    add("Bob <bob@x.example>", "A letter");
    DecisionGround ground;
    ground.correspondents = AddressSet({"bob@x.example"});
    ground.overrides[personalMessageOrReminder] = Rule::Verdict::junk;
    EXPECT_TRUE(sort(ground)[0].vetoed);
    ground.correspondents = {};
    EXPECT_TRUE(sort(ground)[0].junk);
}

TEST_F(SortLabelled, TheModelSeesNoMoreOfABodyThanInAScan) {
    std::string body;
    for (int i = 0; i < 700; ++i) body += "e\u0301";
    add("a@b.example", "Hi", body + "x");
    sort();
    EXPECT_EQ(model.calls().front().prompt, "FROM: a@b.example\nSUBJECT: Hi\nBODY:\n" + body);
}

TEST_F(SortLabelled, AskedAloneNothingInheritsAndNothingProtects) {
    for (const auto* subject : {"Your receipt 1", "Your receipt 2", "Your receipt letter"})
        add("Shop <news@shop.example>", subject);
    sort();
    const auto calls = model.calls().size();
    const auto answers = askEach(mails, Classifier(model));
    EXPECT_EQ(model.calls().size(), calls + 3);
    EXPECT_TRUE(answers[0].junk);
    EXPECT_FALSE(answers[0].vetoed);
    EXPECT_EQ(answers[2].category, personalMessageOrReminder);
    EXPECT_FALSE(answers[2].junk);
}

}  // namespace
}  // namespace brindlet::tools
