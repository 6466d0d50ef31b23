#pragma once

#include <QObject>
#include <QString>
#include <memory>

class QQuickItem;

namespace brindlet {
class MainWindow;
}

namespace brindlet::demo {

/// A small word over the demo's window that goes by itself: what the demo does instead of what the
/// program asked the desktop for. Stands over the program's own screens, and is none of theirs.
/// Without a window it says nothing. Main thread; goes before the window's keeper, which has shown
/// it once.
class PassingNotice {
  public:
    explicit PassingNotice(MainWindow& main);
    ~PassingNotice();

    /// In place of the last one, if that still stands.
    void show(const QString& text);
    /// At once.
    void clear();

  private:
    MainWindow& main_;
    std::unique_ptr<QQuickItem> item_;
};

}  // namespace brindlet::demo
