#include <gtest/gtest.h>

#include <map>
#include <set>
#include <string>
#include <tuple>

#include "LabelledMail.h"
#include "base/Files.h"
#include "base/Graphemes.h"

namespace brindlet::tools {
namespace {

class ValidationMail : public testing::Test {
  protected:
    ValidationMail() {
        std::string problem;
        const auto lines = files::read(BRINDLET_VALIDATION);
        if (const auto parsed = parseLabelledMail(lines.value_or(""), problem)) mails = *parsed;
        EXPECT_EQ(problem, "");
    }
    std::vector<LabelledMail> mails;
};

TEST_F(ValidationMail, IsEnoughOfEveryCategoryToMeasureOn) {
    std::map<Category, int> counts;
    for (const auto& mail : mails) ++counts[mail.category];
    for (const auto category : allCases<Category>())
        EXPECT_GE(counts[category], category == Category::deliveryFailureBounce ? 15 : 40)
            << rawValue(category);
    EXPECT_GE(mails.size(), 400U);
}

TEST_F(ValidationMail, RepeatsNothing) {
    std::set<std::tuple<std::string, std::string, std::string>> seen;
    for (const auto& mail : mails)
        EXPECT_TRUE(seen.insert({mail.sender, mail.subject, mail.body}).second) << mail.subject;
}

TEST_F(ValidationMail, HasTheFormInWhichAScanReadsMail) {
    for (const auto& mail : mails) {
        EXPECT_LE(graphemeCount(mail.body), 700U) << mail.subject;
        EXPECT_EQ(mail.body.find('\n'), std::string::npos) << mail.subject;
        EXPECT_FALSE(mail.ambiguous) << mail.subject;
    }
}

}  // namespace
}  // namespace brindlet::tools
