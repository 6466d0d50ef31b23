#include "app/demo/Contrast.h"

#include <QHash>
#include <algorithm>
#include <cmath>

namespace brindlet::demo {
namespace {

double luminance(const QColor& color) {
    const auto linear = [](double channel) {
        return channel <= 0.04045 ? channel / 12.92 : std::pow((channel + 0.055) / 1.055, 2.4);
    };
    return 0.2126 * linear(color.redF()) + 0.7152 * linear(color.greenF()) +
           0.0722 * linear(color.blueF());
}

/// Pixels of nearly one colour, and the mean of them.
class Colours {
  public:
    void add(QRgb pixel) {
        auto& near = cells_[pixel & 0xf0f0f0];
        ++near.count;
        near.red += qRed(pixel);
        near.green += qGreen(pixel);
        near.blue += qBlue(pixel);
    }

    QColor commonest() const {
        const auto most = std::max_element(
            cells_.begin(), cells_.end(),
            [](const Near& one, const Near& other) { return one.count < other.count; });
        if (most == cells_.end()) return {};
        return {most->red / most->count, most->green / most->count, most->blue / most->count};
    }

  private:
    struct Near {
        int count = 0;
        int red = 0;
        int green = 0;
        int blue = 0;
    };
    QHash<QRgb, Near> cells_;
};

template <typename Visit>
void forEachPixel(const QImage& picture, const QRect& part, const Visit& visit) {
    const auto inside = part & picture.rect();
    for (int y = inside.top(); y <= inside.bottom(); ++y)
        for (int x = inside.left(); x <= inside.right(); ++x) visit(QPoint(x, y));
}

}  // namespace

double contrast(const QColor& one, const QColor& other) {
    const auto [darker, lighter] = std::minmax({luminance(one), luminance(other)});
    return (lighter + 0.05) / (darker + 0.05);
}

QColor laidOver(const QColor& ground, const QColor& ink, qreal opacity) {
    const auto strength = ink.alphaF() * opacity;
    const auto mixed = [&](double below, double above) {
        return static_cast<int>(std::lround(255 * (below + (above - below) * strength)));
    };
    return {mixed(ground.redF(), ink.redF()), mixed(ground.greenF(), ink.greenF()),
            mixed(ground.blueF(), ink.blueF())};
}

QColor commonest(const QImage& picture, const QRect& part) {
    Colours colours;
    forEachPixel(picture, part, [&](QPoint at) { colours.add(picture.pixel(at)); });
    return colours.commonest();
}

QColor commonestAround(const QImage& picture, const QRect& part) {
    Colours colours;
    forEachPixel(picture, part.adjusted(-2, -2, 2, 2), [&](QPoint at) {
        if (!part.contains(at)) colours.add(picture.pixel(at));
    });
    return colours.commonest();
}

double strongest(const QImage& picture, const QRect& part, const QColor& ground) {
    double most = 1;
    forEachPixel(picture, part, [&](QPoint at) {
        most = std::max(most, contrast(picture.pixelColor(at), ground));
    });
    return most;
}

}  // namespace brindlet::demo
