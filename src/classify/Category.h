#pragma once

#include <string_view>

#include "base/EnumInfo.h"

namespace brindlet {

/// What kind of mail a message is. The raw value is the word that the model answers with, and the
/// key of rules and tallies.
enum class Category {
    advertisingOrPromotion,
    newsletterOrDigest,
    socialMediaBlast,
    receiptOrOrderOrShipping,
    billOrPayment,
    securityCodeOrSignInAlert,
    accountWelcomeOrInvitation,
    personalMessageOrReminder,
    deliveryFailureBounce,
    cannotTell,
};

template <>
struct EnumInfo<Category> {
    static constexpr std::array<std::pair<Category, std::string_view>, 10> all{{
        {Category::advertisingOrPromotion, "advertisingOrPromotion"},
        {Category::newsletterOrDigest, "newsletterOrDigest"},
        {Category::socialMediaBlast, "socialMediaBlast"},
        {Category::receiptOrOrderOrShipping, "receiptOrOrderOrShipping"},
        {Category::billOrPayment, "billOrPayment"},
        {Category::securityCodeOrSignInAlert, "securityCodeOrSignInAlert"},
        {Category::accountWelcomeOrInvitation, "accountWelcomeOrInvitation"},
        {Category::personalMessageOrReminder, "personalMessageOrReminder"},
        {Category::deliveryFailureBounce, "deliveryFailureBounce"},
        {Category::cannotTell, "cannotTell"},
    }};
};

/// The label that the person reads.
std::string_view displayName(Category category);

/// Advertising, newsletters, social notifications and bounces.
bool isDefaultJunk(Category category);

/// The two categories in which having written to the sender protects a message.
bool isProtectedByCorrespondence(Category category);

}  // namespace brindlet
