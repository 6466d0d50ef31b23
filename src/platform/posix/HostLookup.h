#pragma once

#include <sys/socket.h>

#include <cstdint>
#include <functional>
#include <optional>
#include <string>
#include <vector>

#include "platform/posix/Interrupt.h"

namespace brindlet {

/// An address of a server, of either family, with the port.
struct HostAddress {
    sockaddr_storage bytes{};
    socklen_t size = 0;
};

struct HostLookup {
    /// In the order in which to try them.
    std::vector<HostAddress> addresses;
    /// Why there are none, for the person.
    std::optional<std::string> failure;
};

/// Finds the addresses of a host, or those of a literal address; blocks. It may still be at it when
/// nobody waits for it any more, so it must own all that it touches.
using HostResolver = std::function<HostLookup(const std::string& host, std::uint16_t port)>;

/// The system's.
HostLookup lookUpHost(const std::string& host, std::uint16_t port);

/// Looks up on a thread of its own, because the system's cannot be ended from outside. None when
/// interrupted: the thread is then left to itself.
std::optional<HostLookup> lookUp(HostResolver resolver, std::string host, std::uint16_t port,
                                 const Interrupt& interrupt);

}  // namespace brindlet
