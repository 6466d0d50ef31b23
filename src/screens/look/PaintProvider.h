#pragma once

#include <QQuickImageProvider>

namespace brindlet::screens {

/// Soft lights and shadows as images, since the software renderer has no effects:
/// "image://paint/glow?<#aarrggbb>" is a round light that fades to nothing at the edge;
/// "image://paint/shadow/<radius>/<blur>?<#aarrggbb>" is the blurred rounded square for a
/// BorderImage whose borders are radius + 2 * blur.
class PaintProvider : public QQuickImageProvider {
  public:
    PaintProvider() : QQuickImageProvider(QQuickImageProvider::Image) {}

    QImage requestImage(const QString& id, QSize* size, const QSize& requested) override;

    static QImage glow(const QColor& colour, int pixels);
    static QImage shadow(const QColor& colour, int radius, int blur);
};

}  // namespace brindlet::screens
