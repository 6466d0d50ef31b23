#pragma once

#include <string>

namespace brindlet::osascript {

/// Waits at a FIFO: until somebody opens it for writing, and then until they close it. Goes on at
/// once when there is no such FIFO. Nothing but a signal ends the waiting otherwise.
void waitAtGate(const std::string& fifo);

}  // namespace brindlet::osascript
