#pragma once

#include <openssl/ssl.h>

#include <memory>
#include <optional>
#include <string>

#include "platform/linux/OpenSslStream.h"

namespace brindlet {

struct FreeSsl {
    void operator()(SSL_CTX* context) const { SSL_CTX_free(context); }
    void operator()(SSL* ssl) const { SSL_free(ssl); }
};
template <class T>
using HeldSsl = std::unique_ptr<T, FreeSsl>;

/// What a connection starts from: versions, trust, and that a server must prove itself. Null when
/// there is nobody to trust, since the file cannot be read or holds no certificate.
HeldSsl<SSL_CTX> makeTlsContext(const TlsAuthorities& trusted);

/// A connection of that kind to a server that must prove to be this host; null without memory.
HeldSsl<SSL> makeTls(SSL_CTX& context, const std::string& host);

}  // namespace brindlet
