#pragma once

#include <optional>
#include <string>

#include "base/Observable.h"
#include "platform/Updates.h"

namespace brindlet {

/// What is known of newer versions of the program. Main thread; it lives as long as the adapter,
/// which goes on telling it.
class Updater : public Observable {
  public:
    explicit Updater(Updates& updates);
    Updater(const Updater&) = delete;
    Updater& operator=(const Updater&) = delete;

    Published<bool> canCheck{*this, false};
    /// The version of an update that was found and is not yet being installed.
    Published<std::optional<std::string>> waiting{*this};

    /// Nothing while it cannot.
    void check();

  private:
    Updates& updates_;
};

}  // namespace brindlet
