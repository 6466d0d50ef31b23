#pragma once

#include <utility>

#include "platform/Updates.h"

namespace brindlet::doubles {

/// Counts the checks; a test says what they find.
class RecordingUpdates : public Updates {
  public:
    void start(Listener told) override {
        listener = std::move(told);
        listener.canCheckChanged(canCheck);
    }
    void check() override { ++checks; }

    bool canCheck = false;
    int checks = 0;
    Listener listener;
};

}  // namespace brindlet::doubles
