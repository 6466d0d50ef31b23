#include "platform/posix/Interrupt.h"

#include <algorithm>
#include <cerrno>
#include <vector>

namespace brindlet {

void Interrupt::raise() {
    if (raised_.exchange(true) || !pipe_) return;
    // Never blocks, and reaches nobody but us: this object holds the reading end.
    while (::write(pipe_->writeEnd.get(), "", 1) < 0 && errno == EINTR) {
    }
}

Interrupt::Outcome Interrupt::wait(std::span<pollfd> watched, int milliseconds) const {
    std::vector<pollfd> all(watched.begin(), watched.end());
    all.push_back({pipe_ ? pipe_->readEnd.get() : -1, POLLIN, 0});
    int ready = 0;
    do ready = ::poll(all.data(), all.size(), milliseconds);
    while (ready < 0 && errno == EINTR);
    if (raised_) return Outcome::interrupted;
    std::copy(all.begin(), all.end() - 1, watched.begin());
    return ready == 0 ? Outcome::timedOut : Outcome::ready;
}

bool Interrupt::wait(int descriptor, short events) const {
    pollfd watched[] = {{descriptor, events, 0}};
    return wait(watched) != Outcome::interrupted;
}

}  // namespace brindlet
