#include "screens/look/ImageUrls.h"

namespace brindlet::screens {
namespace {

QUrl coloured(const QString& address, const QColor& colour) {
    const auto form = colour.alpha() == 255 ? QColor::HexRgb : QColor::HexArgb;
    return QUrl(address + QLatin1Char('?') + colour.name(form));
}

}  // namespace

QUrl ImageUrls::symbol(const QString& name, const QColor& colour) {
    if (name.isEmpty()) return {};
    return coloured(QStringLiteral("image://symbol/") + name, colour);
}

QUrl ImageUrls::glow(const QColor& tint) {
    return coloured(QStringLiteral("image://paint/glow"), tint);
}

QUrl ImageUrls::shadow(int radius, int blur, const QColor& colour) {
    return coloured(QStringLiteral("image://paint/shadow/%1/%2").arg(radius).arg(blur), colour);
}

}  // namespace brindlet::screens
