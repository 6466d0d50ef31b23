#pragma once

#include <cstddef>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "sample/ImapAccount.h"
#include "sample/ImapParser.h"

namespace brindlet::sample {

/// What a client wants to be told of messages: UID, FLAGS, RFC822.SIZE, X-GM-LABELS, the header and
/// parts of it. A header that is read becomes no mark of having been seen, with PEEK or without.
class FetchRequest {
  public:
    /// For what is told of labels that have changed.
    static FetchRequest labels();
    /// One item, or several in parentheses. None when any of them is unknown.
    static std::optional<FetchRequest> parse(ImapParser& parser);

    /// All that is sent about one message, whose number in the mailbox counts from 1. Empty when
    /// the message is gone.
    std::string answer(ImapAccount& account, std::size_t number,
                       const ImapMailbox::Message& message) const;

  private:
    struct Item {
        enum class Kind { flags, size, labels, header };
        Kind kind = Kind::flags;
        /// As it is called in the answer.
        std::string name;
        /// Of the header; all when there are none.
        std::vector<std::string> fields;
    };
    static bool parseItem(ImapParser& parser, std::vector<Item>& items);
    static bool parseHeader(ImapParser& parser, std::vector<Item>& items);

    std::vector<Item> items_;
};

/// Those fields of a header with line ends as on the wire, in the header's order, and an empty line
/// behind them. Names are compared without regard to case.
std::string headerFields(std::string_view header, const std::vector<std::string>& names);

/// A text between double quotes, as IMAP escapes it.
std::string imapQuoted(std::string_view text);

}  // namespace brindlet::sample
