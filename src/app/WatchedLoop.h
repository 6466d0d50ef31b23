#pragma once

#include <QObject>

#include "watchdog/Watchdog.h"

namespace brindlet {

/// A watchdog over the toolkit's main loop, which beats for as long as the loop goes round, in a
/// menu's or a slider's own loop too. Main thread.
class WatchedLoop : public QObject {
  public:
    explicit WatchedLoop(const Watchdog::Seams& seams);

  protected:
    void timerEvent(QTimerEvent* event) override;

  private:
    Watchdog watchdog_;
};

}  // namespace brindlet
