#pragma once

#include <QtQml/qqmlregistration.h>
#include <QColor>
#include <QObject>
#include <QUrl>

namespace brindlet::screens {

/// The addresses of our painted images, which carry a colour. They are put together here and not
/// in the bindings: where Qt 6.4 compiles a binding that turns a colour into text, the garbage
/// collector may take the colour away meanwhile, and the program crashes.
class ImageUrls : public QObject {
    Q_OBJECT
    QML_ELEMENT
    QML_SINGLETON

  public:
    /// Empty for no symbol.
    Q_INVOKABLE static QUrl symbol(const QString& name, const QColor& colour);
    Q_INVOKABLE static QUrl glow(const QColor& tint);
    Q_INVOKABLE static QUrl shadow(int radius, int blur, const QColor& colour);
};

}  // namespace brindlet::screens
