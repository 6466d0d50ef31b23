#include "app/demo/Hand.h"

#include <QAccessible>
#include <QCoreApplication>
#include <QDeadlineTimer>
#include <QKeyEvent>
#include <QMouseEvent>
#include <QQuickItem>
#include <QQuickWindow>
#include <QTimer>
#include <algorithm>
#include <cstdio>
#include <vector>

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

void collectNamed(QQuickItem* item, const QString& name, std::vector<QQuickItem*>& found) {
    if (!item->isVisible()) return;
    if (item->objectName() == name) found.push_back(item);
    for (auto* child : item->childItems()) collectNamed(child, name, found);
}

/// Menus and their like stand over the window's own page, and come and go by themselves.
bool menuFades(const QQuickItem& page) {
    for (const auto* layer : page.childItems()) {
        if (!layer->inherits("QQuickOverlay")) continue;
        for (const auto* menu : layer->childItems())
            if (menu->isVisible() && menu->opacity() > 0 && menu->opacity() < 1) return true;
    }
    return false;
}

}  // namespace

QQuickItem* Hand::find(const QString& name) const {
    return findIn(window_.contentItem(), name);
}

QQuickItem* Hand::findEnabled(const QString& name) const {
    std::vector<QQuickItem*> found;
    collectNamed(window_.contentItem(), name, found);
    std::erase_if(found, [](const auto* item) { return !item->isEnabled(); });
    const auto topmost = std::ranges::min_element(
        found, {}, [](const auto* item) { return item->mapToScene(QPointF()).y(); });
    return topmost == found.end() ? nullptr : *topmost;
}

bool Hand::says(QQuickItem& item, const QString& beginning) {
    auto* const spoken = QAccessible::queryAccessibleInterface(&item);
    return spoken && spoken->text(QAccessible::Name).startsWith(beginning);
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

void Hand::pause() const {
    constexpr int doubleClick = 500;
    const QDeadlineTimer over(doubleClick);
    (void)await([&] { return over.hasExpired(); });
}

bool Hand::rest() const {
    bool drawn = false;
    const QObject until;
    QObject::connect(&window_, &QQuickWindow::frameSwapped, &until, [&drawn] { drawn = true; });
    window_.update();
    return await([&] {
        return drawn && window_.property("settled").toBool() && !menuFades(*window_.contentItem());
    });
}

void Hand::mouse(QEvent::Type type, QPointF place, Qt::MouseButton button) const {
    const auto held = type == QEvent::MouseButtonPress ? Qt::MouseButtons(button) : Qt::NoButton;
    QMouseEvent event(type, place, window_.mapToGlobal(place), button, held, Qt::NoModifier);
    QCoreApplication::sendEvent(&window_, &event);
}

void Hand::clickAt(QQuickItem& item, Qt::MouseButton button) const {
    const auto place = item.mapToScene(QPointF(item.width() / 2, item.height() / 2));
    mouse(QEvent::MouseMove, place, Qt::NoButton);
    mouse(QEvent::MouseButtonPress, place, button);
    mouse(QEvent::MouseButtonRelease, place, button);
}

void Hand::pointAt(QQuickItem& item) const {
    reveal(item);
    (void)rest();
    mouse(QEvent::MouseMove, item.mapToScene(QPointF(item.width() / 2, item.height() / 2)),
          Qt::NoButton);
}

bool Hand::clickWhat(const std::function<QQuickItem*()>& look, Qt::MouseButton button) const {
    QQuickItem* item = nullptr;
    const auto there = [&] {
        item = look();
        return item && item->isEnabled();
    };
    // What has only just come gets its place with the next frame.
    if (!await(there) || !rest() || !await(there)) return false;
    reveal(*item);
    if (!rest() || !await(there)) return false;
    clickAt(*item, button);
    return true;
}

bool Hand::click(const QString& name, Qt::MouseButton button) const {
    return clickWhat([&] { return find(name); }, button);
}

bool Hand::clickEnabled(const QString& name) const {
    return clickWhat([&] { return findEnabled(name); });
}

bool Hand::clickRow(const QString& list, int row) const {
    bool placed = false;
    return clickWhat([&] {
        auto* const view = find(list);
        QQuickItem* item = nullptr;
        constexpr int contain = 4;  // as little as it takes to show all of it
        if (view && !placed)
            placed = QMetaObject::invokeMethod(view, "positionViewAtIndex", Q_ARG(int, row),
                                               Q_ARG(int, contain));
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

void Hand::press(Qt::Key key, Qt::KeyboardModifiers modifiers) const {
    for (const auto type : {QEvent::KeyPress, QEvent::KeyRelease}) {
        QKeyEvent event(type, key, modifiers);
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

bool Hand::grab(const QString& path) const {
    return window_.grabWindow().save(path);
}

}  // namespace brindlet::demo
