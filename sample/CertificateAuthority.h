#pragma once

#include <memory>
#include <string>
#include <string_view>
#include <vector>

namespace brindlet::sample {

/// An authority for the certificates of servers that tests and the demo start. It is made anew each
/// time, so that no key lies anywhere and nothing but what is handed its certificate trusts it.
/// Keys are on the curve P-256, signatures over SHA-256, all texts PEM. One thread at a time.
///
/// After RFC 5280; the names of a server stand in its subjectAltName, host names as DNS names and
/// literal addresses as addresses.
class CertificateAuthority {
  public:
    /// What a server shows, and the key that it keeps.
    struct Identity {
        std::string certificate;
        std::string key;
    };

    enum class Lifetime { current, expired, notYetValid };

    struct Request {
        std::vector<std::string> hosts = {};
        Lifetime lifetime = Lifetime::current;
        /// The subject's common name, which no client should take for a host's.
        std::string commonName = "Brindlet sample server";
    };

    explicit CertificateAuthority(std::string_view name = "Brindlet sample authority");
    ~CertificateAuthority();
    CertificateAuthority(CertificateAuthority&&) noexcept;
    CertificateAuthority& operator=(CertificateAuthority&&) noexcept;

    /// Its own certificate: whoever holds it as trusted believes the servers.
    const std::string& certificate() const;
    Identity issue(const Request& request) const;
    /// For a server that vouches for itself.
    static Identity selfSigned(const Request& request);

  private:
    struct Holding;
    std::unique_ptr<Holding> holding_;
};

}  // namespace brindlet::sample
