#pragma once

#include "platform/Clock.h"

namespace brindlet {

/// The system's time of day, and real sleep.
class SystemClock : public Clock {
  public:
    Date now() const override;
    bool sleep(double seconds, const CancelToken& token) override;
};

}  // namespace brindlet
