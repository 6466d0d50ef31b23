#include "screens/look/InputWatch.h"

#include <QEvent>

namespace brindlet::screens {

void InputWatch::setWindow(QQuickWindow* window) {
    if (window == window_) return;
    if (window_) window_->removeEventFilter(this);
    window_ = window;
    if (window_) window_->installEventFilter(this);
    Q_EMIT windowChanged();
}

bool InputWatch::eventFilter(QObject* watched, QEvent* event) {
    const auto type = event->type();
    if (type == QEvent::KeyPress)
        setKeyboardLeads(true);
    else if (type == QEvent::MouseButtonPress || type == QEvent::TouchBegin)
        setKeyboardLeads(false);
    else if (type != QEvent::Wheel)
        return QObject::eventFilter(watched, event);
    Q_EMIT used();
    return QObject::eventFilter(watched, event);
}

void InputWatch::setKeyboardLeads(bool leads) {
    if (leads == keyboardLeads_) return;
    keyboardLeads_ = leads;
    Q_EMIT keyboardLeadsChanged();
}

}  // namespace brindlet::screens
