#include "mail/MailStore.h"
#include "mail/PercentEncoding.h"
#include "platform/Desktop.h"

namespace brindlet {

std::string MailStore::messageLink(std::string_view messageID) {
    // "%3c" and "%3e" are the angle brackets that the Message-ID has in the message itself.
    return "message://%3c" + percentEncoded(messageID, "-._~@!$&'()*+,;=") + "%3e";
}

void MailStore::openInMail(std::string_view messageID) const {
    services_.desktop.openLink(messageLink(messageID));
}

}  // namespace brindlet
