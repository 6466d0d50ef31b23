#pragma once

#include <memory>
#include <optional>
#include <type_traits>
#include <utility>

#include "platform/MainQueue.h"
#include "session/AppState.h"

namespace brindlet {

/// Asks the session on the main thread and waits for the answer; none when the session or the loop
/// is gone. From a background thread only.
template <class F>
auto askSession(const std::weak_ptr<AppState>& session, MainQueue& queue, F question)
    -> std::optional<std::invoke_result_t<F, AppState&>> {
    using Answer = std::optional<std::invoke_result_t<F, AppState&>>;
    auto answer = hop(queue, [&]() -> Answer {
        const auto state = session.lock();
        return state ? Answer(question(*state)) : std::nullopt;
    });
    return answer ? std::move(*answer) : std::nullopt;
}

}  // namespace brindlet
