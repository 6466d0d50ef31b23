#pragma once

#include <QObject>
#include <memory>

#include "app/MainWindow.h"
#include "app/Tray.h"
#include "session/Updater.h"
#include "watchdog/Watchdog.h"

namespace brindlet {

class AppState;
class SingleInstance;
class Updates;
class WatchedLoop;

/// The running program around one session: a window that comes and goes, the tray, and what goes
/// on for as long as the process lives, with a window or without. It ends by a command alone.
/// Main thread; all that it is given outlives it.
class Shell : public QObject {
  public:
    Shell(AppState& state, Updates& updates, SingleInstance& instance);
    ~Shell() override;

    /// Shows the window and begins what a start begins; false when the window cannot be made.
    bool start(const Watchdog::Seams& watch);

    MainWindow& main() { return main_; }

  private:
    void raise(const QByteArray& activationToken);

    AppState& state_;
    SingleInstance& instance_;
    Updater updater_;
    MainWindow main_;
    Tray tray_;
    std::unique_ptr<WatchedLoop> watched_;
};

}  // namespace brindlet
