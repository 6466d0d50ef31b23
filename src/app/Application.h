#pragma once

#include <functional>

#include "watchdog/Watchdog.h"

namespace brindlet {

class AppState;
class QtMainQueue;

/// Shows the window over the session and runs until it is closed. Ends the process: what still
/// runs then, a call of the model perhaps, is abandoned, and nothing is left to be written.
/// `watch` is what the watchdog over the main loop works with; `firstFrame` is called once, when
/// the window shows its first picture.
[[noreturn]] void runApplication(AppState& state, QtMainQueue& queue, const Watchdog::Seams& watch,
                                 const std::function<void()>& firstFrame = {});

/// What holds for every program of ours with a window; after the application object is made.
void prepareToolkit();

}  // namespace brindlet
