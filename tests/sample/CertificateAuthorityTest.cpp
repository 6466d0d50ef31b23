#include "sample/CertificateAuthority.h"

#include <gtest/gtest.h>
#include <openssl/pem.h>
#include <openssl/x509.h>
#include <openssl/x509_vfy.h>
#include <openssl/x509v3.h>

namespace brindlet::sample {
namespace {

using Lifetime = CertificateAuthority::Lifetime;

struct Free {
    void operator()(BIO* bio) const { BIO_free(bio); }
    void operator()(EVP_PKEY* key) const { EVP_PKEY_free(key); }
    void operator()(X509* certificate) const { X509_free(certificate); }
    void operator()(X509_STORE* store) const { X509_STORE_free(store); }
    void operator()(X509_STORE_CTX* context) const { X509_STORE_CTX_free(context); }
};
template <class T>
using Held = std::unique_ptr<T, Free>;

Held<BIO> reader(const std::string& text) {
    return Held<BIO>(BIO_new_mem_buf(text.data(), static_cast<int>(text.size())));
}

Held<X509> certificateIn(const std::string& text) {
    return Held<X509>(PEM_read_bio_X509(reader(text).get(), nullptr, nullptr, nullptr));
}

/// What OpenSSL, trusting the authority alone, has against the server: X509_V_OK for nothing.
int verdict(const CertificateAuthority& authority, const CertificateAuthority::Identity& server) {
    const Held<X509_STORE> store(X509_STORE_new());
    X509_STORE_add_cert(store.get(), certificateIn(authority.certificate()).get());
    const auto leaf = certificateIn(server.certificate);
    const Held<X509_STORE_CTX> context(X509_STORE_CTX_new());
    X509_STORE_CTX_init(context.get(), store.get(), leaf.get(), nullptr);
    X509_STORE_CTX_set_purpose(context.get(), X509_PURPOSE_SSL_SERVER);
    // What a strict client asks for besides.
    X509_STORE_CTX_set_flags(context.get(), X509_V_FLAG_X509_STRICT);
    X509_verify_cert(context.get());
    return X509_STORE_CTX_get_error(context.get());
}

TEST(CertificateAuthority, ItsServersAreBelievedByWhoeverTrustsIt) {
    const CertificateAuthority authority;
    EXPECT_EQ(verdict(authority, authority.issue({.hosts = {"imap.example"}})), X509_V_OK);
}

TEST(CertificateAuthority, AnotherAuthorityOfTheSameNameIsForeign) {
    const CertificateAuthority authority, foreign;
    EXPECT_EQ(verdict(authority, foreign.issue({.hosts = {"imap.example"}})),
              X509_V_ERR_UNABLE_TO_GET_ISSUER_CERT_LOCALLY);
}

TEST(CertificateAuthority, ASelfSignedServerIsBelievedByNobody) {
    const CertificateAuthority authority;
    EXPECT_EQ(verdict(authority, CertificateAuthority::selfSigned({.hosts = {"imap.example"}})),
              X509_V_ERR_DEPTH_ZERO_SELF_SIGNED_CERT);
}

TEST(CertificateAuthority, LifetimesEndBeforeAndBeginAfterToday) {
    const CertificateAuthority authority;
    EXPECT_EQ(verdict(authority, authority.issue({.lifetime = Lifetime::expired})),
              X509_V_ERR_CERT_HAS_EXPIRED);
    EXPECT_EQ(verdict(authority, authority.issue({.lifetime = Lifetime::notYetValid})),
              X509_V_ERR_CERT_NOT_YET_VALID);
}

TEST(CertificateAuthority, NamesAndAddressesAreToldApart) {
    const CertificateAuthority authority;
    const auto server =
        certificateIn(authority.issue({.hosts = {"imap.example", "127.0.0.1", "::1"}}).certificate);
    EXPECT_EQ(X509_check_host(server.get(), "imap.example", 0, 0, nullptr), 1);
    EXPECT_EQ(X509_check_host(server.get(), "other.example", 0, 0, nullptr), 0);
    EXPECT_EQ(X509_check_host(server.get(), "127.0.0.1", 0, 0, nullptr), 0);
    EXPECT_EQ(X509_check_ip_asc(server.get(), "127.0.0.1", 0), 1);
    EXPECT_EQ(X509_check_ip_asc(server.get(), "::1", 0), 1);
    EXPECT_EQ(X509_check_ip_asc(server.get(), "127.0.0.2", 0), 0);
}

TEST(CertificateAuthority, TheKeyIsTheOneOfTheCertificate) {
    const CertificateAuthority authority;
    const auto request = CertificateAuthority::Request{.hosts = {"imap.example"}};
    for (const auto& server : {authority.issue(request), authority.selfSigned(request)}) {
        const Held<EVP_PKEY> key(
            PEM_read_bio_PrivateKey(reader(server.key).get(), nullptr, nullptr, nullptr));
        EXPECT_EQ(X509_check_private_key(certificateIn(server.certificate).get(), key.get()), 1);
    }
}

}  // namespace
}  // namespace brindlet::sample
