#include "app/demo/PassingNotice.h"

#include <QQmlComponent>
#include <QQmlEngine>
#include <QQuickItem>
#include <QQuickWindow>

#include "app/MainWindow.h"

namespace brindlet::demo {

PassingNotice::PassingNotice(MainWindow& main) : main_(main) {
    // The window's own engine, whose theme it shares.
    auto* const engine = qmlEngine(main.window());
    QQmlComponent component(engine, QUrl(QStringLiteral("qrc:/demo/PassingNotice.qml")));
    item_.reset(qobject_cast<QQuickItem*>(component.create()));
    if (!item_) qWarning("%s", qPrintable(component.errorString()));
}

PassingNotice::~PassingNotice() = default;

void PassingNotice::show(const QString& text) {
    if (!item_ || !main_.window()) return;
    // A window that was closed has taken its place with it.
    item_->setParentItem(main_.window()->contentItem());
    QMetaObject::invokeMethod(item_.get(), "show", Q_ARG(QString, text));
}

void PassingNotice::clear() {
    if (item_) QMetaObject::invokeMethod(item_.get(), "clear");
}

}  // namespace brindlet::demo
