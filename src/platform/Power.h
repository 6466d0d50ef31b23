#pragma once

#include <memory>
#include <string>

namespace brindlet {

/// Where the machine's power comes from, and keeping it awake. `onBattery` from any thread,
/// `keepAwake` from the main thread.
class Power {
  public:
    /// Ends the request when it goes.
    class Activity {
      public:
        virtual ~Activity() = default;
    };

    virtual ~Power() = default;
    /// False on mains power, and where nothing is known.
    virtual bool onBattery() const = 0;
    /// Keeps the machine from idle sleep while the token lives. Never null; where the platform
    /// cannot, the token does nothing.
    virtual std::unique_ptr<Activity> keepAwake(const std::string& reason) = 0;
};

}  // namespace brindlet
