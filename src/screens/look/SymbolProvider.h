#pragma once

#include <QQuickImageProvider>

namespace brindlet::screens {

/// "image://symbol/<name>?<#aarrggbb>": one of our own symbols in one colour. An unknown name gives
/// an empty image and a warning.
class SymbolProvider : public QQuickImageProvider {
  public:
    SymbolProvider() : QQuickImageProvider(QQuickImageProvider::Image) {}

    QImage requestImage(const QString& id, QSize* size, const QSize& requested) override;

    static QImage render(const QString& name, const QColor& colour, int pixels);
};

}  // namespace brindlet::screens
