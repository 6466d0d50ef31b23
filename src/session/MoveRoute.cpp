#include "session/MoveRoute.h"

#include <algorithm>

#include "mail/GmailAccount.h"
#include "mail/JunkDestination.h"

namespace brindlet {

MoveRoute moveRoute(const MailAccount& account, const std::string& destination, bool allowUIMove) {
    return allowUIMove && isLabelFolder(destination, account) ? MoveRoute::menu : MoveRoute::script;
}

bool mayFileThroughGmail(const MailAccount& account, const std::string& destination,
                         bool fromJunk) {
    return !fromJunk && isGmail(account) && !destination.starts_with("[Gmail]");
}

std::string moveDestination(const MailAccount& account, bool fromJunk,
                            const std::optional<std::string>& saved) {
    if (!fromJunk) return junkDestination(account, saved);
    const auto inbox = std::find_if(
        account.folders.begin(), account.folders.end(),
        [](const MailFolder& folder) { return folder.role == MailFolder::Role::inbox; });
    return inbox == account.folders.end() ? "INBOX" : inbox->name;
}

}  // namespace brindlet
