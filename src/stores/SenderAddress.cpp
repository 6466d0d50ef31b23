#include "stores/SenderAddress.h"

#include "base/Text.h"

namespace brindlet {

std::string_view angleBracketed(std::string_view rawSender) {
    const auto open = rawSender.rfind('<');
    const auto close = rawSender.rfind('>');
    if (open == std::string_view::npos || close == std::string_view::npos || close < open)
        return rawSender;
    return rawSender.substr(open + 1, close - open - 1);
}

SenderAddress::SenderAddress(std::string_view rawSender)
    : text_(lowercased(trimBlanks(angleBracketed(rawSender)))) {
    const auto at = text_.rfind('@');
    domainStart_ = at == std::string::npos ? 0 : at + 1;
}

bool SenderAddress::coveredBy(std::string_view ruleSender) const {
    if (ruleSender.find('@') != std::string_view::npos) return whole() == ruleSender;
    const auto host = domain();
    if (!host.ends_with(ruleSender)) return false;
    if (host.size() == ruleSender.size()) return true;
    return host[host.size() - ruleSender.size() - 1] == '.';
}

}  // namespace brindlet
