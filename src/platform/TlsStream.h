#pragma once

#include <cstddef>
#include <cstdint>
#include <memory>
#include <optional>
#include <string>
#include <string_view>

namespace brindlet {

/// One TLS connection to one server, whose certificate chain and host name were verified before the
/// first byte of ours went out; there is no way around that. One thread leads it through its life
/// in the order of the operations below, each of which blocks; `cancel` may come from any thread.
/// There are no time limits: a silent server is waited for until somebody cancels.
class TlsStream {
  public:
    /// What went wrong, for the person: "cancelled" after `cancel`, otherwise in the words of the
    /// platform.
    using Failure = std::optional<std::string>;

    struct Received {
        /// When there are any, an end or a failure beside them waits: the next call tells it again.
        /// Nothing at all, without either, only means that it is to be asked again.
        std::string bytes;
        /// Nothing more will come.
        bool ended = false;
        Failure failure;
    };

    virtual ~TlsStream() = default;

    /// Once only.
    virtual Failure connect() = 0;
    /// All of the bytes.
    virtual Failure send(std::string_view bytes) = 0;
    /// Waits for a byte, and takes what is there, at most `most`. What came before the end or a
    /// failure comes first.
    virtual Received receive(std::size_t most) = 0;
    /// Ends the connection, and at once what blocks in another thread. More than once is as once.
    virtual void cancel() = 0;
};

/// Makes connections. Any thread.
class TlsConnector {
  public:
    virtual ~TlsConnector() = default;
    virtual std::shared_ptr<TlsStream> make(const std::string& host, std::uint16_t port) = 0;
};

}  // namespace brindlet
