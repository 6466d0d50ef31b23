#pragma once

#include <cstddef>
#include <functional>
#include <memory>

namespace brindlet {

/// A thread with a name, for whoever looks at the process, and with a stack of a chosen size: for
/// work that lasts as long as its owner. Its end is the end of the body, and is waited for; so the
/// body must not be what destroys it.
class Thread {
  public:
    struct Settings {
        /// Linux keeps the first 15 bytes.
        const char* name;
        std::size_t stackBytes;
    };

    /// Where the system has no thread left, the body never runs.
    Thread(const Settings& settings, std::function<void()> body);
    ~Thread();
    Thread(const Thread&) = delete;
    Thread& operator=(const Thread&) = delete;

  private:
    struct State;
    std::unique_ptr<State> state_;
};

}  // namespace brindlet
