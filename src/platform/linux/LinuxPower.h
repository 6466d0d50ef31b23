#pragma once

#include <functional>
#include <string>

#include "platform/Power.h"

namespace brindlet {

/// The kernel's list of power supplies, and the login manager's inhibitors.
class LinuxPower : public Power {
  public:
    /// Asks to keep the machine awake: a descriptor whose closing ends the request, or -1. Called
    /// on a thread of its own.
    using Inhibit = std::function<int(const std::string& reason)>;

    LinuxPower();
    /// `supplies` is the directory that lists the power supplies.
    LinuxPower(std::string supplies, Inhibit inhibit);

    /// True when a battery of the machine discharges and no mains is online.
    bool onBattery() const override;
    /// Returns at once; the request goes out in the background.
    std::unique_ptr<Activity> keepAwake(const std::string& reason) override;

  private:
    std::string supplies_;
    Inhibit inhibit_;
};

}  // namespace brindlet
