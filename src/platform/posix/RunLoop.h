#pragma once

#include <deque>
#include <functional>
#include <thread>

#include "base/ThreadSafety.h"
#include "platform/MainQueue.h"

namespace brindlet {

/// The main queue of a program without a window: the thread that makes it is the main one, and runs
/// the jobs while it is inside `run`.
class RunLoop : public MainQueue {
  public:
    RunLoop() = default;

    void post(std::function<void()> job) override;
    bool isMainThread() const override;

    /// Runs jobs as they come until `stop`. Afterwards nothing runs any more: what is queued or
    /// posted later is destroyed unrun.
    void run();
    /// From any thread, before `run` too; the job that runs now is the last.
    void stop();

  private:
    const std::thread::id main_ = std::this_thread::get_id();
    Mutex mutex_;
    Condition changed_;
    std::deque<std::function<void()>> jobs_ BRINDLET_GUARDED_BY(mutex_);
    bool stopped_ BRINDLET_GUARDED_BY(mutex_) = false;
};

}  // namespace brindlet
