#include "mail/GmailAccount.h"

#include <algorithm>

#include "base/Text.h"

namespace brindlet {

bool isGmail(const MailAccount& account) {
    return std::any_of(account.folders.begin(), account.folders.end(),
                       [](const MailFolder& folder) { return folder.name.starts_with("[Gmail]"); });
}

bool isLabelFolder(std::string_view name, const MailAccount& account) {
    if (!isGmail(account)) return false;
    const std::string lower = lowercased(name);
    for (const auto* const emptied : {"spam", "trash", "bin"})
        if (lower.find(emptied) != std::string::npos) return false;
    return true;
}

bool isSpamFolder(std::string_view name, const MailAccount& account) {
    return isGmail(account) && lowercased(name).find("spam") != std::string::npos;
}

}  // namespace brindlet
