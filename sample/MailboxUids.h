#pragma once

#include <cstdint>
#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "sample/ImapAccount.h"

struct sqlite3;

namespace brindlet::sample {

/// Which UID a message has in which mailbox. The server remembers it in a database of its own, so
/// that a UID holds as long as the message stays there and never becomes another's, whether the
/// server runs or not. One thread at a time; several processes may have one open.
class MailboxUids {
  public:
    /// Made when there is none at the path; none when it cannot be opened.
    static std::unique_ptr<MailboxUids> open(const std::string& path);
    ~MailboxUids();
    MailboxUids(const MailboxUids&) = delete;
    MailboxUids& operator=(const MailboxUids&) = delete;

    /// The mailbox with these messages in it. Those that are new get the next UIDs in the order of
    /// their rows; of those that are gone the UIDs go as well. None on failure.
    std::optional<ImapMailbox> assign(std::int64_t mailbox, std::vector<std::int64_t> messages);

  private:
    struct State;
    explicit MailboxUids(sqlite3* database);
    std::unique_ptr<State> state_;
};

}  // namespace brindlet::sample
