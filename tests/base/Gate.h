#pragma once

#include "base/ThreadSafety.h"

namespace brindlet {

/// A count that threads raise and wait for: how the tests of this folder order what runs side by
/// side, without a clock.
class Gate {
  public:
    void raise() {
        Lock lock(mutex_);
        ++count_;
        changed_.notifyAll();
    }
    void waitFor(int count) {
        Lock lock(mutex_);
        while (count_ < count) changed_.wait(mutex_);
    }
    int count() const {
        Lock lock(mutex_);
        return count_;
    }

  private:
    mutable Mutex mutex_;
    Condition changed_;
    int count_ BRINDLET_GUARDED_BY(mutex_) = 0;
};

}  // namespace brindlet
