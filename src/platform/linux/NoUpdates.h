#pragma once

#include "platform/Updates.h"

namespace brindlet {

/// Here the package manager brings new versions, so there is never anything to check.
class NoUpdates : public Updates {
  public:
    void start(Listener listener) override { listener.canCheckChanged(false); }
    void check() override {}
};

}  // namespace brindlet
