#pragma once

#include <cstddef>
#include <cstdint>
#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "base/Result.h"
#include "imap/MessageIDs.h"
#include "platform/TlsStream.h"

namespace brindlet {

/// One conversation with Gmail's server: connect, LOGIN, SELECT, one UID FETCH of every Message-ID,
/// UID STORE of labels; in this order, and nothing else. It is no general client: it knows neither
/// capabilities nor literals, takes all that comes as lines of text, and says no goodbye.
///
/// One thread leads it; every operation blocks, without a time limit, until the server has answered
/// or the connection has failed. Nothing is tried twice. Whatever goes wrong, the connection stays
/// until it is closed, by `close` or by the end of the object.
///
/// No text is escaped: a quote goes as it stands. A text with CR, LF or NUL in it, which would be
/// a command of its own, is refused before a byte of it is sent, and so is one with "\Deleted".
class Imap {
  public:
    struct Failure {
        enum class Kind { connection, protocolError, auth };

        Kind kind = Kind::connection;
        /// Of `protocolError`, the server's last line as it stands.
        std::string text;

        /// A sentence for the person.
        std::string description() const;
        friend bool operator==(const Failure&, const Failure&) = default;
    };
    using Failed = std::optional<Failure>;
    /// Without their line ends.
    using Lines = std::vector<std::string>;

    /// The connector outlives it.
    Imap(TlsConnector& connector, std::string host, std::uint16_t port);
    ~Imap();
    Imap(Imap&&) = default;
    Imap& operator=(Imap&&) = delete;

    /// Once only. Returns when the server has greeted.
    [[nodiscard]] Failed connect();
    /// Cancels the connection and lets it go. More than once is as once.
    void close();

    /// `text` without its line end. Our copy is wiped, as it may hold a password.
    [[nodiscard]] Failed sendLine(std::string_view text);
    /// Everything up to the line that begins with the tag, or, without one, with "* OK".
    Result<Lines, Failure> readResponse(std::optional<std::string_view> tag);
    /// `text` without a tag. Fails unless the last line says OK.
    Result<Lines, Failure> command(std::string_view text);

    /// How many messages there are; 0 when the server does not say.
    Result<std::int64_t, Failure> select(std::string_view mailbox);
    /// Of the selected mailbox. A message without a Message-ID, or with one that stands folded on
    /// the next line, is missing. Cost grows with the mailbox; memory, too, but only for the ids.
    Result<MessageIDs, Failure> fetchMessageIDs();
    /// Nothing when either is empty. May have done part of it when it fails.
    [[nodiscard]] Failed addLabels(const std::vector<std::string>& labels,
                                   const std::vector<std::uint32_t>& uids);
    [[nodiscard]] Failed removeLabels(const std::vector<std::string>& labels,
                                      const std::vector<std::uint32_t>& uids);

  private:
    /// The line stands until the call returns.
    using EachLine = std::function<void(std::string_view line)>;

    Result<std::string, Failure> read(std::string_view last, const EachLine& eachLine);
    Failed run(std::string_view text, const EachLine& eachLine);
    Failed receive();
    std::optional<std::string_view> takeLine();
    Failed storeLabels(std::string_view item, const std::vector<std::string>& labels,
                       const std::vector<std::uint32_t>& uids);

    TlsConnector& connector_;
    std::string host_;
    std::uint16_t port_;
    std::shared_ptr<TlsStream> connection_;
    /// What was received. Bytes before `taken_` have been given out as lines, those before
    /// `searched_` hold no further line end.
    std::string buffer_;
    std::size_t taken_ = 0;
    std::size_t searched_ = 0;
    std::int64_t tag_ = 0;
};

}  // namespace brindlet
