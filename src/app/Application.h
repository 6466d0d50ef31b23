#pragma once

#include <functional>
#include <optional>

#include "watchdog/Watchdog.h"

namespace brindlet {

class AppState;
class QtMainQueue;
class SingleInstance;
class Updates;

/// What a program does when it may not be the only one: shows the one that is there and gives the
/// code to end with, or nothing when it is to go on itself.
std::optional<int> giveWay(SingleInstance& instance);

/// What holds for every program of ours with a window; after the application object is made.
void prepareToolkit();

/// What the program is run over.
struct ApplicationParts {
    AppState& state;
    QtMainQueue& queue;
    Updates& updates;
    SingleInstance& instance;
    Watchdog::Seams watch;
};

/// Runs the program until it is told to quit, with its window or without. Ends the process: what
/// still runs then, a call of the model perhaps, is abandoned, and nothing is left to be written.
/// `firstFrame` is called once, when the window shows its first picture.
[[noreturn]] void runApplication(const ApplicationParts& parts,
                                 const std::function<void()>& firstFrame = {});

}  // namespace brindlet
