#include "screens/look/GradientFill.h"

#include <QLinearGradient>
#include <QPainter>

namespace brindlet::screens {

GradientFill::GradientFill(QQuickItem* parent) : QQuickPaintedItem(parent) {
    setAntialiasing(true);
}

void GradientFill::paint(QPainter* painter) {
    painter->setRenderHint(QPainter::Antialiasing);
    QLinearGradient gradient(0, 0, width(), slanted_ ? height() : 0);
    gradient.setColorAt(0, from_);
    gradient.setColorAt(1, to_);
    painter->setPen(Qt::NoPen);
    painter->setBrush(gradient);
    painter->drawRoundedRect(QRectF(0, 0, width(), height()), radius_, radius_);
}

template <class T>
void GradientFill::setLook(T& field, const T& value) {
    if (field == value) return;
    field = value;
    Q_EMIT lookChanged();
    update();
}

void GradientFill::setRadius(qreal radius) {
    setLook(radius_, radius);
}

void GradientFill::setSlanted(bool slanted) {
    setLook(slanted_, slanted);
}

void GradientFill::setFrom(const QColor& from) {
    setLook(from_, from);
}

void GradientFill::setTo(const QColor& to) {
    setLook(to_, to);
}

}  // namespace brindlet::screens
