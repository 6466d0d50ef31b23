#pragma once

#include <chrono>

#include "base/ThreadSafety.h"

namespace brindlet {

/// How long to go on asking a server that takes questions and never answers. When as many calls in
/// a row as are in flight at once have run out of time, it counts as gone for a while, and calls
/// fail without asking: otherwise a scan would spend the whole time limit on every fourth message.
/// After the while it is asked again. Any thread.
class Patience {
  public:
    explicit Patience(std::chrono::milliseconds rest) : rest_(rest) {}

    bool mayAsk() const {
        Lock lock(mutex_);
        return unheard_ < mostUnheard || std::chrono::steady_clock::now() >= restsUntil_;
    }
    /// There was an end of some kind, if only a refusal.
    void heard() {
        Lock lock(mutex_);
        unheard_ = 0;
    }
    /// The time ran out.
    void unheard() {
        Lock lock(mutex_);
        if (++unheard_ >= mostUnheard) restsUntil_ = std::chrono::steady_clock::now() + rest_;
    }

  private:
    static constexpr int mostUnheard = 4;

    const std::chrono::milliseconds rest_;
    mutable Mutex mutex_;
    int unheard_ BRINDLET_GUARDED_BY(mutex_) = 0;
    std::chrono::steady_clock::time_point restsUntil_ BRINDLET_GUARDED_BY(mutex_);
};

}  // namespace brindlet
