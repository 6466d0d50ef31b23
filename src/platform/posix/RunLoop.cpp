#include "platform/posix/RunLoop.h"

namespace brindlet {

void RunLoop::post(std::function<void()> job) {
    Lock lock(mutex_);
    if (stopped_) return;
    jobs_.push_back(std::move(job));
    changed_.notifyAll();
}

bool RunLoop::isMainThread() const {
    return main_ == std::this_thread::get_id();
}

void RunLoop::run() {
    while (true) {
        std::function<void()> job;
        {
            Lock lock(mutex_);
            while (jobs_.empty() && !stopped_) changed_.wait(mutex_);
            if (stopped_) return;
            job = std::move(jobs_.front());
            jobs_.pop_front();
        }
        job();
    }
}

void RunLoop::stop() {
    std::deque<std::function<void()>> dropped;  // whoever waits for these is told outside the lock
    Lock lock(mutex_);
    stopped_ = true;
    dropped.swap(jobs_);
    changed_.notifyAll();
}

}  // namespace brindlet
