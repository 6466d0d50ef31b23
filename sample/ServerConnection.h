#pragma once

#include <cstddef>
#include <memory>
#include <string>
#include <string_view>

struct ssl_st;
struct ssl_ctx_st;

namespace brindlet::sample {

/// What a server shows of itself to those who connect over TLS.
using TlsIdentity = std::shared_ptr<ssl_ctx_st>;

/// None when certificate and key, both PEM, do not fit each other.
TlsIdentity tlsIdentity(const std::string& certificate, const std::string& key);

/// The server's end of one connection. One thread leads it, and has to block SIGPIPE; `cancel` may
/// come from any.
class ServerConnection {
  public:
    enum class Speech { tls, plain };
    /// The socket becomes its own. The identity is of no use in plain speech.
    ServerConnection(int socket, Speech speech, TlsIdentity identity);
    ~ServerConnection();
    ServerConnection(const ServerConnection&) = delete;
    ServerConnection& operator=(const ServerConnection&) = delete;

    /// Once, first. False when the client does not like what it is shown.
    bool open();
    /// At least one byte, at most so many; empty when no more will come.
    std::string receive(std::size_t most);
    /// All of the bytes, or false.
    bool send(std::string_view bytes);
    /// Tells the client that nothing more will come.
    void sayFarewell();
    /// Ends what blocks in another thread, and the connection with it.
    void cancel();

  private:
    struct Free {
        void operator()(ssl_st* tls) const;
    };

    const int socket_;
    const Speech speech_;
    const TlsIdentity identity_;
    std::unique_ptr<ssl_st, Free> tls_;
};

}  // namespace brindlet::sample
