#pragma once

#include <QEvent>
#include <QPointF>
#include <QString>
#include <functional>

class QQuickItem;
class QQuickWindow;

namespace brindlet::demo {

/// Uses a window as a person does: finds things by name, clicks, types, waits until something is
/// so. Things are named by their object's name.
class Hand {
  public:
    explicit Hand(QQuickWindow& window) : window_(window) {}

    /// The visible thing of that name; null when there is none.
    QQuickItem* find(const QString& name) const;
    /// Lets the program run until the condition holds; false after a minute.
    bool await(const std::function<bool()>& condition) const;
    /// Until no screen moves, and all of it stands where it belongs.
    bool rest() const;

    /// Each waits for the thing first; false when it does not come.
    bool click(const QString& name) const;
    /// A row of a list, counted from 0, that is on show.
    bool clickRow(const QString& list, int row) const;
    /// Tab until the thing has the keyboard, then the key.
    bool tabTo(const QString& name) const;

    void press(Qt::Key key) const;
    void type(const QString& text) const;
    /// With the pointer out of the way. False also when the picture has a fault, which is said on
    /// standard output.
    bool picture(const QString& path) const;

  private:
    void mouse(QEvent::Type type, QPointF place, Qt::MouseButton button) const;
    void clickAt(QQuickItem& item) const;
    bool clickWhat(const std::function<QQuickItem*()>& look) const;

    QQuickWindow& window_;
};

}  // namespace brindlet::demo
