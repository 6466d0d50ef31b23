#pragma once

#include <string>
#include <vector>

#include "platform/LanguageModel.h"

namespace brindlet {

/// The schema that the embedded model knows, written out once more for its tests.
inline ModelSchema labelSchema() {
    return {"Label",
            "The single best category",
            {{"category",
              "the category",
              "Category",
              "What kind of email this is",
              {"advertisingOrPromotion", "newsletterOrDigest", "socialMediaBlast",
               "receiptOrOrderOrShipping", "billOrPayment", "securityCodeOrSignInAlert",
               "accountWelcomeOrInvitation", "personalMessageOrReminder", "deliveryFailureBounce",
               "cannotTell"}}}};
}

/// The model's word for a prompt; "failed" when it gives none.
inline std::string answerTo(LanguageModel& model, const std::string& prompt) {
    const auto answer = model.respond("", labelSchema(), prompt, {});
    return answer ? answer->at("category") : "failed";
}

}  // namespace brindlet
