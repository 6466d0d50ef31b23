#pragma once

#include <optional>
#include <span>
#include <string>

#include "platform/posix/HostLookup.h"
#include "platform/posix/Interrupt.h"
#include "platform/posix/Pipe.h"

namespace brindlet {

struct SocketConnection {
    /// Never blocks, and no program that we start inherits it.
    Descriptor socket;
    /// Why there is none, for the person; nothing at all when interrupted.
    std::optional<std::string> failure;
};

/// A TCP connection to whichever of the addresses answers first. They are tried in their order,
/// the next one as soon as one has failed or has not answered for a quarter of a second, while the
/// earlier ones go on: so a family of addresses that leads nowhere costs no more than that (after
/// RFC 8305, of which the rest is the resolver's). When all have failed the first one's reason
/// counts, since the system puts in front what it reaches best.
SocketConnection connectToAny(std::span<const HostAddress> addresses, const Interrupt& interrupt,
                              int headStart = 250 /* milliseconds */);

}  // namespace brindlet
