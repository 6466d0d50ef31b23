#pragma once

#include <openssl/ssl.h>
#include <sys/socket.h>

#include <cstddef>
#include <cstdint>
#include <functional>
#include <string>
#include <string_view>
#include <thread>
#include <vector>

#include "base/Gate.h"
#include "platform/posix/HostLookup.h"
#include "platform/posix/Interrupt.h"
#include "sample/CertificateAuthority.h"

namespace brindlet {

/// What a server does with one connection, blocking, on the server's thread.
using Conversation = std::function<void(int socket)>;

/// A server on the loopback, for one connection after the other. It goes, with what it is at, when
/// this goes.
class LoopbackServer {
  public:
    explicit LoopbackServer(Conversation conversation, int family = AF_INET);
    ~LoopbackServer();

    /// False where the machine has no loopback of that family.
    bool listening() const { return static_cast<bool>(listener_); }
    const HostAddress& address() const { return address_; }
    std::uint16_t port() const;
    /// Finds this server under every name.
    HostResolver resolver() const;
    /// Until so many conversations have come to their end.
    void waitForConversations(int count) { ended_.waitFor(count); }

  private:
    void serve();

    const Conversation conversation_;
    HostAddress address_;
    Descriptor listener_;
    Interrupt stop_;
    Gate ended_;
    Locked<int> connection_{-1};
    std::thread thread_;
};

/// A server that takes nobody up and whose queue is full: the system answers nobody in its place.
class FullServer {
  public:
    FullServer();
    const HostAddress& address() const { return address_; }

  private:
    HostAddress address_;
    Descriptor listener_;
    std::vector<Descriptor> waiting_;
};

struct TlsServer {
    sample::CertificateAuthority::Identity identity;
    int oldest = TLS1_2_VERSION;
    int newest = TLS1_3_VERSION;
};

/// Shakes hands, talks, and closes as TLS asks; talks to nobody who does not shake hands.
Conversation overTls(TlsServer server, std::function<void(SSL&)> talk);

/// The same conversation, but every byte travels by itself, there and back.
Conversation byteByByte(Conversation conversation);
/// The same conversation, but after so many of the server's bytes the connection ends.
Conversation endingAfter(std::size_t bytes, Conversation conversation);

/// For talks. What is heard is less than asked for only when the client has gone.
void say(SSL& ssl, std::string_view bytes);
std::string hear(SSL& ssl, std::size_t size);
/// Until the client goes.
std::string hearAll(SSL& ssl);

}  // namespace brindlet
