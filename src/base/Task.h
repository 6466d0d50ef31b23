#pragma once

#include <cstddef>
#include <deque>
#include <functional>
#include <memory>
#include <optional>

#include "base/Cancel.h"
#include "base/ThreadSafety.h"

namespace brindlet {

/// How urgently the system should run a task's thread. Below `userInitiated` the person is not
/// waiting for it.
enum class TaskPriority { userInitiated, utility };

/// A handle on work that runs on a thread of its own. The work owns all it touches: dropping the
/// handle neither stops nor awaits it. Copies share one task; any thread may use them.
class Task {
  public:
    using Work = std::function<void(const CancelToken&)>;

    [[nodiscard]] static Task start(TaskPriority priority, Work work);

    void cancel() const;
    bool cancelled() const;
    bool finished() const;
    /// Blocks until the work has returned. Never call it on the main thread while the work may hop
    /// there.
    void wait() const;

  private:
    struct State;
    explicit Task(std::shared_ptr<State> state);
    std::shared_ptr<State> state_;
};

/// Starts `body` on a thread of its own that nobody joins.
void runDetached(TaskPriority priority, std::function<void()> body);

/// One queue of background jobs, run one after another in the order given, on one thread that lives
/// while there is work. For writes whose order matters. Dropping it lets what was queued finish.
class SerialQueue {
  public:
    explicit SerialQueue(TaskPriority priority);

    void post(std::function<void()> job);
    /// Blocks until all that was posted before this call has run.
    void drain();

  private:
    struct State;
    std::shared_ptr<State> state_;
};

/// Children that run side by side, at most `width` at once, each handing back one R. Results come
/// one by one, in the order in which the children finish. Only the owning thread calls it.
///
/// Dropping the group abandons what still runs: such a child finishes by itself, touches only what
/// it owns, and its result is thrown away. A child that would like to end early then watches
/// `abandoned`. Threads are the group's own, so that a child that never answers starves nobody
/// else.
template <class R>
class TaskGroup {
  public:
    explicit TaskGroup(int width) : state_(std::make_shared<State>(width)) {}
    ~TaskGroup() {
        std::deque<std::function<R()>> dropped;  // what they own ends outside the lock
        {
            Lock lock(state_->mutex);
            state_->closed = true;
            dropped.swap(state_->waiting);
            state_->added.notifyAll();
        }
        abandoned_.cancel();
    }
    TaskGroup(const TaskGroup&) = delete;
    TaskGroup& operator=(const TaskGroup&) = delete;

    /// Cancelled when the group goes.
    const CancelToken& abandoned() const { return abandoned_; }

    void add(std::function<R()> child) {
        bool needsThread = false;
        {
            Lock lock(state_->mutex);
            state_->waiting.push_back(std::move(child));
            ++state_->unclaimed;
            needsThread = state_->idle < static_cast<int>(state_->waiting.size()) &&
                          state_->threads < state_->width;
            if (needsThread) ++state_->threads;
        }
        if (needsThread)
            runDetached(TaskPriority::userInitiated, [state = state_] { run(*state); });
        else
            state_->added.notifyOne();
    }

    /// The next result; none when every child's result has been taken.
    std::optional<R> next() {
        Lock lock(state_->mutex);
        if (state_->unclaimed == 0) return std::nullopt;
        while (state_->finished.empty()) state_->answered.wait(state_->mutex);
        std::optional<R> result(std::move(state_->finished.front()));
        state_->finished.pop_front();
        --state_->unclaimed;
        return result;
    }

  private:
    struct State {
        explicit State(int w) : width(w) {}
        const int width;
        Mutex mutex;
        Condition added;     // what the threads wait for
        Condition answered;  // what the owner waits for
        std::deque<std::function<R()>> waiting BRINDLET_GUARDED_BY(mutex);
        std::deque<R> finished BRINDLET_GUARDED_BY(mutex);
        int threads BRINDLET_GUARDED_BY(mutex) = 0;
        int idle BRINDLET_GUARDED_BY(mutex) = 0;
        int unclaimed BRINDLET_GUARDED_BY(mutex) = 0;
        bool closed BRINDLET_GUARDED_BY(mutex) = false;
    };

    static void run(State& state) {
        while (true) {
            std::function<R()> child;
            {
                Lock lock(state.mutex);
                ++state.idle;
                while (state.waiting.empty() && !state.closed) state.added.wait(state.mutex);
                --state.idle;
                if (state.closed) return;
                child = std::move(state.waiting.front());
                state.waiting.pop_front();
            }
            R result = child();
            child = nullptr;  // what it owns ends before its result can be seen
            Lock lock(state.mutex);
            if (state.closed) return;
            state.finished.push_back(std::move(result));
            state.answered.notifyOne();
        }
    }

    std::shared_ptr<State> state_;
    CancelToken abandoned_;
};

/// A fixed crew for one kind of indexed work: the calling thread and threads that are kept between
/// calls. Only one thread calls it at a time.
class WorkerCrew {
  public:
    /// So many workers, the calling thread included; below one counts as one.
    explicit WorkerCrew(int workers);
    ~WorkerCrew();
    WorkerCrew(const WorkerCrew&) = delete;
    WorkerCrew& operator=(const WorkerCrew&) = delete;

    int workers() const;
    /// Calls body(worker, index) for every index below count, each once, on any of the workers, and
    /// returns when all are done. Worker numbers run from 0, so that each can keep a buffer.
    void forEach(std::size_t count, const std::function<void(int worker, std::size_t index)>& body);

  private:
    struct State;
    std::unique_ptr<State> state_;
};

}  // namespace brindlet
