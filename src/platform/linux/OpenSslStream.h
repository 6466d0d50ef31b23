#pragma once

#include <string>

#include "platform/TlsStream.h"
#include "platform/posix/HostLookup.h"

namespace brindlet {

/// The authorities whose word for a server counts, as PEM certificates; those of the file and those
/// of the text together, and no others, whatever SSL_CERT_FILE and the like say.
struct TlsAuthorities {
    /// A path, read anew for each connection; none when empty.
    std::string file = {};
    std::string text = {};

    /// Those that the system trusts.
    static TlsAuthorities ofSystem() { return {.file = "/etc/ssl/certs/ca-certificates.crt"}; }
};

/// TLS 1.2 (RFC 5246) or 1.3 (RFC 8446) through OpenSSL, straight over TCP: no proxy, whatever the
/// environment says. The host's name is sent along (RFC 6066, section 3) and must stand in the
/// certificate's subjectAltName, as must an address where the host is one (RFC 9525; RFC 6125
/// before it); nothing turns that off. Nothing of a connection is kept for the next one.
///
/// An end without the close_notify that TLS asks for counts as an end too: servers are that casual,
/// and the protocols above tell by themselves whether an answer is whole.
class OpenSslConnector : public TlsConnector {
  public:
    explicit OpenSslConnector(TlsAuthorities trusted, HostResolver resolver = lookUpHost);
    std::shared_ptr<TlsStream> make(const std::string& host, std::uint16_t port) override;

  private:
    const TlsAuthorities trusted_;
    const HostResolver resolver_;
};

}  // namespace brindlet
