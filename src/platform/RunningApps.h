#pragma once

#include <string>

namespace brindlet {

/// Which applications run on this desktop. Any thread.
class RunningApps {
  public:
    virtual ~RunningApps() = default;
    virtual bool isRunning(const std::string& bundleIdentifier) const = 0;
};

}  // namespace brindlet
