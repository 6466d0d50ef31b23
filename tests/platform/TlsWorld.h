#pragma once

#include <memory>
#include <string>
#include <utility>

#include "platform/LoopbackServer.h"
#include "platform/linux/OpenSslStream.h"

namespace brindlet {

/// The name under which the tests' servers are known.
inline const std::string hostName = "imap.mail.example";

/// An authority, and connections of clients that trust it alone.
struct TlsWorld {
    sample::CertificateAuthority authority;

    TlsServer server() const { return {.identity = authority.issue({.hosts = {hostName}})}; }
    /// To the server, taken for the host of that name.
    std::shared_ptr<TlsStream> streamTo(const LoopbackServer& server,
                                        const std::string& host = hostName) const {
        return streamBy(server.resolver(), host, server.port());
    }
    std::shared_ptr<TlsStream> streamBy(HostResolver resolver, const std::string& host = hostName,
                                        std::uint16_t port = 993) const {
        return OpenSslConnector({.text = authority.certificate()}, std::move(resolver))
            .make(host, port);
    }
};

/// All that comes until the end or a failure, which is told too.
inline TlsStream::Received receiveAll(TlsStream& stream, std::size_t piece = 1024 * 1024) {
    TlsStream::Received all;
    while (!all.ended && !all.failure) {
        const auto more = stream.receive(piece);
        all.bytes += more.bytes;
        all.ended = more.ended;
        all.failure = more.failure;
    }
    return all;
}

/// Exactly so many bytes, or fewer when there are no more.
inline std::string receiveExactly(TlsStream& stream, std::size_t size) {
    std::string bytes;
    while (bytes.size() < size) {
        const auto more = stream.receive(size - bytes.size());
        bytes += more.bytes;
        if (more.ended || more.failure) break;
    }
    return bytes;
}

}  // namespace brindlet
