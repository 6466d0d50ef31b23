#include "base/Thread.h"

#include <pthread.h>

#include <algorithm>
#include <string>
#include <utility>

namespace brindlet {

struct Thread::State {
    std::string name;
    std::function<void()> body;
    pthread_t thread{};
    bool started = false;

    static void* run(void* state) {
        auto& self = *static_cast<State*>(state);
#if defined(__APPLE__)
        ::pthread_setname_np(self.name.c_str());
#else
        ::pthread_setname_np(::pthread_self(), self.name.c_str());
#endif
        self.body();
        return nullptr;
    }
};

Thread::Thread(const Settings& settings, std::function<void()> body)
    : state_(std::make_unique<State>()) {
    state_->name = settings.name;
#if defined(__linux__)
    // A longer name would be refused, not cut.
    constexpr std::size_t longestName = 15;
    state_->name.resize(std::min(state_->name.size(), longestName));
#endif
    state_->body = std::move(body);
    pthread_attr_t attributes;
    ::pthread_attr_init(&attributes);
    ::pthread_attr_setstacksize(&attributes, settings.stackBytes);
    state_->started = ::pthread_create(&state_->thread, &attributes, State::run, state_.get()) == 0;
    ::pthread_attr_destroy(&attributes);
}

Thread::~Thread() {
    if (state_->started) ::pthread_join(state_->thread, nullptr);
}

}  // namespace brindlet
