#include "app/demo/PictureCheck.h"

#include <QFont>
#include <QHash>
#include <QImage>
#include <QQuickItem>
#include <QQuickWindow>
#include <algorithm>
#include <cmath>
#include <vector>

#include "app/demo/Contrast.h"
#include "app/demo/PaintedItems.h"

namespace brindlet::demo {
namespace {

constexpr double leastTextContrast = 4.5;
constexpr double leastSymbolContrast = 3;
constexpr double mostOfOneColour = 0.95;
constexpr int fewestColours = 32;

QString wordsOf(const PaintedItem& painted) {
    return painted.item->property(painted.isTextInput() ? "displayText" : "text").toString();
}

/// “What it says”, and the named things that it lies in.
QString named(const PaintedItem& painted) {
    QStringList path;
    for (const auto* up = painted.item; up; up = up->parentItem())
        if (!up->objectName().isEmpty()) path.prepend(up->objectName());
    const auto words = painted.isSymbol() ? painted.item->property("symbol").toString()
                                          : wordsOf(painted).left(60);
    return QStringLiteral("“%1” (%2)").arg(words, path.join(QStringLiteral(" > ")));
}

/// A help of a control that the text belongs to, itself among them, with all of its words.
bool offersTheWhole(const PaintedItem& text) {
    for (QQuickItem* up = text.item; up; up = up->parentItem())
        for (const auto* part : up->children())
            if (part->property("control").value<QQuickItem*>() == up &&
                part->property("text").toString().contains(wordsOf(text)))
                return true;
    return false;
}

/// A row that cannot be chosen says so by a property: its list still has it to walk over.
bool canBeUsed(const PaintedItem& painted) {
    if (!painted.item->isEnabled()) return false;
    for (const QQuickItem* up = painted.item; up; up = up->parentItem())
        if (const auto selectable = up->property("selectable"); selectable.isValid())
            return selectable.toBool();
    return true;
}

class Check {
  public:
    Check(const QQuickWindow& window, const QImage& picture)
        : picture_(picture),
          frame_(0, 0, window.width(), window.height()),
          scale_(picture.width() / frame_.width()),
          painted_(paintedItems(window)) {}

    QStringList faults() {
        checkEmptiness();
        std::vector<const PaintedItem*> texts;
        for (std::size_t i = 0; i < painted_.size(); ++i) {
            const auto& one = painted_[i];
            const bool text = one.isText() && !wordsOf(one).isEmpty();
            if (!text && !one.isControl() && !one.isSymbol()) continue;
            if (isVeiled(i)) continue;
            const auto over = floatingOver(i);
            if (std::ranges::any_of(over,
                                    [&](const auto& place) { return place.contains(one.seen); }))
                continue;
            if (text) texts.push_back(&one);
            const bool whole = over.empty() && isWithinItsFrame(one);
            if ((text || one.isControl()) && !whole && !canBeScrolledTo(one))
                tell(one, "is cut off");
            if (whole) checkLegibility(one);
        }
        for (std::size_t i = 0; i < texts.size(); ++i) {
            if (texts[i]->item->property("truncated").toBool() && !offersTheWhole(*texts[i]))
                tell(*texts[i], "is cut short, and nothing offers the whole of it");
            for (std::size_t j = 0; j < i; ++j)
                if (!(inner(texts[i]->seen) & inner(texts[j]->seen)).isEmpty())
                    tell(*texts[i], "overlaps " + named(*texts[j]).toStdString());
        }
        return faults_;
    }

  private:
    /// Without the edge that letters hardly ever reach.
    static QRectF inner(const QRectF& place) { return place.adjusted(1, 2, -1, -2); }

    void tell(const PaintedItem& painted, const std::string& fault) {
        faults_ << named(painted) + QLatin1Char(' ') + QString::fromStdString(fault);
    }

