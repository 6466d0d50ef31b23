#pragma once

#include <string>
#include <utility>

#include "platform/RunningApps.h"
#include "sample/MailPresence.h"

namespace brindlet::sample {

/// A desktop on which nothing runs but, while it does, the simulated mail program of a home.
class SimulatedApps : public RunningApps {
  public:
    explicit SimulatedApps(std::string home) : home_(std::move(home)) {}

    bool isRunning(const std::string& bundleIdentifier) const override {
        return bundleIdentifier == "com.apple.mail" && mailIsRunning(home_);
    }

  private:
    std::string home_;
};

}  // namespace brindlet::sample
