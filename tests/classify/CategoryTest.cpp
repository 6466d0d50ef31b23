#include "classify/Category.h"

#include <gtest/gtest.h>

#include <string>

namespace brindlet {
namespace {

struct Row {
    Category category;
    std::string_view raw;
    std::string_view name;
    bool junk;
    bool correspondence;
};

constexpr Row rows[] = {
    {Category::advertisingOrPromotion, "advertisingOrPromotion", "Ads & promotions", true, false},
    {Category::newsletterOrDigest, "newsletterOrDigest", "Newsletters & digests", true, false},
    {Category::socialMediaBlast, "socialMediaBlast", "Social notifications", true, false},
    {Category::receiptOrOrderOrShipping, "receiptOrOrderOrShipping", "Receipts & orders", false,
     false},
    {Category::billOrPayment, "billOrPayment", "Bills & payments", false, false},
    {Category::securityCodeOrSignInAlert, "securityCodeOrSignInAlert", "Security & sign-in", false,
     false},
    {Category::accountWelcomeOrInvitation, "accountWelcomeOrInvitation", "Accounts & invitations",
     false, false},
    {Category::personalMessageOrReminder, "personalMessageOrReminder", "People & reminders", false,
     true},
    {Category::deliveryFailureBounce, "deliveryFailureBounce", "Bounced mail", true, false},
    {Category::cannotTell, "cannotTell", "Unclear", false, true},
};

TEST(CategoryTable, HoldsTheFixedOrderWordsAndDefaults) {
    const auto cases = allCases<Category>();
    ASSERT_EQ(cases.size(), std::size(rows));
    for (std::size_t i = 0; i < cases.size(); ++i) {
        SCOPED_TRACE(rows[i].raw);
        EXPECT_EQ(cases[i], rows[i].category);
        EXPECT_EQ(rawValue(cases[i]), rows[i].raw);
        EXPECT_EQ(fromRaw<Category>(rows[i].raw), cases[i]);
        EXPECT_EQ(displayName(cases[i]), rows[i].name);
        EXPECT_EQ(isDefaultJunk(cases[i]), rows[i].junk);
        EXPECT_EQ(isProtectedByCorrespondence(cases[i]), rows[i].correspondence);
    }
}

TEST(CategoryRawValue, OtherWordsGiveNoCategory) {
    for (const std::string_view word :
         {"", "CannotTell", "cannottell", "cannotTell ", " cannotTell", "cannot", "Unclear", "junk",
          "billOrPayments"})
        EXPECT_FALSE(fromRaw<Category>(word)) << '"' << word << '"';
}

}  // namespace
}  // namespace brindlet
