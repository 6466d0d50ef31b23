#include "platform/posix/HostLookup.h"

#include <netdb.h>

#include <cstring>
#include <memory>
#include <utility>

#include "base/Task.h"
#include "base/ThreadSafety.h"
#include "platform/posix/NetworkWords.h"

namespace brindlet {
namespace {

/// What the thread that looks up shares with the one that waits.
struct Answer {
    explicit Answer(Pipe ends) : pipe(std::move(ends)) {}

    Locked<HostLookup> lookup;
    /// Closing its writing end tells that the answer is there.
    Pipe pipe;
};

}  // namespace

HostLookup lookUpHost(const std::string& host, std::uint16_t port) {
    addrinfo wanted{};
    wanted.ai_socktype = SOCK_STREAM;
    wanted.ai_flags = AI_NUMERICSERV;
    addrinfo* found = nullptr;
    const int error = ::getaddrinfo(host.c_str(), std::to_string(port).c_str(), &wanted, &found);
    if (error != 0) return {.addresses = {}, .failure = describeLookupError(error)};
    const std::unique_ptr<addrinfo, decltype(&::freeaddrinfo)> held(found, &::freeaddrinfo);
    HostLookup lookup;
    for (const auto* entry = found; entry != nullptr; entry = entry->ai_next) {
        auto& address = lookup.addresses.emplace_back();
        std::memcpy(&address.bytes, entry->ai_addr, entry->ai_addrlen);
        address.size = entry->ai_addrlen;
    }
    return lookup;
}

std::optional<HostLookup> lookUp(HostResolver resolver, std::string host, std::uint16_t port,
                                 const Interrupt& interrupt) {
    auto pipe = Pipe::make();
    if (!pipe) return HostLookup{.addresses = {}, .failure = describeSocketError(EMFILE)};
    const auto answer = std::make_shared<Answer>(std::move(*pipe));
    const int answered = answer->pipe.readEnd.get();
    runDetached(TaskPriority::userInitiated,
                [answer, port, resolver = std::move(resolver), host = std::move(host)] {
                    answer->lookup.set(resolver(host, port));
                    answer->pipe.writeEnd.close();
                });
    if (!interrupt.wait(answered, POLLIN)) return std::nullopt;
    return answer->lookup.get();
}

}  // namespace brindlet
