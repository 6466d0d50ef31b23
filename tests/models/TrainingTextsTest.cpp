#include "models/training/TrainingTexts.h"

#include <gtest/gtest.h>

#include <functional>
#include <set>
#include <string>
#include <string_view>

#include "models/embedded/Labels.h"

namespace brindlet::training {
namespace {

constexpr std::string_view folder = BRINDLET_FIXTURES "/../../resources/training";

TEST(TrainingGrammar, CountsASubjectOncePerScenarioAndKnowsEachLanguage) {
    const std::string scenario = "senders:\na\nsubjects:\nb\nc\nbodies:\nd\n";
    Grammar grammar;
    ASSERT_EQ(grammar.addCategory(
                  "x", "== weight 1\n" + scenario + "== weight 1, language pl\n" + scenario),
              "");
    const auto breadth = grammar.breadth("x");
    EXPECT_EQ(breadth.patterns, 4U);
    EXPECT_EQ(breadth.languages, (std::set<std::string, std::less<>>{"en", "pl"}));
}

class TrainingTexts : public testing::Test {
  protected:
    void SetUp() override { ASSERT_EQ(readTrainingTexts(std::string(folder), grammar_), ""); }

    Grammar grammar_;
};

TEST_F(TrainingTexts, AreWideInEveryCategoryThatOneCouldTakeForAnother) {
    for (const std::string_view label :
         {"advertisingOrPromotion", "newsletterOrDigest", "socialMediaBlast",
          "receiptOrOrderOrShipping", "billOrPayment", "securityCodeOrSignInAlert",
          "accountWelcomeOrInvitation", "personalMessageOrReminder", "cannotTell"}) {
        SCOPED_TRACE(label);
        const auto breadth = grammar_.breadth(label);
        EXPECT_GE(breadth.patterns, 120U);
        for (const std::string_view language : {"en", "de", "fr", "es", "it", "pt", "nl", "pl"})
            EXPECT_TRUE(breadth.languages.contains(language)) << language;
    }
}

TEST_F(TrainingTexts, LeaveNothingUnfilled) {
    Random random(11);
    for (const auto label : learnedLabels) {
        for (int i = 0; i < 400; ++i) {
            Grammar::Dress dress{};
            const SampleMail mail = grammar_.make(label, random, dress);
            SCOPED_TRACE(std::string(label) + ": " + mail.sender + " / " + mail.subject);
            EXPECT_FALSE(mail.sender.empty());
            // A trace of the notation means that a phrase was split in the wrong place.
            for (const std::string_view trace : {"|)", "(|", ":lower}", ":plain}", ":upper}"}) {
                EXPECT_EQ(mail.sender.find(trace), std::string::npos) << trace;
                EXPECT_EQ(mail.subject.find(trace), std::string::npos) << trace;
                EXPECT_EQ(mail.body.find(trace), std::string::npos) << trace << mail.body;
            }
        }
    }
}

}  // namespace
}  // namespace brindlet::training
