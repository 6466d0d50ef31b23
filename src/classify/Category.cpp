#include "classify/Category.h"

namespace brindlet {

std::string_view displayName(Category category) {
    switch (category) {
        case Category::advertisingOrPromotion:
            return "Ads & promotions";
        case Category::newsletterOrDigest:
            return "Newsletters & digests";
        case Category::socialMediaBlast:
            return "Social notifications";
        case Category::receiptOrOrderOrShipping:
            return "Receipts & orders";
        case Category::billOrPayment:
            return "Bills & payments";
        case Category::securityCodeOrSignInAlert:
            return "Security & sign-in";
        case Category::accountWelcomeOrInvitation:
            return "Accounts & invitations";
        case Category::personalMessageOrReminder:
            return "People & reminders";
        case Category::deliveryFailureBounce:
            return "Bounced mail";
        case Category::cannotTell:
            return "Unclear";
    }
    return {};
}

bool isDefaultJunk(Category category) {
    return category == Category::advertisingOrPromotion ||
           category == Category::newsletterOrDigest || category == Category::socialMediaBlast ||
           category == Category::deliveryFailureBounce;
}

bool isProtectedByCorrespondence(Category category) {
    return category == Category::personalMessageOrReminder || category == Category::cannotTell;
}

}  // namespace brindlet
