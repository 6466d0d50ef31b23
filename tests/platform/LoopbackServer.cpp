#include "platform/LoopbackServer.h"

#include <netinet/in.h>
#include <netinet/tcp.h>
#include <openssl/err.h>
#include <openssl/pem.h>
#include <signal.h>

#include <algorithm>
#include <array>
#include <limits>
#include <memory>

namespace brindlet {
namespace {

struct Free {
    void operator()(BIO* bio) const { BIO_free(bio); }
    void operator()(X509* certificate) const { X509_free(certificate); }
    void operator()(EVP_PKEY* key) const { EVP_PKEY_free(key); }
    void operator()(SSL_CTX* context) const { SSL_CTX_free(context); }
    void operator()(SSL* ssl) const { SSL_free(ssl); }
};
template <class T>
using Held = std::unique_ptr<T, Free>;

/// A write to a client that has gone is to fail, not to end the tests.
void blockPipeSignal() {
    sigset_t signals;
    ::sigemptyset(&signals);
    ::sigaddset(&signals, SIGPIPE);
    ::pthread_sigmask(SIG_BLOCK, &signals, nullptr);
}

HostAddress loopback(int family) {
    HostAddress address;
    address.bytes.ss_family = static_cast<sa_family_t>(family);
    if (family == AF_INET6) {
        reinterpret_cast<sockaddr_in6&>(address.bytes).sin6_addr = in6addr_loopback;
        address.size = sizeof(sockaddr_in6);
    } else {
        reinterpret_cast<sockaddr_in&>(address.bytes).sin_addr.s_addr = ::htonl(INADDR_LOOPBACK);
        address.size = sizeof(sockaddr_in);
    }
    return address;
}

/// Takes a free port, and notes which. No descriptor where that cannot be done.
Descriptor listenAt(HostAddress& address, int backlog) {
    Descriptor socket(::socket(address.bytes.ss_family, SOCK_STREAM | SOCK_CLOEXEC, 0));
    auto* bytes = reinterpret_cast<sockaddr*>(&address.bytes);
    if (!socket || ::bind(socket.get(), bytes, address.size) != 0 ||
        ::listen(socket.get(), backlog) != 0 ||
        ::getsockname(socket.get(), bytes, &address.size) != 0)
        return {};
    return socket;
}

Held<BIO> reader(const std::string& text) {
    return Held<BIO>(BIO_new_mem_buf(text.data(), static_cast<int>(text.size())));
}

Held<SSL_CTX> contextOf(const TlsServer& server) {
    Held<SSL_CTX> context(SSL_CTX_new(TLS_server_method()));
    // What is older than TLS 1.2 only works where nothing is asked of its ciphers.
    if (server.oldest < TLS1_2_VERSION)
        SSL_CTX_set_cipher_list(context.get(), "DEFAULT@SECLEVEL=0");
    SSL_CTX_set_min_proto_version(context.get(), server.oldest);
    SSL_CTX_set_max_proto_version(context.get(), server.newest);
    const Held<X509> certificate(
        PEM_read_bio_X509(reader(server.identity.certificate).get(), nullptr, nullptr, nullptr));
    const Held<EVP_PKEY> key(
        PEM_read_bio_PrivateKey(reader(server.identity.key).get(), nullptr, nullptr, nullptr));
    SSL_CTX_use_certificate(context.get(), certificate.get());
    SSL_CTX_use_PrivateKey(context.get(), key.get());
    return context;
}

/// Carries what comes out of one socket into the other, in pieces of so many bytes, up to so many
/// bytes in all. False when no more is to be carried.
bool carry(int from, int to, std::size_t piece, std::size_t& left) {
    std::array<char, 16 * 1024> bytes;
    const auto got = ::recv(from, bytes.data(), std::min(bytes.size(), left), 0);
    if (got <= 0) return false;
    const std::string_view all(bytes.data(), static_cast<std::size_t>(got));
    for (std::size_t at = 0; at < all.size(); at += piece) {
        const auto part = all.substr(at, piece);
        if (::send(to, part.data(), part.size(), MSG_NOSIGNAL) < 0) return false;
    }
    left -= all.size();
    return left > 0;
}

/// Stands between the client and the conversation.
void relay(int client, const Conversation& conversation, std::size_t piece, std::size_t most) {
    int ends[2];
    if (most == 0 || ::socketpair(AF_UNIX, SOCK_STREAM | SOCK_CLOEXEC, 0, ends) != 0) return;
    const Descriptor near(ends[0]);
    std::thread server([&conversation, end = Descriptor(ends[1])] {
        blockPipeSignal();
        conversation(end.get());
        ::shutdown(end.get(), SHUT_RDWR);
    });
    const int on = 1;
    ::setsockopt(client, IPPROTO_TCP, TCP_NODELAY, &on, sizeof on);
    std::size_t answers = most;
    std::size_t questions = std::numeric_limits<std::size_t>::max();
    bool open = true;
    while (open) {
        pollfd watched[] = {{near.get(), POLLIN, 0}, {client, POLLIN, 0}};
        ::poll(watched, 2, -1);
        if (watched[0].revents != 0) open = carry(near.get(), client, piece, answers);
        if (open && watched[1].revents != 0) open = carry(client, near.get(), piece, questions);
    }
    ::shutdown(near.get(), SHUT_RDWR);
    server.join();
}

}  // namespace

LoopbackServer::LoopbackServer(Conversation conversation, int family)
    : conversation_(std::move(conversation)),
      address_(loopback(family)),
      listener_(listenAt(address_, 16)) {
    if (!listening()) return;
    thread_ = std::thread([this] { serve(); });
}

LoopbackServer::~LoopbackServer() {
    stop_.raise();
    connection_.with([](int connection) {
        if (connection >= 0) ::shutdown(connection, SHUT_RDWR);
    });
    if (thread_.joinable()) thread_.join();
}

std::uint16_t LoopbackServer::port() const {
    // Both families have it in the same place.
    return ::ntohs(reinterpret_cast<const sockaddr_in&>(address_.bytes).sin_port);
}

HostResolver LoopbackServer::resolver() const {
    return [address = address_](const std::string&, std::uint16_t) {
        return HostLookup{.addresses = {address}, .failure = {}};
    };
}

void LoopbackServer::serve() {
    blockPipeSignal();
    while (stop_.wait(listener_.get(), POLLIN)) {
        Descriptor connection(::accept4(listener_.get(), nullptr, nullptr, SOCK_CLOEXEC));
        if (!connection) continue;
        connection_.set(connection.get());
        if (!stop_.raised()) conversation_(connection.get());
        connection_.set(-1);
        connection.close();
        ended_.raise();
    }
}

FullServer::FullServer() : address_(loopback(AF_INET)), listener_(listenAt(address_, 0)) {
    for (int i = 0; i < 8; ++i) {
        const auto& socket =
            waiting_.emplace_back(::socket(AF_INET, SOCK_STREAM | SOCK_CLOEXEC | SOCK_NONBLOCK, 0));
        ::connect(socket.get(), reinterpret_cast<const sockaddr*>(&address_.bytes), address_.size);
    }
}

Conversation overTls(TlsServer server, std::function<void(SSL&)> talk) {
    return [server = std::move(server), talk = std::move(talk)](int socket) {
        const auto context = contextOf(server);
        const Held<SSL> ssl(SSL_new(context.get()));
        SSL_set_fd(ssl.get(), socket);
        if (SSL_accept(ssl.get()) == 1) {
            talk(*ssl);
            SSL_shutdown(ssl.get());
        }
        ERR_clear_error();
    };
}

Conversation byteByByte(Conversation conversation) {
    return [conversation = std::move(conversation)](int socket) {
        relay(socket, conversation, 1, std::numeric_limits<std::size_t>::max());
    };
}

Conversation endingAfter(std::size_t bytes, Conversation conversation) {
    return [bytes, conversation = std::move(conversation)](int socket) {
        relay(socket, conversation, bytes, bytes);
    };
}

void say(SSL& ssl, std::string_view bytes) {
    SSL_write(&ssl, bytes.data(), static_cast<int>(bytes.size()));
}

std::string hear(SSL& ssl, std::size_t size) {
    std::string heard(size, '\0');
    std::size_t got = 0;
    while (got < size) {
        const int more = SSL_read(&ssl, &heard[got], static_cast<int>(size - got));
        if (more <= 0) break;
        got += static_cast<std::size_t>(more);
    }
    heard.resize(got);
    return heard;
}

std::string hearAll(SSL& ssl) {
    std::string heard;
    while (true) {
        const auto piece = hear(ssl, 1);
        if (piece.empty()) return heard;
        heard += piece;
    }
}

}  // namespace brindlet
