#include "app/demo/PaintedItems.h"

#include <QQuickItem>
#include <QQuickWindow>
#include <algorithm>

namespace brindlet::demo {
namespace {

constexpr qreal leastOpacity = 0.03;

/// Where a free length goes: nothing of it before what is left or at the top, half when centred.
qreal offset(qreal freeLength, bool atEnd, bool centred) {
    return atEnd ? freeLength : centred ? freeLength / 2 : 0;
}

/// What the letters take up within their item.
QRectF lettersOf(const QQuickItem& text) {
    const auto number = [&](const char* name) { return text.property(name).toReal(); };
    const QRectF box(number("leftPadding"), number("topPadding"),
                     text.width() - number("leftPadding") - number("rightPadding"),
                     text.height() - number("topPadding") - number("bottomPadding"));
    const auto across = text.property("effectiveHorizontalAlignment").toInt();
    const auto down = text.property("verticalAlignment").toInt();
    const QSizeF size(number("contentWidth"), number("contentHeight"));
    return {QPointF(box.x() + offset(box.width() - size.width(), across == Qt::AlignRight,
                                     across == Qt::AlignHCenter),
                    box.y() + offset(box.height() - size.height(), down == Qt::AlignBottom,
                                     down == Qt::AlignVCenter)),
            size};
}

/// A row that a list keeps to use again is not painted, though nothing on it says so.
bool isKeptForLater(QQuickItem& item) {
    auto* const view = item.parentItem() ? item.parentItem()->parentItem() : nullptr;
    const auto index = item.property("index");
    if (!view || !view->inherits("QQuickItemView") || !index.isValid()) return false;
    QQuickItem* shown = nullptr;
    QMetaObject::invokeMethod(view, "itemAtIndex", Q_RETURN_ARG(QQuickItem*, shown),
                              Q_ARG(int, index.toInt()));
    return shown != &item;
}

void gather(QQuickItem& item, QRectF clip, qreal opacity, std::vector<PaintedItem>& all) {
    if (!item.isVisible() || (opacity *= item.opacity()) < leastOpacity || isKeptForLater(item))
        return;
    const auto box = QRectF(0, 0, item.width(), item.height());
    PaintedItem painted{&item, {}, {}, opacity};
    painted.place = item.mapRectToScene(painted.isText() ? lettersOf(item) : box);
    painted.seen = painted.place & clip;
    if (item.clip()) clip &= item.mapRectToScene(item.clipRect());
    auto children = item.childItems();
    std::stable_sort(children.begin(), children.end(),
                     [](const auto* one, const auto* other) { return one->z() < other->z(); });
    const auto above = std::find_if(children.begin(), children.end(),
                                    [](const auto* child) { return child->z() >= 0; });
    std::for_each(children.begin(), above,
                  [&](auto* child) { gather(*child, clip, opacity, all); });
    if (!painted.seen.isEmpty()) all.push_back(painted);
    std::for_each(above, children.end(), [&](auto* child) { gather(*child, clip, opacity, all); });
}

}  // namespace

// By the names of the toolkit's classes, whose headers are its own affair.

bool PaintedItem::isText() const {
    return item->inherits("QQuickText");
}

bool PaintedItem::isTextInput() const {
    return item->inherits("QQuickTextInput");
}

bool PaintedItem::isSymbol() const {
    return item->inherits("QQuickImage") && !item->property("symbol").toString().isEmpty();
}

bool PaintedItem::isControl() const {
    return item->inherits("QQuickAbstractButton") || item->inherits("QQuickComboBox") ||
           isTextInput();
}

std::vector<PaintedItem> paintedItems(const QQuickWindow& window) {
    std::vector<PaintedItem> all;
    gather(*window.contentItem(), QRectF(0, 0, window.width(), window.height()), 1, all);
    return all;
}

bool canBeScrolledTo(const PaintedItem& painted) {
    for (const auto* up = painted.item->parentItem(); up; up = up->parentItem()) {
        if (!up->inherits("QQuickFlickable")) continue;
        const auto number = [&](const char* name) { return up->property(name).toReal(); };
        if (number("topMargin") + number("contentHeight") + number("bottomMargin") <= up->height())
            continue;
        // It scrolls up and down: nothing may be missing at the sides.
        const auto sides = up->mapRectToScene(QRectF(0, 0, up->width(), up->height()));
        if (painted.place.left() >= sides.left() - 1 && painted.place.right() <= sides.right() + 1)
            return true;
    }
    return false;
}

}  // namespace brindlet::demo