    void checkEmptiness() {
        QHash<QRgb, int> colours;
        for (int y = 0; y < picture_.height(); ++y)
            for (int x = 0; x < picture_.width(); ++x) ++colours[picture_.pixel(x, y)];
        const int most = colours.isEmpty() ? 0 : *std::max_element(colours.begin(), colours.end());
        if (colours.size() < fewestColours ||
            most > mostOfOneColour * picture_.width() * picture_.height())
            faults_ << QStringLiteral("the picture is empty: %1 colours").arg(colours.size());
    }

    /// Under something that dims the whole window.
    bool isVeiled(std::size_t which) const {
        return std::any_of(painted_.begin() + static_cast<std::ptrdiff_t>(which) + 1,
                           painted_.end(), [this](const PaintedItem& later) {
                               return strength(later) > 0 && strength(later) < 1 &&
                                      later.seen.contains(frame_);
                           });
    }

    /// The opaque faces of others that are painted over a part of it later.
    std::vector<QRectF> floatingOver(std::size_t which) const {
        const auto& one = painted_[which];
        std::vector<QRectF> over;
        for (auto i = which + 1; i < painted_.size(); ++i)
            if (const auto& later = painted_[i]; strength(later) >= 1 &&
                                                 !(later.seen & inner(one.seen)).isEmpty() &&
                                                 !one.item->isAncestorOf(later.item))
                over.push_back(later.seen);
        return over;
    }

    /// How much a face hides; 0 of what is none.
    static qreal strength(const PaintedItem& painted) {
        if (!painted.item->inherits("QQuickRectangle")) return 0;
        return painted.item->property("color").value<QColor>().alphaF() * painted.opacity;
    }

    static bool isWithinItsFrame(const PaintedItem& painted) {
        return std::max(painted.place.width() - painted.seen.width(),
                        painted.place.height() - painted.seen.height()) <= 1;
    }

    QRect inPicture(const QRectF& place) const {
        return QRectF(place.topLeft() * scale_, place.size() * scale_).toAlignedRect();
    }

    void checkLegibility(const PaintedItem& painted) {
        if (!canBeUsed(painted)) return;
        const auto ink = painted.item->property("color").value<QColor>();
        const auto part = inPicture(painted.seen);
        const auto told = [](double ratio) { return QString::number(ratio, 'f', 2).toStdString(); };
        if (painted.isSymbol()) {
            const auto ground = commonestAround(picture_, part);
            const double ratio = contrast(laidOver(ground, ink, painted.opacity), ground);
            if (ratio < leastSymbolContrast)
                tell(painted, "has a contrast of " + told(ratio) + " to 1");
            return;
        }
        if (wordsOf(painted).isEmpty() || (!painted.isText() && !painted.isTextInput())) return;
        // Piece by piece: it may stand on more than one ground.
        const int most = std::max(
            1, static_cast<int>(3 * scale_ *
                                painted.item->property("font").value<QFont>().pixelSize()));
        const int pieces = std::max(1, part.width() / most);
        double least = 21;
        bool seen = false;
        for (int i = 0; i < pieces; ++i) {
            const int from = part.left() + part.width() * i / pieces;
            const int to = part.left() + part.width() * (i + 1) / pieces;
            const QRect piece(from, part.top(), to - from, part.height());
            const auto ground = commonest(picture_, piece);
            const double ratio = contrast(laidOver(ground, ink, painted.opacity), ground);
            least = std::min(least, ratio);
            seen = seen || strongest(picture_, piece, ground) > 1 + (ratio - 1) / 3;
        }
        if (least < leastTextContrast)
            tell(painted, "has a contrast of " + told(least) + " to 1");
        else if (!seen)
            tell(painted, "is not to be seen");
    }

    const QImage& picture_;
    const QRectF frame_;
    const qreal scale_;
    const std::vector<PaintedItem> painted_;
    QStringList faults_;
};

}  // namespace

QStringList pictureFaults(const QQuickWindow& window, const QImage& picture) {
    return Check(window, picture).faults();
}

}  // namespace brindlet::demo
