#include <array>

#include "base/Pattern.h"
#include "classify/Classifier.h"
#include "classify/NeedleSearch.h"
#include "classify/Resources.h"

namespace brindlet {
namespace {

/// Every match of the expression holds one of these, which are found many times faster; only a
/// subject that has one is shown to the expression. An alternative added there needs its needle
/// here. The last two are the only characters beyond ASCII that are an ASCII letter in another
/// case: the long s and the kelvin sign. A subject with one of them is not judged here.
constexpr std::array<std::string_view, 47> needles{
    " code",
    "2fa",
    "time password",
    "otp",
    "new login",
    "login to ",
    "logged in to",
    "signed in to",
    "username changed",
    "password reset",
    "reset your password",
    "secure link to log",
    "new device",
    "new sign",
    "used to sign in",
    "in alert",
    "a sound was played",
    "my email was used",
    "been credited",
    "change your password",
    "suspicious activity",
    "suspicious sign",
    "your receipt",
    "your invoice",
    "your order",
    "your statement",
    "your bill",
    "order confirmation",
    "order #",
    "order is",
    "has shipped",
    "out for delivery",
    "payment received",
    "payment confirmation",
    "payment due",
    "refund",
    "pay your ",
    "subscription renewal",
    "subscription is expiring",
    "auto relo",
    "autorelo",
    "appointment confirmed",
    "appointment reminder",
    "booking confirmation",
    "itinerary",
    "\xC5\xBF",
    "\xE2\x84\xAA",
};

}  // namespace

std::string_view Classifier::vetoRegex() {
    return resources::vetoExpression;
}

bool Classifier::isVetoed(std::string_view subject) {
    static const NeedleSearch search(needles);
    static const Pattern expression(vetoRegex());
    return search.anyIn(subject) && expression.occursIn(subject);
}

}  // namespace brindlet
