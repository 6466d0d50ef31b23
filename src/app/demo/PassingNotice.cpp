#include "app/demo/PassingNotice.h"

#include <QQmlComponent>
#include <QQmlEngine>
#include <QQuickItem>
#include <QQuickWindow>

namespace brindlet::demo {

PassingNotice::PassingNotice(QQuickWindow& window) {
    // The window's own engine, whose theme it shares.
    auto* const engine = qmlEngine(&window);
    QQmlComponent component(engine, QUrl(QStringLiteral("qrc:/demo/PassingNotice.qml")));
    item_.reset(qobject_cast<QQuickItem*>(component.create()));
    if (!item_) {
        qWarning("%s", qPrintable(component.errorString()));
        return;
    }
    item_->setParentItem(window.contentItem());
}

PassingNotice::~PassingNotice() = default;

void PassingNotice::show(const QString& text) {
    if (item_) QMetaObject::invokeMethod(item_.get(), "show", Q_ARG(QString, text));
}

void PassingNotice::clear() {
    if (item_) QMetaObject::invokeMethod(item_.get(), "clear");
}

}  // namespace brindlet::demo
