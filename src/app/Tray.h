#pragma once

#include <QDBusServiceWatcher>
#include <QObject>
#include <QSystemTrayIcon>
#include <memory>
#include <string>

#include "app/TrayMenu.h"
#include "screens/Coalescer.h"

namespace brindlet {

class AppState;

/// The program in the desktop's tray: a symbol and a menu, which follow the session. Comes as soon
/// as the session bus has a host for such things, be it long after the start; on a desktop without
/// one it never does. Main thread; the session outlives it.
class Tray : public QObject {
    Q_OBJECT

  public:
    explicit Tray(AppState& state);

  Q_SIGNALS:
    void openAsked();
    void quitAsked();

  private Q_SLOTS:
    void lookForHost();

  private:
    void obey(MenuLine::Command command);
    void appear();
    void refresh();

    AppState& state_;
    QDBusServiceWatcher watcher_;
    std::unique_ptr<TrayMenu> menu_;
    /// None before there is a host.
    std::unique_ptr<QSystemTrayIcon> icon_;
    std::string symbol_;
    screens::Coalescer coalescer_;
};

}  // namespace brindlet
