#pragma once

#include <functional>
#include <memory>
#include <optional>
#include <type_traits>

#include "base/ThreadSafety.h"

namespace brindlet {

/// The serial queue of the main thread. Jobs run there one after another, in the order posted.
class MainQueue {
  public:
    virtual ~MainQueue() = default;
    /// From any thread. A job that can no longer run, because the loop has ended, is destroyed
    /// unrun.
    virtual void post(std::function<void()> job) = 0;
    virtual bool isMainThread() const = 0;
};

/// Runs `work` on the main thread and waits for what it gives; none when the loop has ended
/// ("gone") and it never ran. Called from a background thread only. For a work that gives nothing
/// the result is true, or false for gone.
template <class F>
auto hop(MainQueue& queue, F&& work) {
    using R = std::invoke_result_t<F>;
    using Held = std::conditional_t<std::is_void_v<R>, bool, R>;
    struct Meeting {
        Mutex mutex;
        Condition changed;
        bool over BRINDLET_GUARDED_BY(mutex) = false;
        std::optional<Held> result BRINDLET_GUARDED_BY(mutex);
    };
    // The job's end, run or not, is the end of this token: that is what the waiter waits for.
    struct Token {
        explicit Token(std::shared_ptr<Meeting> m) : meeting(std::move(m)) {}
        Token(const Token&) = delete;
        Token& operator=(const Token&) = delete;
        ~Token() {
            Lock lock(meeting->mutex);
            meeting->over = true;
            meeting->changed.notifyAll();
        }
        std::shared_ptr<Meeting> meeting;
    };
    auto meeting = std::make_shared<Meeting>();
    queue.post([token = std::make_shared<Token>(meeting), &work] {
        std::optional<Held> result;
        if constexpr (std::is_void_v<R>) {
            work();
            result = true;
        } else {
            result.emplace(work());
        }
        Lock lock(token->meeting->mutex);
        token->meeting->result = std::move(result);
    });
    Lock lock(meeting->mutex);
    while (!meeting->over) meeting->changed.wait(meeting->mutex);
    if constexpr (std::is_void_v<R>)
        return meeting->result.has_value();
    else
        return std::move(meeting->result);
}

}  // namespace brindlet
