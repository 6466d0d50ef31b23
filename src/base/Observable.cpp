#include "base/Observable.h"

#include <cassert>

namespace brindlet {

void Subscription::cancel() {
    if (const auto hub = hub_.lock()) hub->erase(key_);
    hub_.reset();
}

Subscription Observable::subscribe(std::function<void()> observer) {
    assertOwner();
    const auto key = nextKey_++;
    observers_->emplace(key, std::move(observer));
    return Subscription(observers_, key);
}

void Observable::willChange() const {
    assertOwner();
    // An observer may subscribe, cancel, or end this object while it is told: so hold what is
    // walked, look for the next key afresh, and tell nobody who came later.
    const auto observers = observers_;
    const auto newcomers = nextKey_;
    for (auto at = observers->begin(); at != observers->end() && at->first < newcomers;) {
        const auto [key, observer] = *at;
        observer();
        at = observers->upper_bound(key);
    }
}

void Observable::assertOwner() const {
    assert(owner_ == std::this_thread::get_id() && "observables belong to the main thread");
}

}  // namespace brindlet
