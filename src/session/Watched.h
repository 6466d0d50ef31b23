#pragma once

#include <optional>
#include <vector>

#include "mail/MailAccount.h"
#include "stores/Schedule.h"

namespace brindlet {

/// A mailbox to scan, with its account.
struct Mailbox {
    MailAccount account;
    MailFolder folder;

    friend bool operator==(const Mailbox&, const Mailbox&) = default;
};

/// Where a watched mailbox is: the account by its id, the folder in it by its whole name, letter
/// case and all. None when either is gone.
std::optional<Mailbox> findWatched(const std::vector<MailAccount>& accounts,
                                   const WatchedMailbox& watched);

/// Those of the watched that are not there any more, in their order. None as long as no account was
/// read: that says nothing of any.
std::vector<WatchedMailbox> goneWatched(const std::vector<MailAccount>& accounts,
                                        const std::vector<WatchedMailbox>& watched);
/// The others.
std::vector<WatchedMailbox> presentWatched(const std::vector<MailAccount>& accounts,
                                           const std::vector<WatchedMailbox>& watched);

}  // namespace brindlet
