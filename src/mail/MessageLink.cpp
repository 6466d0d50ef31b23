#include "base/Text.h"
#include "base/Utf8.h"
#include "mail/MailStore.h"
#include "mail/PercentEncoding.h"
#include "platform/Desktop.h"

namespace brindlet {
namespace {

bool isControl(char32_t c) {
    return c < 0x20 || (c >= 0x7F && c < 0xA0);
}

bool makesAddress(std::string_view messageID) {
    if (messageID.empty() || !isValidUtf8(messageID)) return false;
    const char* at = messageID.data();
    const char* const end = at + messageID.size();
    while (at < end) {
        const char32_t c = nextCodePoint(at, end);
        if (isControl(c) || isWhiteSpace(c)) return false;
    }
    return true;
}

}  // namespace

std::optional<std::string> MailStore::messageLink(std::string_view messageID) {
    if (!makesAddress(messageID)) return std::nullopt;
    // "%3c" and "%3e" are the angle brackets that the Message-ID has in the message itself.
    return "message://%3c" + percentEncoded(messageID, "-._~@!$&'()*+,;=") + "%3e";
}

void MailStore::openInMail(std::string_view messageID) const {
    if (const auto link = messageLink(messageID)) services_.desktop.openLink(*link);
}

}  // namespace brindlet
