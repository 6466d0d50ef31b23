#include "app/demo/Hand.h"

#include <QCoreApplication>
#include <QDeadlineTimer>
#include <QKeyEvent>
#include <QMouseEvent>
#include <QQuickItem>
#include <QQuickWindow>
#include <QTimer>
#include <cstdio>

#include "app/demo/PictureCheck.h"

namespace brindlet::demo {
namespace {

constexpr int patience = 60'000;
constexpr int mostTabs = 60;

QQuickItem* findIn(QQuickItem* item, const QString& name) {
    if (!item->isVisible()) return nullptr;
    if (item->objectName() == name) return item;
    for (auto* child : item->childItems())
        if (auto* found = findIn(child, name)) return found;
    return nullptr;
}

}  // namespace

QQuickItem* Hand::find(const QString& name) const {
    return findIn(window_.contentItem(), name);
}

bool Hand::await(const std::function<bool()>& condition) const {
    // Wakes the loop, so that a condition which nothing announces is looked at as well.
    QTimer alarm;
    alarm.start(15);
    const QDeadlineTimer deadline(patience);
    while (!condition()) {
        if (deadline.hasExpired()) return false;
        QCoreApplication::processEvents(QEventLoop::WaitForMoreEvents);
    }
    return true;
}

bool Hand::rest() const {
    bool drawn = false;
    const QObject until;
    QObject::connect(&window_, &QQuickWindow::frameSwapped, &until, [&drawn] { drawn = true; });
    window_.update();
    return await([&] { return drawn && window_.property("settled").toBool(); });
}

void Hand::mouse(QEvent::Type type, QPointF place, Qt::MouseButton button) const {
    const auto held = type == QEvent::MouseButtonPress ? Qt::MouseButtons(button) : Qt::NoButton;
    QMouseEvent event(type, place, window_.mapToGlobal(place), button, held, Qt::NoModifier);
    QCoreApplication::sendEvent(&window_, &event);
}

void Hand::clickAt(QQuickItem& item) const {
    const auto place = item.mapToScene(QPointF(item.width() / 2, item.height() / 2));
    mouse(QEvent::MouseMove, place, Qt::NoButton);
    mouse(QEvent::MouseButtonPress, place, Qt::LeftButton);
    mouse(QEvent::MouseButtonRelease, place, Qt::LeftButton);
}

bool Hand::clickWhat(const std::function<QQuickItem*()>& look) const {
    QQuickItem* item = nullptr;
    const auto there = [&] {
        item = look();
        return item && item->isEnabled();
    };
    // What has only just come gets its place with the next frame.
    if (!await(there) || !rest() || !await(there)) return false;
    clickAt(*item);
    return true;
}

bool Hand::click(const QString& name) const {
    return clickWhat([&] { return find(name); });
}

bool Hand::clickRow(const QString& list, int row) const {
    return clickWhat([&] {
        auto* const view = find(list);
        QQuickItem* item = nullptr;
        if (view)
            QMetaObject::invokeMethod(view, "itemAtIndex", Q_RETURN_ARG(QQuickItem*, item),
                                      Q_ARG(int, row));
        return item;
    });
}

bool Hand::tabTo(const QString& name) const {
    if (!rest()) return false;
    for (int i = 0; i < mostTabs; ++i) {
        const auto* item = find(name);
        if (item && item->hasActiveFocus()) return true;
        press(Qt::Key_Tab);
    }
    return false;
}

void Hand::press(Qt::Key key) const {
    for (const auto type : {QEvent::KeyPress, QEvent::KeyRelease}) {
        QKeyEvent event(type, key, Qt::NoModifier);
        QCoreApplication::sendEvent(&window_, &event);
    }
}

void Hand::type(const QString& text) const {
    for (const QChar& letter : text)
        for (const auto type : {QEvent::KeyPress, QEvent::KeyRelease}) {
            QKeyEvent event(type, 0, Qt::NoModifier, letter);
            QCoreApplication::sendEvent(&window_, &event);
        }
}

bool Hand::picture(const QString& path) const {
    mouse(QEvent::MouseMove, QPointF(1, 1), Qt::NoButton);
    if (!rest()) return false;
    const auto taken = window_.grabWindow();
    const auto faults = pictureFaults(window_, taken);
    for (const auto& fault : faults) std::printf("   %s\n", qPrintable(fault));
    return taken.save(path) && faults.isEmpty();
}

}  // namespace brindlet::demo
