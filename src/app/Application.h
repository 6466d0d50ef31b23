#pragma once

#include <functional>

namespace brindlet {

class AppState;
class QtMainQueue;

/// Shows the window over the session and runs until it is closed. Ends the process: what still
/// runs then, a call of the model perhaps, is abandoned, and nothing is left to be written.
/// `firstFrame` is called once, when the window shows its first picture.
[[noreturn]] void runApplication(AppState& state, QtMainQueue& queue,
                                 const std::function<void()>& firstFrame = {});

/// What holds for every program of ours with a window; after the application object is made.
void prepareToolkit();

}  // namespace brindlet
