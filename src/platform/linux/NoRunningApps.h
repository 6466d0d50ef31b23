#pragma once

#include "platform/RunningApps.h"

namespace brindlet {

/// Applications have no bundle identifiers here, so none of them runs.
class NoRunningApps : public RunningApps {
  public:
    bool isRunning(const std::string&) const override { return false; }
};

}  // namespace brindlet
