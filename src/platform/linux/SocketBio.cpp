#include "platform/linux/SocketBio.h"

#include <openssl/bio.h>
#include <sys/socket.h>

#include <cerrno>
#include <cstddef>

namespace brindlet {
namespace {

SocketState& stateOf(BIO* bio) {
    return *static_cast<SocketState*>(BIO_get_data(bio));
}

/// Calls until no signal interrupts it.
template <class Call>
int perform(SocketState& state, Call call) {
    ssize_t moved = 0;
    do moved = call();
    while (moved < 0 && errno == EINTR);
    if (moved < 0) state.error = errno;
    return static_cast<int>(moved);
}

bool wouldBlock(int error) {
    return error == EAGAIN || error == EWOULDBLOCK;
}

int write(BIO* bio, const char* bytes, int size) {
    auto& state = stateOf(bio);
    BIO_clear_retry_flags(bio);
    const int sent = perform(state, [&] {
        return ::send(state.descriptor, bytes, static_cast<std::size_t>(size), MSG_NOSIGNAL);
    });
    if (sent < 0 && wouldBlock(state.error)) BIO_set_retry_write(bio);
    return sent;
}

int read(BIO* bio, char* bytes, int size) {
    auto& state = stateOf(bio);
    BIO_clear_retry_flags(bio);
    const int got = perform(
        state, [&] { return ::recv(state.descriptor, bytes, static_cast<std::size_t>(size), 0); });
    if (got < 0 && wouldBlock(state.error)) BIO_set_retry_read(bio);
    if (got == 0) state.ended = true;
    return got;
}

/// Nothing is kept back, so a flush is done before it begins; whatever else OpenSSL asks for here
/// does not exist.
long control(BIO*, int command, long, void*) {
    return command == BIO_CTRL_FLUSH ? 1 : 0;
}

BIO_METHOD* makeMethod() {
    auto* method = BIO_meth_new(BIO_TYPE_SOURCE_SINK, "socket");
    if (method == nullptr) return nullptr;
    BIO_meth_set_write(method, write);
    BIO_meth_set_read(method, read);
    BIO_meth_set_ctrl(method, control);
    return method;
}

}  // namespace

BIO* newSocketBio(SocketState& state) {
    // Never freed: connections on threads that are left to themselves may use it to the last.
    static const BIO_METHOD* const method = makeMethod();
    auto* bio = method ? BIO_new(method) : nullptr;
    if (bio == nullptr) return nullptr;
    BIO_set_data(bio, &state);
    BIO_set_init(bio, 1);
    return bio;
}

}  // namespace brindlet
