#include "platform/linux/TlsWords.h"

#include <openssl/err.h>
#include <openssl/ssl.h>
#include <openssl/x509_vfy.h>

namespace brindlet {
namespace {

/// An alert of the server's, for which OpenSSL's reason is its number above this one.
bool isAlert(int reason) {
    return reason >= SSL_AD_REASON_OFFSET && reason < SSL_AD_REASON_OFFSET + 256;
}

}  // namespace

std::string describeCertificateError(long error) {
    switch (error) {
        case X509_V_ERR_CERT_HAS_EXPIRED:
            return "the server's certificate has expired";
        case X509_V_ERR_CERT_NOT_YET_VALID:
            return "the server's certificate is not valid yet";
        case X509_V_ERR_HOSTNAME_MISMATCH:
        case X509_V_ERR_IP_ADDRESS_MISMATCH:
            return "the server's certificate is for another host";
        case X509_V_ERR_DEPTH_ZERO_SELF_SIGNED_CERT:
            return "the server's certificate is signed by nobody but itself";
        case X509_V_ERR_SELF_SIGNED_CERT_IN_CHAIN:
        case X509_V_ERR_UNABLE_TO_GET_ISSUER_CERT:
        case X509_V_ERR_UNABLE_TO_GET_ISSUER_CERT_LOCALLY:
        case X509_V_ERR_UNABLE_TO_VERIFY_LEAF_SIGNATURE:
            return "the server's certificate comes from an authority that is not trusted here";
        default:
            return std::string("the server's certificate is not to be trusted: ") +
                   X509_verify_cert_error_string(error);
    }
}

std::string describeTlsError(unsigned long error) {
    // The numbers of other libraries' reasons mean other things.
    const int reason = ERR_GET_LIB(error) == ERR_LIB_SSL ? ERR_GET_REASON(error) : 0;
    switch (reason) {
        case SSL_R_WRONG_VERSION_NUMBER:
        case SSL_R_PACKET_LENGTH_TOO_LONG:
        case SSL_R_HTTP_REQUEST:
            return "the server does not speak TLS";
        case SSL_R_UNSUPPORTED_PROTOCOL:
        case SSL_R_TLSV1_ALERT_PROTOCOL_VERSION:
            return "the server only speaks a TLS that is too old to be safe";
        default:
            break;
    }
    if (isAlert(reason))
        return std::string("the server refused the encrypted connection: ") +
               SSL_alert_desc_string_long(reason - SSL_AD_REASON_OFFSET);
    const char* words = ERR_reason_error_string(error);
    return std::string("the encrypted connection failed") + (words ? ": " : "") +
           (words ? words : "");
}

}  // namespace brindlet
