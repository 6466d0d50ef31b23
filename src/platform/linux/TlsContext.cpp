#include "platform/linux/TlsContext.h"

#include <arpa/inet.h>
#include <openssl/err.h>
#include <openssl/pem.h>
#include <openssl/x509v3.h>

#include <array>
#include <utility>

#include "base/Files.h"

namespace brindlet {
namespace {

struct FreeCertificate {
    void operator()(BIO* bio) const { BIO_free(bio); }
    void operator()(X509* certificate) const { X509_free(certificate); }
};
template <class T>
using Held = std::unique_ptr<T, FreeCertificate>;

/// A list of certificates has no use for a passphrase, and nobody is to be asked for one.
int noPassphrase(char*, int, int, void*) {
    return 0;
}

/// The number of certificates that were added.
int addAuthorities(X509_STORE& store, const std::string& pem) {
    const Held<BIO> reader(BIO_new_mem_buf(pem.data(), static_cast<int>(pem.size())));
    if (!reader) return 0;
    int added = 0;
    while (true) {
        ERR_clear_error();
        const Held<X509> certificate(
            PEM_read_bio_X509(reader.get(), nullptr, noPassphrase, nullptr));
        if (certificate)
            added += X509_STORE_add_cert(&store, certificate.get());
        else if (ERR_GET_REASON(ERR_peek_last_error()) == PEM_R_NO_START_LINE)
            return added;  // the end; a damaged certificate is passed over
    }
}

bool isAddress(const std::string& host) {
    std::array<unsigned char, sizeof(in6_addr)> bytes{};
    return ::inet_pton(AF_INET, host.c_str(), bytes.data()) == 1 ||
           ::inet_pton(AF_INET6, host.c_str(), bytes.data()) == 1;
}

/// A system that asks for more than TLS 1.2, in OpenSSL's own settings, gets it.
void demandVersion(SSL_CTX& context) {
    if (SSL_CTX_get_min_proto_version(&context) < TLS1_2_VERSION)
        SSL_CTX_set_min_proto_version(&context, TLS1_2_VERSION);
}

}  // namespace

HeldSsl<SSL_CTX> makeTlsContext(const TlsAuthorities& trusted) {
    HeldSsl<SSL_CTX> context(SSL_CTX_new(TLS_client_method()));
    if (!context) return nullptr;
    auto& store = *SSL_CTX_get_cert_store(context.get());
    int authorities = addAuthorities(store, trusted.text);
    if (!trusted.file.empty())
        authorities += addAuthorities(store, files::read(trusted.file).value_or(""));
    if (authorities == 0) return nullptr;
    demandVersion(*context);
    SSL_CTX_set_verify(context.get(), SSL_VERIFY_PEER, nullptr);
    SSL_CTX_set_session_cache_mode(context.get(), SSL_SESS_CACHE_OFF);
    // A send that could not go on is repeated with the bytes that are left.
    SSL_CTX_set_mode(context.get(), SSL_MODE_ENABLE_PARTIAL_WRITE |
                                        SSL_MODE_ACCEPT_MOVING_WRITE_BUFFER | SSL_MODE_AUTO_RETRY);
    return context;
}

HeldSsl<SSL> makeTls(SSL_CTX& context, const std::string& host) {
    HeldSsl<SSL> ssl(SSL_new(&context));
    if (!ssl) return nullptr;
    auto* parameters = SSL_get0_param(ssl.get());
    bool named = false;
    if (isAddress(host)) {
        named = X509_VERIFY_PARAM_set1_ip_asc(parameters, host.c_str()) == 1;
    } else {
        // The subject's common name is nobody's business any more, and a star stands for a whole
        // label.
        X509_VERIFY_PARAM_set_hostflags(
            parameters, X509_CHECK_FLAG_NEVER_CHECK_SUBJECT | X509_CHECK_FLAG_NO_PARTIAL_WILDCARDS);
        named = !host.empty() &&
                X509_VERIFY_PARAM_set1_host(parameters, host.data(), host.size()) == 1 &&
                SSL_set_tlsext_host_name(ssl.get(), host.c_str()) == 1;
    }
    return named ? std::move(ssl) : nullptr;
}

}  // namespace brindlet
