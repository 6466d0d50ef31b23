#pragma once

#include <array>
#include <cstddef>
#include <string_view>

namespace brindlet {

/// The words that the model answers with, in the order of the weights' columns. Bounces have none:
/// they are known by their subjects alone.
inline constexpr std::array<std::string_view, 9> learnedLabels{
    "advertisingOrPromotion",
    "newsletterOrDigest",
    "socialMediaBlast",
    "receiptOrOrderOrShipping",
    "billOrPayment",
    "securityCodeOrSignInAlert",
    "accountWelcomeOrInvitation",
    "personalMessageOrReminder",
    "cannotTell",
};
inline constexpr std::string_view bounceLabel = "deliveryFailureBounce";

/// The columns, from the first, of those that a person's mail is thrown away for.
inline constexpr std::size_t junkLabels = 3;
inline constexpr std::size_t cannotTellLabel = learnedLabels.size() - 1;

/// What each learned label weighs.
using LabelScores = std::array<float, learnedLabels.size()>;

}  // namespace brindlet
