#pragma once

#include <memory>
#include <string>

#include "platform/Power.h"

namespace brindlet::demo {

/// A machine whose plug is a small text file: while it says "battery", the machine runs on battery;
/// with any other word, or without the file, it is plugged in. So whoever tries the demo pulls the
/// plug with an editor or a shell, while it runs. Any thread.
class DemoPower : public Power {
  public:
    /// Writes the file where there is none, so that it is there to be changed.
    DemoPower(std::string file, bool onBattery);

    bool onBattery() const override;
    std::unique_ptr<Activity> keepAwake(const std::string& reason) override;

    void setOnBattery(bool battery);
    const std::string& file() const { return file_; }

  private:
    const std::string file_;
};

}  // namespace brindlet::demo
