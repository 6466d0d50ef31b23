#pragma once

#include <condition_variable>
#include <mutex>
#include <utility>

/// Clang's thread-safety analysis over our own mutex: the standard library's carries no
/// annotations. Other compilers see plain code.
#if defined(__clang__)
#define BRINDLET_THREAD(x) __attribute__((x))
#else
#define BRINDLET_THREAD(x)
#endif

#define BRINDLET_GUARDED_BY(x) BRINDLET_THREAD(guarded_by(x))
#define BRINDLET_REQUIRES(...) BRINDLET_THREAD(requires_capability(__VA_ARGS__))

namespace brindlet {

class BRINDLET_THREAD(capability("mutex")) Mutex {
  public:
    void lock() BRINDLET_THREAD(acquire_capability()) { mutex_.lock(); }
    void unlock() BRINDLET_THREAD(release_capability()) { mutex_.unlock(); }

  private:
    friend class Condition;
    std::mutex mutex_;
};

/// Holds a Mutex for a scope.
class BRINDLET_THREAD(scoped_lockable) Lock {
  public:
    explicit Lock(Mutex& mutex) BRINDLET_THREAD(acquire_capability(mutex)) : mutex_(mutex) {
        mutex_.lock();
    }
    ~Lock() BRINDLET_THREAD(release_capability()) { mutex_.unlock(); }
    Lock(const Lock&) = delete;
    Lock& operator=(const Lock&) = delete;

  private:
    Mutex& mutex_;
};

/// A condition over a Mutex that the caller holds; wait loops test their own condition.
class Condition {
  public:
    void wait(Mutex& mutex) BRINDLET_REQUIRES(mutex) {
        std::unique_lock<std::mutex> held(mutex.mutex_, std::adopt_lock);
        condition_.wait(held);
        held.release();  // the caller goes on holding it
    }
    /// False when the time ran out.
    template <class Duration>
    bool waitFor(Mutex& mutex, Duration duration) BRINDLET_REQUIRES(mutex) {
        std::unique_lock<std::mutex> held(mutex.mutex_, std::adopt_lock);
        const auto status = condition_.wait_for(held, duration);
        held.release();
        return status == std::cv_status::no_timeout;
    }
    void notifyOne() { condition_.notify_one(); }
    void notifyAll() { condition_.notify_all(); }

  private:
    std::condition_variable condition_;
};

/// A value guarded by one lock, for the few places where it crosses between a background reader
/// and whoever waits for it. To read and then write, take the lock once around both: `with`.
template <class T>
class Locked {
  public:
    explicit Locked(T value = {}) : stored_(std::move(value)) {}

    T get() const {
        Lock lock(lock_);
        return stored_;
    }
    void set(T value) {
        Lock lock(lock_);
        stored_ = std::move(value);
    }
    template <class F>
    auto with(F&& use) {
        Lock lock(lock_);
        return use(stored_);
    }

  private:
    mutable Mutex lock_;
    T stored_ BRINDLET_GUARDED_BY(lock_);
};

}  // namespace brindlet
