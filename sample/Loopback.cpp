#include "sample/Loopback.h"

#include <arpa/inet.h>
#include <fcntl.h>
#include <netinet/in.h>
#include <netinet/tcp.h>
#include <sys/socket.h>
#include <unistd.h>

#include <initializer_list>

namespace brindlet::sample {
namespace {

constexpr int queueLength = 64;

#if defined(__APPLE__)
int closedToChildren(int descriptor) {
    if (descriptor >= 0) ::fcntl(descriptor, F_SETFD, FD_CLOEXEC);
    return descriptor;
}
int newSocket() {
    return closedToChildren(::socket(AF_INET, SOCK_STREAM, 0));
}
int accepted(int listener) {
    return closedToChildren(::accept(listener, nullptr, nullptr));
}
bool makePipe(int (&ends)[2]) {
    if (::pipe(ends) != 0) return false;
    for (const int end : ends) closedToChildren(end);
    return true;
}
#else
int newSocket() {
    return ::socket(AF_INET, SOCK_STREAM | SOCK_CLOEXEC, 0);
}
int accepted(int listener) {
    return ::accept4(listener, nullptr, nullptr, SOCK_CLOEXEC);
}
bool makePipe(int (&ends)[2]) {
    return ::pipe2(ends, O_CLOEXEC) == 0;
}
#endif

}  // namespace

int listenOnLoopback(std::uint16_t port) {
    const int socket = newSocket();
    if (socket < 0) return -1;
    const int yes = 1;
    ::setsockopt(socket, SOL_SOCKET, SO_REUSEADDR, &yes, sizeof yes);
    sockaddr_in address{};
    address.sin_family = AF_INET;
    address.sin_port = htons(port);
    address.sin_addr.s_addr = htonl(INADDR_LOOPBACK);
    if (::bind(socket, reinterpret_cast<const sockaddr*>(&address), sizeof address) == 0 &&
        ::listen(socket, queueLength) == 0)
        return socket;
    ::close(socket);
    return -1;
}

std::uint16_t portOf(int socket) {
    sockaddr_in address{};
    socklen_t size = sizeof address;
    ::getsockname(socket, reinterpret_cast<sockaddr*>(&address), &size);
    return ntohs(address.sin_port);
}

int acceptFrom(int listener) {
    const int socket = accepted(listener);
    const int yes = 1;
    if (socket >= 0) ::setsockopt(socket, IPPROTO_TCP, TCP_NODELAY, &yes, sizeof yes);
    return socket;
}

WakePipe::WakePipe() {
    int ends[2] = {-1, -1};
    if (!makePipe(ends)) return;
    readEnd = ends[0];
    writeEnd = ends[1];
}

WakePipe::~WakePipe() {
    for (const int end : {readEnd, writeEnd})
        if (end >= 0) ::close(end);
}

void WakePipe::wake() const {
    // One byte wakes as well as many: it does not matter whether it still fits in.
    [[maybe_unused]] const auto written = ::write(writeEnd, "", 1);
}

}  // namespace brindlet::sample
