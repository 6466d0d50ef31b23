#include <algorithm>
#include <array>

#include "base/Graphemes.h"
#include "base/Text.h"
#include "base/Utf8.h"
#include "stores/Rules.h"
#include "stores/SenderAddress.h"

namespace brindlet {
namespace {

/// Domains whose every address is a person of its own, however it looks.
constexpr std::array<std::string_view, 8> publicMailDomains = {
    "gmail.com",  "hotmail.com", "outlook.com", "yahoo.com",
    "icloud.com", "me.com",      "aol.com",     "proton.me",
};

bool isPublicMailDomain(std::string_view domain) {
    return std::find(publicMailDomains.begin(), publicMailDomains.end(), domain) !=
           publicMailDomains.end();
}

/// A name that somebody might have, as against one that a mailing machine made up.
bool isShortAndPlain(std::string_view local) {
    return hasFewerGraphemes(local, 15) && local.find('+') == std::string_view::npos &&
           !containsDecimalDigit(local);
}

std::string_view untilBracketOrBlank(std::string_view text) {
    const char* at = text.data();
    const char* const end = at + text.size();
    while (at != end) {
        const char* const start = at;
        const char32_t c = nextCodePoint(at, end);
        if (c == U'>' || isBlank(c))
            return text.substr(0, static_cast<std::size_t>(start - text.data()));
    }
    return text;
}

}  // namespace

std::string Rules::senderKey(std::string_view sender) {
    const auto working = angleBracketed(sender);
    const auto at = working.rfind('@');
    if (at == std::string_view::npos) {
        auto bare = lowercased(trimBlanks(working));
        if (bare.find('.') == std::string::npos || containsBlank(bare)) bare.clear();
        return bare;
    }
    // The local part stays as it stands, blanks and display name included. A key with such a local
    // part covers no message, since the address of a message is trimmed.
    const auto local = working.substr(0, at);
    const auto domain = lowercased(untilBracketOrBlank(working.substr(at + 1)));
    if (domain.empty() || local.empty()) return domain;
    if (!isPublicMailDomain(domain) && !isShortAndPlain(local)) return domain;
    return lowercased(local) + "@" + domain;
}

}  // namespace brindlet
