#include "session/Watched.h"

#include <algorithm>

namespace brindlet {

std::optional<Mailbox> findWatched(const std::vector<MailAccount>& accounts,
                                   const WatchedMailbox& watched) {
    const auto account = std::find_if(accounts.begin(), accounts.end(),
                                      [&](const auto& each) { return each.id == watched.account; });
    if (account == accounts.end()) return std::nullopt;
    const auto& folders = account->folders;
    const auto folder = std::find_if(folders.begin(), folders.end(),
                                     [&](const auto& each) { return each.name == watched.folder; });
    if (folder == folders.end()) return std::nullopt;
    return Mailbox{*account, *folder};
}

std::vector<WatchedMailbox> goneWatched(const std::vector<MailAccount>& accounts,
                                        const std::vector<WatchedMailbox>& watched) {
    if (accounts.empty()) return {};
    auto gone = watched;
    std::erase_if(gone, [&](const auto& each) { return findWatched(accounts, each).has_value(); });
    return gone;
}

std::vector<WatchedMailbox> presentWatched(const std::vector<MailAccount>& accounts,
                                           const std::vector<WatchedMailbox>& watched) {
    if (accounts.empty()) return watched;
    auto present = watched;
    std::erase_if(present, [&](const auto& each) { return !findWatched(accounts, each); });
    return present;
}

}  // namespace brindlet
