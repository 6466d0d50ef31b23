#pragma once

#include <QQmlEngine>
#include <QRect>
#include <QStringList>
#include <QWindow>

#include "screens/AppModel.h"
#include "screens/commands/CommandsModel.h"

class QQuickWindow;

namespace brindlet {

class AppState;
class Appearance;
class Updater;

/// The window over one session. Closing it ends all that was built for it; the next one comes at
/// the same place, at the screen that the session has come to meanwhile. Main thread; the session
/// and the updater outlive it.
class MainWindow : public QObject {
    Q_OBJECT

  public:
    MainWindow(AppState& state, Updater& updater);
    ~MainWindow() override;

    /// Shows the window, in front of others; false when it cannot be made.
    bool show();

    /// Looks as the desktop wishes, from now on; `appearance` outlives the window.
    void follow(const Appearance& appearance);

    screens::AppModel& model() { return model_; }
    screens::CommandsModel& commands() { return commands_; }
    /// Null before `show` and while it is closed.
    QQuickWindow* window() const { return window_; }
    /// What the toolkit complained of while it built the screens.
    const QStringList& warnings() const { return warnings_; }

    bool eventFilter(QObject* watched, QEvent* event) override;

  Q_SIGNALS:
    /// By its keys, the menu's command, or a screen that cannot go on.
    void quitAsked();

  private:
    bool make();
    void leave();

    screens::AppModel model_;
    screens::CommandsModel commands_;
    QStringList warnings_;
    QQmlEngine engine_;
    QQuickWindow* window_ = nullptr;
    /// Where the last one stood; empty before there was one.
    QRect place_;
    Qt::WindowStates states_;
};

}  // namespace brindlet
