#include "platform/posix/RunLoop.h"

namespace brindlet {

void RunLoop::post(std::function<void()> job) {
    {
        Lock lock(mutex_);
        if (stopped_) return;
        jobs_.push_back(std::move(job));
    }
    changed_.notifyAll();
}

bool RunLoop::isMainThread() const {
    return main_ == std::this_thread::get_id();
}

void RunLoop::run() {
    while (true) {
        std::function<void()> job;
        std::deque<std::function<void()>> dropped;
        {
            Lock lock(mutex_);
            while (jobs_.empty() && !stopped_) changed_.wait(mutex_);
            if (stopped_) {
                dropped.swap(jobs_);  // their waiters are told outside the lock
            } else {
                job = std::move(jobs_.front());
                jobs_.pop_front();
            }
        }
        if (!job) return;
        job();
    }
}

void RunLoop::stop() {
    {
        Lock lock(mutex_);
        stopped_ = true;
    }
    changed_.notifyAll();
}

}  // namespace brindlet
