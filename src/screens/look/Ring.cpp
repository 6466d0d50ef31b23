#include "screens/look/Ring.h"

#include <QConicalGradient>
#include <QPainter>
#include <algorithm>
#include <cmath>
#include <numbers>

namespace brindlet::screens {
namespace {

constexpr qreal sliver = 0.005;

}  // namespace

Ring::Ring(QQuickItem* parent) : QQuickPaintedItem(parent) {
    setAntialiasing(true);
}

void Ring::paint(QPainter* painter) {
    painter->setRenderHint(QPainter::Antialiasing);
    const qreal side = std::min(width(), height()) - thickness_;
    const QRectF circle((width() - side) / 2, (height() - side) / 2, side, side);
    painter->setPen(QPen(track_, thickness_));
    painter->drawEllipse(circle);
    if (value_ <= 0) return;

    // A conical gradient runs counter-clockwise from its angle, the ring clockwise.
    const qreal share = std::clamp(value_, sliver, qreal(1));
    QConicalGradient gradient(circle.center(), 90);
    gradient.setColorAt(1, from_);
    gradient.setColorAt(1 - share, to_);
    painter->setPen(QPen(QBrush(gradient), thickness_, Qt::SolidLine, Qt::FlatCap));
    painter->drawArc(circle, 90 * 16, static_cast<int>(std::lround(-share * 360 * 16)));
    if (share <= sliver || share >= 1) return;

    // The round ends are drawn by hand: a pen's own would wrap the gradient at its seam.
    const auto end = [&](qreal at, const QColor& tint) {
        const qreal angle = (at - 0.25) * 2 * std::numbers::pi;
        const QPointF middle =
            circle.center() + QPointF(std::cos(angle), std::sin(angle)) * side / 2;
        painter->setPen(Qt::NoPen);
        painter->setBrush(tint);
        painter->drawEllipse(middle, thickness_ / 2, thickness_ / 2);
    };
    end(0, from_);
    end(share, to_);
}

void Ring::setValue(qreal value) {
    if (value == value_) return;
    value_ = value;
    Q_EMIT valueChanged();
    update();
}

template <class T>
void Ring::setLook(T& field, const T& value) {
    if (field == value) return;
    field = value;
    Q_EMIT lookChanged();
    update();
}

void Ring::setThickness(qreal thickness) {
    setLook(thickness_, thickness);
}

void Ring::setTrack(const QColor& track) {
    setLook(track_, track);
}

void Ring::setFrom(const QColor& from) {
    setLook(from_, from);
}

void Ring::setTo(const QColor& to) {
    setLook(to_, to);
}

}  // namespace brindlet::screens
