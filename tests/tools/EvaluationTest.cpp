#include "Evaluation.h"

#include <gtest/gtest.h>

namespace brindlet::tools {
namespace {

TEST(LabelledMail, IsReadFromLines) {
    std::string problem;
    const auto mails = parseLabelledMail(
        "{\"id\":3,\"from\":\"a@b.test\",\"subject\":\"Tea\",\"body\":\"At four\","
        "\"category\":\"billOrPayment\",\"ambiguous\":true}\n\n"
        "{\"category\":\"cannotTell\"}",
        problem);
    ASSERT_TRUE(mails) << problem;
    ASSERT_EQ(mails->size(), 2U);
    EXPECT_EQ(mails->front().sender, "a@b.test");
    EXPECT_EQ(mails->front().subject, "Tea");
    EXPECT_EQ(mails->front().body, "At four");
    EXPECT_EQ(mails->front().category, Category::billOrPayment);
    EXPECT_TRUE(mails->front().ambiguous);
    EXPECT_FALSE(mails->back().ambiguous);
}

TEST(LabelledMail, DamageIsToldWithItsLine) {
    for (const std::string line : {"{", "[]", "{\"subject\":\"no category\"}",
                                   "{\"category\":\"CannotTell\"}", "{\"category\":3}"}) {
        std::string problem;
        EXPECT_FALSE(parseLabelledMail("{\"category\":\"cannotTell\"}\n" + line, problem)) << line;
        EXPECT_EQ(problem, "Line 2 is no labelled message.");
    }
}

TEST(Evaluation, CountsByCategory) {
    Evaluation evaluation;
    for (int i = 0; i < 3; ++i) evaluation.add(Category::billOrPayment, Category::billOrPayment);
    evaluation.add(Category::billOrPayment, Category::cannotTell);
    evaluation.add(Category::cannotTell, Category::cannotTell);
    EXPECT_EQ(evaluation.rows(), 5);
    EXPECT_DOUBLE_EQ(evaluation.accuracy(), 0.8);
    EXPECT_DOUBLE_EQ(evaluation.precision(Category::billOrPayment), 1);
    EXPECT_DOUBLE_EQ(evaluation.recall(Category::billOrPayment), 0.75);
    EXPECT_DOUBLE_EQ(evaluation.precision(Category::cannotTell), 0.5);
    EXPECT_DOUBLE_EQ(evaluation.precision(Category::socialMediaBlast), 0);
    EXPECT_NEAR(evaluation.macroF1(), (6.0 / 7 + 2.0 / 3) / 10, 1e-12);
    EXPECT_NE(evaluation.json().find("\"billOrPayment\":{\"precision\":1,\"recall\":0.75,"
                                     "\"answers\":{\"billOrPayment\":3,\"cannotTell\":1}}"),
              std::string::npos)
        << evaluation.json();
}

TEST(Evaluation, NothingIsNothing) {
    EXPECT_DOUBLE_EQ(Evaluation().accuracy(), 0);
    EXPECT_DOUBLE_EQ(Evaluation().macroF1(), 0);
}

}  // namespace
}  // namespace brindlet::tools
