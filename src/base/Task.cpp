#include "base/Task.h"

#include <atomic>
#include <cstdint>
#include <deque>
#include <thread>
#include <vector>

#if defined(__linux__)
#include <sys/resource.h>
#include <unistd.h>
#elif defined(__APPLE__)
#include <pthread/qos.h>
#endif

namespace brindlet {
namespace {

void applyPriority(TaskPriority priority) {
#if defined(__linux__)
    // On Linux a thread has a nice value of its own.
    if (priority == TaskPriority::utility)
        setpriority(PRIO_PROCESS, static_cast<id_t>(gettid()), 5);
#elif defined(__APPLE__)
    pthread_set_qos_class_self_np(
        priority == TaskPriority::utility ? QOS_CLASS_UTILITY : QOS_CLASS_USER_INITIATED, 0);
#endif
}

}  // namespace

void runDetached(TaskPriority priority, std::function<void()> body) {
    std::thread([priority, body = std::move(body)]() mutable {
        applyPriority(priority);
        body();
        body = nullptr;
    }).detach();
}

struct Task::State {
    CancelToken token;
    Mutex mutex;
    Condition changed;
    bool finished BRINDLET_GUARDED_BY(mutex) = false;
};

Task::Task(std::shared_ptr<State> state) : state_(std::move(state)) {}

Task Task::start(TaskPriority priority, Work work) {
    auto state = std::make_shared<State>();
    runDetached(priority, [state, work = std::move(work)]() mutable {
        work(state->token);
        work = nullptr;  // what it held ends before anyone is told that it finished
        Lock lock(state->mutex);
        state->finished = true;
        state->changed.notifyAll();
    });
    return Task(std::move(state));
}

void Task::cancel() const {
    state_->token.cancel();
}
bool Task::cancelled() const {
    return state_->token.cancelled();
}

bool Task::finished() const {
    Lock lock(state_->mutex);
    return state_->finished;
}

void Task::wait() const {
    Lock lock(state_->mutex);
    while (!state_->finished) state_->changed.wait(state_->mutex);
}

struct SerialQueue::State {
    explicit State(TaskPriority p) : priority(p) {}
    const TaskPriority priority;
    Mutex mutex;
    Condition changed;
    std::deque<std::function<void()>> jobs BRINDLET_GUARDED_BY(mutex);
    bool running BRINDLET_GUARDED_BY(mutex) = false;
    std::uint64_t posted BRINDLET_GUARDED_BY(mutex) = 0;
    std::uint64_t done BRINDLET_GUARDED_BY(mutex) = 0;
};

SerialQueue::SerialQueue(TaskPriority priority) : state_(std::make_shared<State>(priority)) {}

void SerialQueue::post(std::function<void()> job) {
    {
        Lock lock(state_->mutex);
        state_->jobs.push_back(std::move(job));
        ++state_->posted;
        if (state_->running) return;
        state_->running = true;
    }
    runDetached(state_->priority, [state = state_] {
        while (true) {
            std::function<void()> next;
            {
                Lock lock(state->mutex);
                if (state->jobs.empty()) {
                    state->running = false;
                    return;
                }
                next = std::move(state->jobs.front());
                state->jobs.pop_front();
            }
            next();
            next = nullptr;  // what it owns ends before anyone is told that it has run
            Lock lock(state->mutex);
            ++state->done;
            state->changed.notifyAll();
        }
    });
}

void SerialQueue::drain() {
    Lock lock(state_->mutex);
    const auto upTo = state_->posted;
    while (state_->done < upTo) state_->changed.wait(state_->mutex);
}

struct WorkerCrew::State {
    Mutex mutex;
    Condition changed;
    /// Null between two calls: a thread that wakes too late for its call has nothing to join.
    const std::function<void(int, std::size_t)>* body BRINDLET_GUARDED_BY(mutex) = nullptr;
    std::size_t count BRINDLET_GUARDED_BY(mutex) = 0;
    std::uint64_t round BRINDLET_GUARDED_BY(mutex) = 0;
    int busy BRINDLET_GUARDED_BY(mutex) = 0;
    bool closed BRINDLET_GUARDED_BY(mutex) = false;
    std::atomic<std::size_t> next{0};
    std::vector<std::thread> threads;
};

WorkerCrew::WorkerCrew(int workers) : state_(std::make_unique<State>()) {
    // The calling thread is worker 0.
    for (int worker = 1; worker < workers; ++worker)
        state_->threads.emplace_back([state = state_.get(), worker] {
            std::uint64_t seen = 0;
            while (true) {
                const std::function<void(int, std::size_t)>* body = nullptr;
                std::size_t count = 0;
                {
                    Lock lock(state->mutex);
                    while ((!state->body || state->round == seen) && !state->closed)
                        state->changed.wait(state->mutex);
                    if (state->closed) return;
                    seen = state->round;
                    body = state->body;
                    count = state->count;
                    ++state->busy;
                }
                for (auto i = state->next.fetch_add(1); i < count; i = state->next.fetch_add(1))
                    (*body)(worker, i);
                Lock lock(state->mutex);
                if (--state->busy == 0) state->changed.notifyAll();
            }
        });
}

WorkerCrew::~WorkerCrew() {
    {
        Lock lock(state_->mutex);
        state_->closed = true;
        state_->changed.notifyAll();
    }
    for (auto& thread : state_->threads) thread.join();
}

int WorkerCrew::workers() const {
    return static_cast<int>(state_->threads.size()) + 1;
}

void WorkerCrew::forEach(std::size_t count,
                         const std::function<void(int worker, std::size_t index)>& body) {
    {
        Lock lock(state_->mutex);
        state_->body = &body;
        state_->count = count;
        state_->next = 0;
        ++state_->round;
        if (!state_->threads.empty()) state_->changed.notifyAll();
    }
    for (auto i = state_->next.fetch_add(1); i < count; i = state_->next.fetch_add(1)) body(0, i);
    Lock lock(state_->mutex);
    state_->body = nullptr;
    while (state_->busy > 0) state_->changed.wait(state_->mutex);
}

}  // namespace brindlet
