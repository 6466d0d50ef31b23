#pragma once

#include <QQmlApplicationEngine>
#include <QStringList>

#include "screens/AppModel.h"

class QQuickWindow;

namespace brindlet {

class AppState;
class Appearance;

/// The window over one session. Main thread; the session outlives it.
class MainWindow {
  public:
    explicit MainWindow(AppState& state);

    /// Shows the window; false when it cannot be made.
    bool show();

    /// Looks as the desktop wishes, from now on; `appearance` outlives the window.
    void follow(const Appearance& appearance);

    screens::AppModel& model() { return model_; }
    /// Null before `show`.
    QQuickWindow* window() const { return window_; }
    /// What the toolkit complained of while it built the screens.
    const QStringList& warnings() const { return warnings_; }

  private:
    screens::AppModel model_;
    QStringList warnings_;
    QQmlApplicationEngine engine_;
    QQuickWindow* window_ = nullptr;
};

}  // namespace brindlet
