#pragma once

#include <cstdint>
#include <functional>
#include <memory>

namespace brindlet {

/// Cancellation is co-operative: a token only says that it was asked for. Copies share one state;
/// it may be asked and given from any thread. Code looks at it only where its behaviour says so.
class CancelToken {
  public:
    CancelToken();

    void cancel() const;
    bool cancelled() const;

    /// Sleeps for so many seconds of real time. False at once when cancelled, before or during.
    bool sleep(double seconds) const;

    /// Runs `wake` once, on the cancelling thread, when cancel comes, or at once if it has come.
    /// The watch ends with the returned holder: once that is gone, `wake` neither runs nor will. So
    /// the holder must not end inside `wake`.
    class Watch {
      public:
        Watch() = default;
        Watch(Watch&&) noexcept = default;
        Watch& operator=(Watch&& other) noexcept;
        ~Watch();

      private:
        friend class CancelToken;
        struct Entry;
        void end();
        std::shared_ptr<Entry> entry_;
    };
    [[nodiscard]] Watch onCancel(std::function<void()> wake) const;

  private:
    struct State;
    std::shared_ptr<State> state_;
};

}  // namespace brindlet
