#include "LabelledMail.h"

#include <gtest/gtest.h>

namespace brindlet::tools {
namespace {

const std::string good =
    R"({"from":"a@b.test","subject":"Tea","body":"At four","category":"cannotTell"})";

TEST(LabelledMail, IsReadFromLines) {
    std::string problem;
    const auto mails = parseLabelledMail(
        R"({"id":"x3","lang":"en","from":"a@b.test","subject":"Tea","body":"At four",)"
        R"("category":"billOrPayment","ambiguous":true})"
        "\n\n" +
            good,
        problem);
    ASSERT_TRUE(mails) << problem;
    ASSERT_EQ(mails->size(), 2U);
    EXPECT_EQ(mails->front().id, "x3");
    EXPECT_EQ(mails->front().sender, "a@b.test");
    EXPECT_EQ(mails->front().subject, "Tea");
    EXPECT_EQ(mails->front().body, "At four");
    EXPECT_EQ(mails->front().category, Category::billOrPayment);
    EXPECT_TRUE(mails->front().ambiguous);
    EXPECT_EQ(mails->back().id, "3") << "the number of its line";
    EXPECT_FALSE(mails->back().ambiguous);
}

TEST(LabelledMail, NothingIsNoMail) {
    std::string problem;
    EXPECT_TRUE(parseLabelledMail("", problem)->empty());
    EXPECT_TRUE(parseLabelledMail("\n\n", problem)->empty());
}

TEST(LabelledMail, DamageIsToldWithItsLine) {
    const std::vector<std::pair<std::string, std::string>> lines{
        {"{", "Line 3 is no JSON object."},
        {"[]", "Line 3 is no JSON object."},
        {"from: a", "Line 3 is no JSON object."},
        {good + "}", "Line 3 is no JSON object."},
        {R"({"subject":"","body":"","category":"cannotTell"})", R"(Line 3 has no "from".)"},
        {R"({"from":"","body":"","category":"cannotTell"})", R"(Line 3 has no "subject".)"},
        {R"({"from":"","subject":"","category":"cannotTell"})", R"(Line 3 has no "body".)"},
        {R"({"from":"","subject":"","body":""})", R"(Line 3 has no "category".)"},
        {R"({"from":"","subject":7})", R"(Line 3: "subject" is no text.)"},
        {R"({"id":7})", R"(Line 3: "id" is no text.)"},
        {R"({"ambiguous":"no"})", R"(Line 3: "ambiguous" is neither true nor false.)"},
        {R"({"from":"","subject":"","body":"","category":"CannotTell"})",
         R"(Line 3: there is no category "CannotTell".)"},
    };
    for (const auto& [line, sentence] : lines) {
        std::string problem;
        EXPECT_FALSE(parseLabelledMail(good + "\n\n" + line + "\n" + good, problem)) << line;
        EXPECT_EQ(problem, sentence) << line;
    }
}

}  // namespace
}  // namespace brindlet::tools
