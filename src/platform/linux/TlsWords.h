#pragma once

#include <string>

namespace brindlet {

/// Why a server's certificate is not believed, for the person, given OpenSSL's X509_V_ERR_ code.
std::string describeCertificateError(long error);
/// What went wrong in a TLS connection, given a code from OpenSSL's queue of errors.
std::string describeTlsError(unsigned long error);

}  // namespace brindlet
