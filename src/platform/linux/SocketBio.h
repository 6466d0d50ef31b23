#pragma once

#include <openssl/types.h>

namespace brindlet {

/// The socket below a TLS connection, and how its last call went.
struct SocketState {
    int descriptor = -1;
    /// The errno of a call that failed for good.
    int error = 0;
    /// The other side has closed its own direction.
    bool ended = false;
};

/// Lets OpenSSL read and write a socket that never blocks. Its own way to do that would end the
/// program, by SIGPIPE, at a write that nobody reads any more. The state must outlive what it
/// gives, which is the caller's to free; null without memory.
BIO* newSocketBio(SocketState& state);

}  // namespace brindlet
