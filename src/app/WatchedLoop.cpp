#include "app/WatchedLoop.h"

namespace brindlet {

WatchedLoop::WatchedLoop(const Watchdog::Seams& seams) : watchdog_(seams) {
    startTimer(static_cast<int>(Watchdog::beatInterval * 1000));
}

void WatchedLoop::timerEvent(QTimerEvent*) {
    watchdog_.beat();
}

}  // namespace brindlet
