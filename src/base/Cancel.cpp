#include "base/Cancel.h"

#include <algorithm>
#include <chrono>
#include <utility>
#include <vector>

#include "base/ThreadSafety.h"

namespace brindlet {

struct CancelToken::Watch::Entry {
    Mutex mutex;  // held while the callback runs, so that ending a watch waits for it
    std::function<void()> wake BRINDLET_GUARDED_BY(mutex);

    void fire() {
        Lock lock(mutex);
        if (!wake) return;
        wake();
        wake = nullptr;
    }
    void end() {
        Lock lock(mutex);
        wake = nullptr;
    }
};

struct CancelToken::State {
    Mutex mutex;
    Condition changed;
    bool cancelled BRINDLET_GUARDED_BY(mutex) = false;
    std::vector<std::weak_ptr<Watch::Entry>> watches BRINDLET_GUARDED_BY(mutex);
};

CancelToken::CancelToken() : state_(std::make_shared<State>()) {}

void CancelToken::cancel() const {
    std::vector<std::weak_ptr<Watch::Entry>> watches;
    {
        Lock lock(state_->mutex);
        if (state_->cancelled) return;
        state_->cancelled = true;
        watches.swap(state_->watches);
    }
    state_->changed.notifyAll();
    for (const auto& watch : watches)
        if (const auto entry = watch.lock()) entry->fire();
}

bool CancelToken::cancelled() const {
    Lock lock(state_->mutex);
    return state_->cancelled;
}

bool CancelToken::sleep(double seconds) const {
    const auto until = std::chrono::steady_clock::now() + std::chrono::duration<double>(seconds);
    // Waits in slices, since the clock's own arithmetic overflows on very long ones.
    constexpr std::chrono::duration<double> slice = std::chrono::hours(1);
    Lock lock(state_->mutex);
    while (!state_->cancelled) {
        const std::chrono::duration<double> left = until - std::chrono::steady_clock::now();
        if (left <= left.zero()) return true;
        state_->changed.waitFor(state_->mutex, std::min(left, slice));
    }
    return false;
}

CancelToken::Watch CancelToken::onCancel(std::function<void()> wake) const {
    Watch watch;
    watch.entry_ = std::make_shared<Watch::Entry>();
    {
        Lock lock(watch.entry_->mutex);
        watch.entry_->wake = std::move(wake);
    }
    bool already = false;
    {
        Lock lock(state_->mutex);
        already = state_->cancelled;
        if (!already) {
            std::erase_if(state_->watches, [](const auto& entry) { return entry.expired(); });
            state_->watches.push_back(watch.entry_);
        }
    }
    if (already) watch.entry_->fire();
    return watch;
}

CancelToken::Watch& CancelToken::Watch::operator=(Watch&& other) noexcept {
    if (this != &other) {
        end();
        entry_ = std::move(other.entry_);
    }
    return *this;
}

CancelToken::Watch::~Watch() {
    end();
}

void CancelToken::Watch::end() {
    if (entry_) entry_->end();
    entry_.reset();
}

}  // namespace brindlet
