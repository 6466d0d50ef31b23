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

/// Work on its way to the main thread.
template <class R>
class Hop {
  public:
    /// `work` must stay valid until the hop is over.
    template <class F>
    Hop(MainQueue& queue, F work) : meeting_(std::make_shared<Meeting>()) {
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
        queue.post([token = std::make_shared<Token>(meeting_), work = std::move(work)]() mutable {
            std::optional<R> result(work());
            Lock lock(token->meeting->mutex);
            token->meeting->result = std::move(result);
        });
    }

    /// Waits for the end of it; none when the loop has ended ("gone") and it never ran. Once only,
    /// and from a background thread only.
    std::optional<R> wait() {
        Lock lock(meeting_->mutex);
        while (!meeting_->over) meeting_->changed.wait(meeting_->mutex);
        return std::move(meeting_->result);
    }

  private:
    struct Meeting {
        Mutex mutex;
        Condition changed;
        bool over BRINDLET_GUARDED_BY(mutex) = false;
        std::optional<R> result BRINDLET_GUARDED_BY(mutex);
    };
    std::shared_ptr<Meeting> meeting_;
};

/// Runs `work` on the main thread and waits for what it gives; none when the loop has ended and it
/// never ran. From a background thread only. For a work that gives nothing the result is true, or
/// false for gone.
template <class F>
auto hop(MainQueue& queue, F&& work) {
    using R = std::invoke_result_t<F>;
    if constexpr (std::is_void_v<R>) {
        return Hop<bool>(queue,
                         [&work] {
                             work();
                             return true;
                         })
            .wait()
            .has_value();
    } else {
        return Hop<R>(queue, [&work] { return work(); }).wait();
    }
}

}  // namespace brindlet
