#include "base/Observable.h"

#include <cassert>
#include <vector>

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
    // An observer may subscribe or cancel while being told, so walk the keys of this moment.
    const auto observers = observers_;
    std::vector<std::uint64_t> keys;
    keys.reserve(observers->size());
    for (const auto& [key, observer] : *observers) keys.push_back(key);
    for (const auto key : keys) {
        const auto found = observers->find(key);
        if (found == observers->end()) continue;
        const auto observer = found->second;
        observer();
    }
}

void Observable::assertOwner() const {
    assert(owner_ == std::this_thread::get_id() && "observables belong to the main thread");
}

}  // namespace brindlet
