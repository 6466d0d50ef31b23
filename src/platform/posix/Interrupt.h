#pragma once

#include <poll.h>

#include <atomic>
#include <optional>
#include <span>

#include "platform/posix/Pipe.h"

namespace brindlet {

/// Waits for descriptors, which any thread can end, for good: once raised, no wait blocks any more.
class Interrupt {
  public:
    Interrupt() : pipe_(Pipe::make()) {}

    /// False when there were no descriptors left to make it of: then nothing ends a wait.
    explicit operator bool() const { return pipe_.has_value(); }

    void raise();
    bool raised() const { return raised_; }

    enum class Outcome { ready, timedOut, interrupted };
    /// Like poll, but that a signal does not end it; below zero milliseconds it waits for ever.
    Outcome wait(std::span<pollfd> watched, int milliseconds = -1) const;
    /// False when interrupted.
    bool wait(int descriptor, short events) const;

  private:
    std::atomic<bool> raised_ = false;
    std::optional<Pipe> pipe_;
};

}  // namespace brindlet
