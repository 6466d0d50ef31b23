#include "platform/posix/Pipe.h"

#include <fcntl.h>

namespace brindlet {
namespace {

bool makeEnds(int (&ends)[2]) {
#if defined(__APPLE__)
    if (::pipe(ends) != 0) return false;
    for (const int end : ends) ::fcntl(end, F_SETFD, FD_CLOEXEC);
    return true;
#else
    return ::pipe2(ends, O_CLOEXEC) == 0;
#endif
}

bool liftAboveStreams(Descriptor& end) {
    if (end.get() > STDERR_FILENO) return true;
    end = Descriptor(::fcntl(end.get(), F_DUPFD_CLOEXEC, STDERR_FILENO + 1));
    return static_cast<bool>(end);
}

}  // namespace

std::optional<Pipe> Pipe::make() {
    int ends[2];
    if (!makeEnds(ends)) return std::nullopt;
    Pipe pipe{Descriptor(ends[0]), Descriptor(ends[1])};
    if (!liftAboveStreams(pipe.readEnd) || !liftAboveStreams(pipe.writeEnd)) return std::nullopt;
    return pipe;
}

}  // namespace brindlet
