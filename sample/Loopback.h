#pragma once

#include <cstdint>

/// Sockets on this machine alone, which no program that we start inherits. A failure is -1.
namespace brindlet::sample {

/// On 127.0.0.1; 0 chooses a port that is free.
int listenOnLoopback(std::uint16_t port);
std::uint16_t portOf(int socket);
/// The next one who connects. What is written goes out at once.
int acceptFrom(int listener);

/// Something to wait for beside a socket.
struct WakePipe {
    WakePipe();
    ~WakePipe();
    WakePipe(const WakePipe&) = delete;
    WakePipe& operator=(const WakePipe&) = delete;

    bool good() const { return readEnd >= 0; }
    /// From any thread, or from a signal's handler.
    void wake() const;

    int readEnd = -1;
    int writeEnd = -1;
};

}  // namespace brindlet::sample
