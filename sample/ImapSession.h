#pragma once

#include <cstddef>
#include <cstdint>
#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <string_view>

#include "sample/ImapAccount.h"
#include "sample/ImapInput.h"
#include "sample/ImapParser.h"

namespace brindlet::sample {

/// What a server may say that no client hopes to hear. Commands count from 1 in each conversation.
struct ImapFaults {
    /// The command is refused instead of carried out; 0 for none.
    std::int64_t no = 0;
    std::int64_t bad = 0;
    /// The server says farewell instead; 0 makes it the greeting.
    std::optional<std::int64_t> bye = {};
    /// Before each last line of an answer comes another one, of so many bytes.
    std::int64_t hugeLine = 0;
    /// Each last line of an answer ends in bytes that are no UTF-8.
    bool invalidUtf8 = false;
};

/// The server's side of one conversation over IMAP4rev1 (RFC 3501) with Gmail's labels: bytes in,
/// bytes out, and nothing of sockets. It knows CAPABILITY, NOOP, LOGIN, LOGOUT, LIST, SELECT,
/// EXAMINE, UID FETCH, UID SEARCH ALL and UID STORE of labels, and answers BAD to all else. A
/// mailbox stays as it was selected, whatever becomes of its messages meanwhile. One thread.
class ImapSession {
  public:
    /// The account of that address, if that is its password.
    using Login = std::function<std::unique_ptr<ImapAccount>(const std::string& address,
                                                             const std::string& password)>;
    /// Takes bytes to send; false when nobody listens any more.
    using Send = std::function<bool(std::string_view bytes)>;

    ImapSession(Login login, Send send, const ImapFaults& faults = {});

    void greet();
    /// In pieces of any size.
    void receive(std::string_view bytes);
    /// There is nothing more to say.
    bool ended() const { return ended_; }

  private:
    struct Verb;
    /// The last line of an answer, without the tag.
    using Reply = std::string;

    void execute(const std::string& command);
    Reply carryOut(ImapParser& parser);
    bool carriesFault(const std::string& tag);
    Reply capability(ImapParser& parser);
    Reply noop(ImapParser& parser);
    Reply logout(ImapParser& parser);
    Reply login(ImapParser& parser);
    Reply list(ImapParser& parser);
    Reply select(ImapParser& parser);
    Reply examine(ImapParser& parser);
    Reply open(ImapParser& parser, bool readOnly);
    Reply uid(ImapParser& parser);
    Reply fetch(ImapParser& parser);
    Reply search(ImapParser& parser);
    Reply store(ImapParser& parser);

    void line(std::string_view text);
    void lastLine(const std::string& tag, const Reply& reply);
    void bytes(std::string_view bytes);

    const Login login_;
    const Send send_;
    const ImapFaults faults_;
    ImapInput input_;
    std::unique_ptr<ImapAccount> account_;
    std::optional<ImapMailbox> mailbox_;
    bool readOnly_ = false;
    std::int64_t commands_ = 0;
    /// After the answer in hand.
    bool leaves_ = false;
    bool ended_ = false;
};

}  // namespace brindlet::sample
