#include "sample/ServerConnection.h"

#include <openssl/bio.h>
#include <openssl/pem.h>
#include <openssl/ssl.h>
#include <sys/socket.h>
#include <unistd.h>

#include <algorithm>
#include <cerrno>
#include <utility>

namespace brindlet::sample {
namespace {

struct FreeBio {
    void operator()(BIO* bio) const { BIO_free(bio); }
};
using HeldBio = std::unique_ptr<BIO, FreeBio>;

HeldBio bioOver(const std::string& text) {
    return HeldBio(BIO_new_mem_buf(text.data(), static_cast<int>(text.size())));
}

}  // namespace

TlsIdentity tlsIdentity(const std::string& certificate, const std::string& key) {
    const TlsIdentity context(SSL_CTX_new(TLS_server_method()), SSL_CTX_free);
    const HeldBio certificateBio = bioOver(certificate);
    const HeldBio keyBio = bioOver(key);
    const std::unique_ptr<X509, decltype(&X509_free)> shown(
        PEM_read_bio_X509(certificateBio.get(), nullptr, nullptr, nullptr), X509_free);
    const std::unique_ptr<EVP_PKEY, decltype(&EVP_PKEY_free)> kept(
        PEM_read_bio_PrivateKey(keyBio.get(), nullptr, nullptr, nullptr), EVP_PKEY_free);
    const bool fits = context && shown && kept &&
                      SSL_CTX_set_min_proto_version(context.get(), TLS1_2_VERSION) == 1 &&
                      SSL_CTX_use_certificate(context.get(), shown.get()) == 1 &&
                      SSL_CTX_use_PrivateKey(context.get(), kept.get()) == 1 &&
                      SSL_CTX_check_private_key(context.get()) == 1;
    return fits ? context : nullptr;
}

void ServerConnection::Free::operator()(ssl_st* tls) const {
    SSL_free(tls);
}

ServerConnection::ServerConnection(int socket, Speech speech, TlsIdentity identity)
    : socket_(socket), speech_(speech), identity_(std::move(identity)) {
    if (speech_ == Speech::plain || !identity_) return;
    tls_.reset(SSL_new(identity_.get()));
    if (tls_) SSL_set_fd(tls_.get(), socket_);
}

ServerConnection::~ServerConnection() {
    tls_.reset();
    ::close(socket_);
}

bool ServerConnection::open() {
    if (speech_ == Speech::plain) return true;
    return tls_ && SSL_accept(tls_.get()) == 1;
}

std::string ServerConnection::receive(std::size_t most) {
    std::string bytes(most, '\0');
    if (tls_) {
        std::size_t got = 0;
        if (SSL_read_ex(tls_.get(), bytes.data(), most, &got) != 1) got = 0;
        bytes.resize(got);
        return bytes;
    }
    ssize_t got = 0;
    do {
        got = ::recv(socket_, bytes.data(), most, 0);
    } while (got < 0 && errno == EINTR);
    bytes.resize(static_cast<std::size_t>(std::max<ssize_t>(got, 0)));
    return bytes;
}

bool ServerConnection::send(std::string_view bytes) {
    if (tls_) {
        std::size_t sent = 0;
        return bytes.empty() || SSL_write_ex(tls_.get(), bytes.data(), bytes.size(), &sent) == 1;
    }
    while (!bytes.empty()) {
        const ssize_t sent = ::send(socket_, bytes.data(), bytes.size(), 0);
        if (sent < 0 && errno == EINTR) continue;
        if (sent <= 0) return false;
        bytes.remove_prefix(static_cast<std::size_t>(sent));
    }
    return true;
}

void ServerConnection::sayFarewell() {
    if (tls_) SSL_shutdown(tls_.get());
    ::shutdown(socket_, SHUT_WR);
}

void ServerConnection::cancel() {
    ::shutdown(socket_, SHUT_RDWR);
}

}  // namespace brindlet::sample
