#pragma once

#include <QObject>
#include <memory>

#include "base/ThreadSafety.h"
#include "platform/MainQueue.h"

namespace brindlet {

/// The main queue of a program with a window: its jobs are events of the toolkit's loop. Made on
/// the main thread, after the application object.
class QtMainQueue : public MainQueue {
  public:
    QtMainQueue();
    ~QtMainQueue() override;

    void post(std::function<void()> job) override;
    bool isMainThread() const override;

    /// The loop has ended: what is queued is destroyed unrun, and so is whatever comes.
    void end();

  private:
    Mutex mutex_;
    /// Takes the events; gone after the end.
    std::unique_ptr<QObject> receiver_ BRINDLET_GUARDED_BY(mutex_);
};

}  // namespace brindlet
