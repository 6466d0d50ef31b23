#include "Gate.h"

#include <fcntl.h>
#include <unistd.h>

namespace brindlet::osascript {

void waitAtGate(const std::string& fifo) {
    const int descriptor = ::open(fifo.c_str(), O_RDONLY | O_CLOEXEC);
    if (descriptor < 0) return;
    char ignored[64];
    while (::read(descriptor, ignored, sizeof ignored) > 0) {
    }
    ::close(descriptor);
}

}  // namespace brindlet::osascript
