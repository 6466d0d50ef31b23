#pragma once

#include "base/Cancel.h"
#include "base/Date.h"

namespace brindlet {

/// The time of day, and sleeping. Any thread.
class Clock {
  public:
    virtual ~Clock() = default;
    virtual Date now() const = 0;
    /// Sleeps for so many seconds; false at once when the token is cancelled, before or during.
    virtual bool sleep(double seconds, const CancelToken& token) = 0;
};

}  // namespace brindlet
