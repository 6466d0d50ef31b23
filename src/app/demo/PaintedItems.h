#pragma once

#include <QRectF>
#include <vector>

class QQuickItem;
class QQuickWindow;

namespace brindlet::demo {

/// One item of a window as it is painted. The item belongs to the window.
struct PaintedItem {
    QQuickItem* item = nullptr;
    /// What it takes up, in the window's coordinates; of a text, what its letters take up.
    QRectF place;
    /// What is left of that within the window and its clipping parents.
    QRectF seen;
    /// Its own and that of all its parents.
    qreal opacity = 1;

    bool isText() const;
    /// A text that can be typed at, which scrolls within itself.
    bool isTextInput() const;
    bool isSymbol() const;
    /// Also a menu and a field: whatever is clicked.
    bool isControl() const;
};

/// All that is to be seen of the window, in the order of painting.
std::vector<PaintedItem> paintedItems(const QQuickWindow& window);

/// Whether what the clipping takes from it, or what floats over it, can be scrolled to.
bool canBeScrolledTo(const PaintedItem& painted);

}  // namespace brindlet::demo
