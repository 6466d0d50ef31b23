#include "sample/CertificateAuthority.h"

#include <arpa/inet.h>
#include <openssl/bio.h>
#include <openssl/ec.h>
#include <openssl/evp.h>
#include <openssl/pem.h>
#include <openssl/rand.h>
#include <openssl/x509.h>
#include <openssl/x509v3.h>

#include <array>
#include <cstdint>

namespace brindlet::sample {
namespace {

struct Free {
    void operator()(BIO* bio) const { BIO_free(bio); }
    void operator()(EVP_PKEY* key) const { EVP_PKEY_free(key); }
    void operator()(X509* certificate) const { X509_free(certificate); }
    void operator()(X509_EXTENSION* extension) const { X509_EXTENSION_free(extension); }
};
template <class T>
using Held = std::unique_ptr<T, Free>;

constexpr long day = 24 * 60 * 60;
/// The most that every client takes from a server.
constexpr long longestLife = 397 * day;

struct Span {
    long fromNow;
    long untilNow;
};

Span spanOf(CertificateAuthority::Lifetime lifetime) {
    switch (lifetime) {
        case CertificateAuthority::Lifetime::expired:
            return {-30 * day, -day};
        case CertificateAuthority::Lifetime::notYetValid:
            return {day, 30 * day};
        case CertificateAuthority::Lifetime::current:
            break;
    }
    return {-day, longestLife - 2 * day};
}

Held<EVP_PKEY> newKey() {
    return Held<EVP_PKEY>(EVP_EC_gen("P-256"));
}

std::string textOf(BIO& bio) {
    char* bytes = nullptr;
    const auto size = BIO_get_mem_data(&bio, &bytes);
    return {bytes, static_cast<std::size_t>(size)};
}

std::string pem(X509& certificate) {
    const Held<BIO> bio(BIO_new(BIO_s_mem()));
    PEM_write_bio_X509(bio.get(), &certificate);
    return textOf(*bio);
}

std::string pem(EVP_PKEY& key) {
    const Held<BIO> bio(BIO_new(BIO_s_mem()));
    PEM_write_bio_PrivateKey(bio.get(), &key, nullptr, nullptr, 0, nullptr, nullptr);
    return textOf(*bio);
}

bool isAddress(const std::string& host) {
    std::array<unsigned char, sizeof(in6_addr)> bytes{};
    return ::inet_pton(AF_INET, host.c_str(), bytes.data()) == 1 ||
           ::inet_pton(AF_INET6, host.c_str(), bytes.data()) == 1;
}

std::string alternativeNames(const std::vector<std::string>& hosts) {
    std::string names;
    for (const auto& host : hosts)
        names += (names.empty() ? "" : ",") + std::string(isAddress(host) ? "IP:" : "DNS:") + host;
    return names;
}

void addExtension(X509& certificate, X509& issuer, int kind, const std::string& value) {
    X509V3_CTX context;
    X509V3_set_ctx_nodb(&context);
    X509V3_set_ctx(&context, &issuer, &certificate, nullptr, nullptr, 0);
    const Held<X509_EXTENSION> extension(
        X509V3_EXT_conf_nid(nullptr, &context, kind, value.c_str()));
    X509_add_ext(&certificate, extension.get(), -1);
}

/// A certificate for the key, without extensions, issuer and signature.
Held<X509> draft(EVP_PKEY& key, std::string_view name, Span span) {
    Held<X509> certificate(X509_new());
    X509_set_version(certificate.get(), X509_VERSION_3);
    std::uint64_t serial = 0;
    RAND_bytes(reinterpret_cast<unsigned char*>(&serial), sizeof serial);
    ASN1_INTEGER_set_uint64(X509_get_serialNumber(certificate.get()), serial);
    X509_gmtime_adj(X509_getm_notBefore(certificate.get()), span.fromNow);
    X509_gmtime_adj(X509_getm_notAfter(certificate.get()), span.untilNow);
    X509_set_pubkey(certificate.get(), &key);
    X509_NAME_add_entry_by_NID(X509_get_subject_name(certificate.get()), NID_commonName,
                               MBSTRING_UTF8, reinterpret_cast<const unsigned char*>(name.data()),
                               static_cast<int>(name.size()), -1, 0);
    return certificate;
}

void sign(X509& certificate, X509& issuer, EVP_PKEY& issuersKey) {
    X509_set_issuer_name(&certificate, X509_get_subject_name(&issuer));
    X509_sign(&certificate, &issuersKey, EVP_sha256());
}

/// Without an issuer the server is its own.
CertificateAuthority::Identity serverIdentity(const CertificateAuthority::Request& request,
                                              X509* issuer, EVP_PKEY* issuersKey) {
    const auto key = newKey();
    const auto certificate = draft(*key, request.commonName, spanOf(request.lifetime));
    X509& signer = issuer ? *issuer : *certificate;
    addExtension(*certificate, signer, NID_basic_constraints, "critical,CA:FALSE");
    addExtension(*certificate, signer, NID_key_usage, "critical,digitalSignature");
    addExtension(*certificate, signer, NID_ext_key_usage, "serverAuth");
    addExtension(*certificate, signer, NID_subject_key_identifier, "hash");
    if (issuer) addExtension(*certificate, signer, NID_authority_key_identifier, "keyid:always");
    if (!request.hosts.empty())
        addExtension(*certificate, signer, NID_subject_alt_name, alternativeNames(request.hosts));
    sign(*certificate, signer, issuersKey ? *issuersKey : *key);
    return {pem(*certificate), pem(*key)};
}

}  // namespace

struct CertificateAuthority::Holding {
    Held<EVP_PKEY> key;
    Held<X509> certificate;
    std::string text;
};

CertificateAuthority::CertificateAuthority(std::string_view name)
    : holding_(std::make_unique<Holding>()) {
    auto& [key, certificate, text] = *holding_;
    key = newKey();
    certificate = draft(*key, name, spanOf(Lifetime::current));
    addExtension(*certificate, *certificate, NID_basic_constraints, "critical,CA:TRUE");
    addExtension(*certificate, *certificate, NID_key_usage, "critical,keyCertSign,cRLSign");
    addExtension(*certificate, *certificate, NID_subject_key_identifier, "hash");
    sign(*certificate, *certificate, *key);
    text = pem(*certificate);
}

CertificateAuthority::~CertificateAuthority() = default;
CertificateAuthority::CertificateAuthority(CertificateAuthority&&) noexcept = default;
CertificateAuthority& CertificateAuthority::operator=(CertificateAuthority&&) noexcept = default;

const std::string& CertificateAuthority::certificate() const {
    return holding_->text;
}

CertificateAuthority::Identity CertificateAuthority::issue(const Request& request) const {
    return serverIdentity(request, holding_->certificate.get(), holding_->key.get());
}

CertificateAuthority::Identity CertificateAuthority::selfSigned(const Request& request) {
    return serverIdentity(request, nullptr, nullptr);
}

}  // namespace brindlet::sample
