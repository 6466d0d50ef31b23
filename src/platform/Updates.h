#pragma once

#include <functional>
#include <string>

namespace brindlet {

/// Looks for newer versions of the program, and has them installed. Shows what it finds, and what
/// fails, in dialogs of its own. Main thread.
class Updates {
  public:
    /// Called on the main thread. A found version is in the words in which it is shown.
    struct Listener {
        std::function<void(bool)> canCheckChanged;
        std::function<void(const std::string& version)> found;
        std::function<void()> notFound;
        std::function<void()> willInstall;
    };

    virtual ~Updates() = default;
    /// Begins. Tells at once whether a check can be asked for, and again whenever that changes.
    virtual void start(Listener listener) = 0;
    /// Only while it can.
    virtual void check() = 0;
};

}  // namespace brindlet
