#include "base/Text.h"
#include "base/Utf8.h"
#include "gmail/Gmail.h"
#include "platform/KeyStore.h"

namespace brindlet {
namespace {

constexpr const char* service = "app.brindlet.Brindlet.gmail";

/// What the safe gives back may be another program's doing.
Secret repaired(const Secret& secret) {
    const auto bytes = secret.text();
    std::vector<std::string_view> parts;
    for (std::size_t at = 0;;) {
        const auto bad = findIllFormedUtf8(bytes, at);
        parts.push_back(bytes.substr(at, bad.start - at));
        if (bad.length == 0) return Secret::joined(parts);
        parts.push_back("\xEF\xBF\xBD");
        at = bad.start + bad.length;
    }
}

/// The password is shown in groups of four letters, and pasted so.
Secret withoutSpaces(const Secret& password) {
    return Secret::joined(nonEmptyPieces(password.text(), ' '));
}

}  // namespace

void Gmail::saveAppPassword(const SignIn& signIn) {
    const Secret password = withoutSpaces(signIn.appPassword);
    if (!password.empty()) keys_.save(service, signIn.address, password);
}

std::optional<Secret> Gmail::readAppPassword(const std::string& address) {
    const auto kept = keys_.read(service, address);
    return kept ? std::optional(repaired(*kept)) : std::nullopt;
}

void Gmail::forgetAppPassword(const std::string& address) {
    keys_.forget(service, address);
}

bool Gmail::hasAppPassword(const std::string& address) {
    return keys_.has(service, address);
}

}  // namespace brindlet
