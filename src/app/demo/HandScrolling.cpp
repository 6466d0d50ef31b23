#include <QQuickItem>
#include <QQuickWindow>
#include <algorithm>
#include <vector>

#include "app/demo/Hand.h"

namespace brindlet::demo {
namespace {

bool scrolls(const QQuickItem* item) {
    return item->inherits("QQuickFlickable");
}

/// How far a thing that scrolls can be scrolled.
struct Range {
    explicit Range(const QQuickItem& item)
        : top(item.property("originY").toReal() - item.property("topMargin").toReal()),
          bottom(std::max(top, item.property("originY").toReal() +
                                   item.property("contentHeight").toReal() +
                                   item.property("bottomMargin").toReal() - item.height())) {}

    qreal top;
    qreal bottom;
};

void scrollTo(QQuickItem& item, qreal place) {
    const Range range(item);
    item.setProperty("contentY", std::clamp(place, range.top, range.bottom));
}

/// Those that scroll, the outer ones first.
void collect(QQuickItem* item, std::vector<QQuickItem*>& found) {
    if (!item->isVisible()) return;
    if (scrolls(item)) found.push_back(item);
    for (auto* child : item->childItems()) collect(child, found);
}

}  // namespace

bool Hand::standsAtRest() const {
    for (const auto* layer : window_.contentItem()->childItems())
        if (layer->inherits("QQuickOverlay") && layer->isVisible() && !layer->childItems().empty())
            return false;
    std::vector<QQuickItem*> all;
    collect(window_.contentItem(), all);
    return std::ranges::all_of(all, [](const auto* each) {
        return each->property("contentY").toReal() <= Range(*each).top;
    });
}

void Hand::reveal(QQuickItem& item) const {
    // The innermost first: what it moves, the outer ones have to follow.
    for (auto* up = item.parentItem(); up; up = up->parentItem()) {
        if (!scrolls(up)) continue;
        const auto place = item.mapRectToItem(up, QRectF(0, 0, item.width(), item.height()));
        // What floats over the foot of a page would take the click.
        const qreal foot = up->height() - up->property("covered").toReal();
        const qreal margin = std::clamp((foot - place.height()) / 2, 0.0, 24.0);
        const qreal at = up->property("contentY").toReal();
        if (place.top() < 0)
            scrollTo(*up, at + place.top() - margin);
        else if (place.bottom() > foot)
            scrollTo(*up, at + place.bottom() - foot + margin);
    }
}

bool Hand::seek(const std::function<bool()>& found) const {
    std::vector<QQuickItem*> all;
    collect(window_.contentItem(), all);
    for (auto* each : all) {
        const qreal before = each->property("contentY").toReal();
        reveal(*each);
        for (qreal place = Range(*each).top; place < Range(*each).bottom + each->height();
             place += std::max(40.0, each->height() * 0.7)) {
            scrollTo(*each, place);
            if (!rest()) return false;
            if (found()) return true;
        }
        scrollTo(*each, before);
    }
    (void)rest();
    return false;
}

}  // namespace brindlet::demo
