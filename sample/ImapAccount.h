#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <vector>

namespace brindlet::sample {

/// A mailbox as one selection of it saw it.
struct ImapMailbox {
    struct Message {
        std::uint32_t uid = 0;
        /// By which the account knows it.
        std::int64_t message = 0;
    };

    std::uint32_t validity = 1;
    /// What the next message to come will have.
    std::uint32_t nextUid = 1;
    /// By their UIDs, ascending.
    std::vector<Message> messages;
};

/// The mail of one account, as a conversation over IMAP asks for it. Names of mailboxes and labels
/// are UTF-8, "/" between levels. A message that somebody has meanwhile put elsewhere is gone: it
/// has no marks, no labels and an empty header.
class ImapAccount {
  public:
    virtual ~ImapAccount() = default;

    struct Name {
        std::string name;
        /// What the mailbox is for or lacks, each with its backslash: "\All".
        std::vector<std::string> attributes;
    };
    virtual std::vector<Name> mailboxes() = 0;
    /// None when there is none of that name that can be opened.
    virtual std::optional<ImapMailbox> open(const std::string& name) = 0;

    struct Marks {
        bool seen = false;
        bool flagged = false;
    };
    virtual std::optional<Marks> marks(std::int64_t message) = 0;
    /// With line ends as on the wire, and the empty line that ends it.
    virtual std::string header(std::int64_t message) = 0;
    /// In bytes, with line ends as on the wire.
    virtual std::int64_t size(std::int64_t message) = 0;

    /// Labels of Gmail's own begin with a backslash: "\Inbox".
    virtual std::vector<std::string> labels(std::int64_t message) = 0;
    /// Whether anybody may put such a label on and off at all.
    virtual bool mayChange(const std::string& label) = 0;
    /// Makes the label where there is none. False when it could not be done.
    virtual bool addLabel(std::int64_t message, const std::string& label) = 0;
    virtual bool removeLabel(std::int64_t message, const std::string& label) = 0;
};

}  // namespace brindlet::sample
