#include "Evaluation.h"

#include <gtest/gtest.h>

#include <algorithm>

namespace brindlet::tools {
namespace {

using enum Category;

/// Twelve messages, few enough to count by hand.
struct Dozen {
    std::vector<LabelledMail> mails;
    std::vector<Answer> answers;

    Dozen() {
        add(advertisingOrPromotion, advertisingOrPromotion, true);
        add(advertisingOrPromotion, newsletterOrDigest, true);
        add(advertisingOrPromotion, cannotTell, false);
        add(deliveryFailureBounce, deliveryFailureBounce, true);
        add(receiptOrOrderOrShipping, receiptOrOrderOrShipping, false);
        add(receiptOrOrderOrShipping, advertisingOrPromotion, false, true);
        add(billOrPayment, billOrPayment, false);
        add(billOrPayment, newsletterOrDigest, true);
        add(personalMessageOrReminder, personalMessageOrReminder, false);
        add(personalMessageOrReminder, cannotTell, false);
        add(accountWelcomeOrInvitation, advertisingOrPromotion, true);
        add(cannotTell, cannotTell, false);
        mails.push_back({"13", "", "", "", billOrPayment, true});
        answers.push_back({advertisingOrPromotion, true, false});
    }
    void add(Category right, Category given, bool junk, bool vetoed = false) {
        mails.push_back({std::to_string(mails.size() + 1), "", "", "", right, false});
        answers.push_back({given, junk, vetoed});
    }
    Evaluation evaluation() const { return {mails, answers}; }
};

void expectShare(const Share& share, std::int64_t part, std::int64_t whole) {
    EXPECT_EQ(share.part, part);
    EXPECT_EQ(share.whole, whole);
}

TEST(Evaluation, CountsWhatMustStayFirst) {
    const auto evaluation = Dozen().evaluation();
    EXPECT_EQ(evaluation.rows(), 12) << "the ambiguous one is in no number";
    expectShare(evaluation.lost(), 1, 6);
    expectShare(evaluation.lost(billOrPayment), 1, 2);
    expectShare(evaluation.lost(receiptOrOrderOrShipping), 0, 2);
    expectShare(evaluation.lost(securityCodeOrSignInAlert), 0, 0);
}

TEST(Evaluation, JudgesJunkByWhatWasProposedNotByTheCategory) {
    const auto evaluation = Dozen().evaluation();
    expectShare(evaluation.junkPrecision(), 3, 5);
    expectShare(evaluation.junkRecall(), 3, 4);
}

TEST(Evaluation, CountsCategories) {
    const auto evaluation = Dozen().evaluation();
    expectShare(evaluation.accuracy(), 6, 12);
    expectShare(evaluation.undecided(), 2, 11);
    expectShare(evaluation.precision(advertisingOrPromotion), 1, 3);
    expectShare(evaluation.recall(advertisingOrPromotion), 1, 3);
    EXPECT_EQ(evaluation.count(billOrPayment, newsletterOrDigest), 1);
    EXPECT_EQ(evaluation.count(newsletterOrDigest, billOrPayment), 0);
    // Seven categories have rows: ads 2/6, bounces 1, receipts 2/3, bills 2/3, people 2/3,
    // accounts 0, unclear 2/4.
    EXPECT_NEAR(evaluation.macroF1(), (2 / 6. + 1 + 3 * 2 / 3. + 0 + 2 / 4.) / 7, 1e-12);
    const auto interval = evaluation.macroF1Interval();
    EXPECT_LT(interval.low, evaluation.macroF1());
    EXPECT_GT(interval.high, evaluation.macroF1());
}

TEST(Evaluation, NothingIsNothing) {
    const Evaluation evaluation({}, {});
    EXPECT_EQ(evaluation.macroF1(), 0);
    EXPECT_EQ(evaluation.macroF1Interval().high, 1);
    expectShare(evaluation.accuracy(), 0, 0);
    EXPECT_NE(markdown(evaluation).find("| Right category (accuracy) | - | - | 0 of 0 |"),
              std::string::npos);
}

TEST(Evaluation, TablesBeginWithWhatWouldBeLost) {
    const auto tables = markdown(Dozen().evaluation());
    EXPECT_TRUE(
        tables.starts_with("| | Share | 95 % interval | Messages |\n|---|---|---|---|\n"
                           "| **Mail that must stay, proposed as junk** | **16.7 %** | "
                           "3.0 to 56.4 % | 1 of 6 |\n"))
        << tables;
    for (const auto* row :
         {"| of these Security & sign-in | - | - | 0 of 0 |\n",
          "| Proposed as junk and junk (precision) | 60.0 % | 23.1 to 88.2 % | 3 of 5 |\n",
          "| Junk and proposed as junk (recall) | 75.0 % | 30.1 to 95.4 % | 3 of 4 |\n",
          "| Right category (accuracy) | 50.0 % | 25.4 to 74.6 % | 6 of 12 |\n",
          "| Ads & promotions | **1** | 1 |  |  |  |  |  |  |  | 1 | 33.3 % | 33.3 % |\n",
          "| Accounts & invitations | 1 |  |  |  |  |  | **0** |  |  |  | 0.0 % | - |\n"})
        EXPECT_NE(tables.find(row), std::string::npos) << row << tables;
}

TEST(Evaluation, LinesHoldEveryAnswer) {
    const Dozen dozen;
    const auto lines = answerLines(dozen.mails, dozen.answers);
    EXPECT_TRUE(lines.starts_with(
        R"({"id":"1","category":"advertisingOrPromotion","junk":true,"vetoed":false})"
        "\n"))
        << lines;
    EXPECT_NE(
        lines.find(R"({"id":"6","category":"advertisingOrPromotion","junk":false,"vetoed":true})"),
        std::string::npos);
    EXPECT_EQ(std::ranges::count(lines, '\n'), 13) << "the ambiguous one is told too";
}

}  // namespace
}  // namespace brindlet::tools
