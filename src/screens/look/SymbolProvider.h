#pragma once

#include <QQuickImageProvider>

namespace brindlet::screens {

/// "image://symbol/<name>?<#aarrggbb>": one of our own symbols in one colour. An unknown name gives
/// an empty image and a warning.
class SymbolProvider : public QQuickImageProvider {
  public:
    SymbolProvider() : QQuickImageProvider(QQuickImageProvider::Image) {}

    QImage requestImage(const QString& id, QSize* size, const QSize& requested) override;

    /// `weight` is the width of the lines in the symbols' own units, of which a picture is 24 wide
    /// and high.
    static QImage render(const QString& name, const QColor& colour, int pixels,
                         double weight = usualWeight);

    static constexpr double usualWeight = 1.7;
};

}  // namespace brindlet::screens
