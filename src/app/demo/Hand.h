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
    /// Of several things of that name the topmost that can be used.
    QQuickItem* findEnabled(const QString& name) const;
    /// Whether a screen reader is told a name of it that begins so.
    static bool says(QQuickItem& item, const QString& beginning);
    /// Lets the program run until the condition holds; false after a minute.
    bool await(const std::function<bool()>& condition) const;
    /// Until no screen moves, and all of it stands where it belongs.
    bool rest() const;

    /// As long as a person's double click may take: what swaps its buttons ignores a click until
    /// then.
    void pause() const;

    /// Each waits for the thing first; false when it does not come.
    bool click(const QString& name, Qt::MouseButton button = Qt::LeftButton) const;
    bool clickEnabled(const QString& name) const;
    /// A row of a list, counted from 0, that is on show.
    bool clickRow(const QString& list, int row) const;
    /// Rests the pointer on the thing, which need not have a name.
    void pointAt(QQuickItem& item) const;
    /// Tab until the thing has the keyboard, then the key.
    bool tabTo(const QString& name) const;

    void press(Qt::Key key, Qt::KeyboardModifiers modifiers = Qt::NoModifier) const;
    void type(const QString& text) const;
    /// With the pointer out of the way, when all has come to rest. False also when the picture has
    /// a fault, which is said on standard output.
    bool picture(const QString& path) const;
    /// As it stands.
    bool grab(const QString& path) const;

    /// Nothing was scrolled, and no menu stands.
    bool standsAtRest() const;
    /// Scrolls until the thing stands in sight.
    void reveal(QQuickItem& item) const;
    /// Scrolls through all that can be scrolled until it is so; false, with all as it was, when it
    /// never is.
    bool seek(const std::function<bool()>& found) const;

  private:
    void mouse(QEvent::Type type, QPointF place, Qt::MouseButton button) const;
    void clickAt(QQuickItem& item, Qt::MouseButton button) const;
    bool clickWhat(const std::function<QQuickItem*()>& look,
                   Qt::MouseButton button = Qt::LeftButton) const;

    QQuickWindow& window_;
};

}  // namespace brindlet::demo
