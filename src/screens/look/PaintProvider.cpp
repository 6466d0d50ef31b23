#include "screens/look/PaintProvider.h"

#include <QColor>
#include <QPainter>
#include <QStringList>
#include <algorithm>
#include <cmath>
#include <vector>

namespace brindlet::screens {
namespace {

constexpr int defaultGlow = 256;

/// The same noise for the same picture, every time.
class Noise {
  public:
    float next() {
        seed_ = seed_ * 1664525U + 1013904223U;
        return static_cast<float>(seed_ >> 8) / 16777216.0F;
    }

  private:
    quint32 seed_ = 1;
};

/// One pass of a running mean over every line of a square, along it or across.
void meanPass(std::vector<float>& field, int side, int reach, int step, int stride) {
    std::vector<float> line(static_cast<std::size_t>(side));
    for (int row = 0; row < side; ++row) {
        const auto at = [&](int i) -> float& {
            return field[static_cast<std::size_t>(row * stride + i * step)];
        };
        float sum = 0;
        for (int i = -reach; i <= reach; ++i) sum += at(std::clamp(i, 0, side - 1));
        for (int i = 0; i < side; ++i) {
            line[static_cast<std::size_t>(i)] = sum / static_cast<float>(2 * reach + 1);
            sum += at(std::min(i + reach + 1, side - 1)) - at(std::max(i - reach, 0));
        }
        for (int i = 0; i < side; ++i) at(i) = line[static_cast<std::size_t>(i)];
    }
}

}  // namespace

// The steps between so few shades of so faint a light would show as rings; noise of less than one
// step hides them.
QImage PaintProvider::glow(const QColor& colour, int pixels) {
    QImage image(pixels, pixels, QImage::Format_ARGB32_Premultiplied);
    Noise noise;
    const float strength = static_cast<float>(colour.alphaF()) * 255.0F;
    const auto tinted = [&](float channel, int alpha, float grain) {
        return std::min(alpha,
                        static_cast<int>(channel * static_cast<float>(alpha) + grain * 0.99F));
    };
    for (int y = 0; y < pixels; ++y) {
        auto* line = reinterpret_cast<QRgb*>(image.scanLine(y));
        for (int x = 0; x < pixels; ++x) {
            const float dx = (static_cast<float>(x) + 0.5F) / static_cast<float>(pixels) * 2 - 1;
            const float dy = (static_cast<float>(y) + 0.5F) / static_cast<float>(pixels) * 2 - 1;
            const float distance = std::sqrt(dx * dx + dy * dy);
            const float grain = noise.next();
            if (distance >= 1) {
                line[x] = 0;
                continue;
            }
            const float fade = (1 - distance) * (1 - distance);
            const int alpha = std::min(255, static_cast<int>(strength * fade + grain));
            line[x] = qRgba(tinted(static_cast<float>(colour.redF()), alpha, grain),
                            tinted(static_cast<float>(colour.greenF()), alpha, grain),
                            tinted(static_cast<float>(colour.blueF()), alpha, grain), alpha);
        }
    }
    return image;
}

QImage PaintProvider::shadow(const QColor& colour, int radius, int blur) {
    const int side = 2 * (radius + 2 * blur) + 8;
    QImage mask(side, side, QImage::Format_Alpha8);
    mask.fill(0);
    {
        QPainter painter(&mask);
        painter.setRenderHint(QPainter::Antialiasing);
        painter.setPen(Qt::NoPen);
        painter.setBrush(Qt::black);
        painter.drawRoundedRect(QRectF(blur, blur, side - 2 * blur, side - 2 * blur), radius,
                                radius);
    }
    std::vector<float> field(static_cast<std::size_t>(side * side));
    for (int y = 0; y < side; ++y)
        for (int x = 0; x < side; ++x)
            field[static_cast<std::size_t>(y * side + x)] =
                static_cast<float>(mask.constScanLine(y)[x]) / 255.0F;
    // Three means one after another are as good as a bell curve.
    const int reach = std::max(1, blur / 3);
    for (int pass = 0; pass < 3; ++pass) {
        meanPass(field, side, reach, 1, side);
        meanPass(field, side, reach, side, 1);
    }
    QImage image(side, side, QImage::Format_ARGB32);
    for (int y = 0; y < side; ++y) {
        auto* line = reinterpret_cast<QRgb*>(image.scanLine(y));
        for (int x = 0; x < side; ++x) {
            const float share = field[static_cast<std::size_t>(y * side + x)];
            line[x] = qRgba(colour.red(), colour.green(), colour.blue(),
                            static_cast<int>(static_cast<float>(colour.alpha()) * share));
        }
    }
    return image;
}

QImage PaintProvider::requestImage(const QString& id, QSize* size, const QSize& requested) {
    const auto mark = id.indexOf(QLatin1Char('?'));
    const QColor colour(id.mid(mark + 1));
    const auto parts = id.left(mark).split(QLatin1Char('/'));
    QImage image;
    if (parts.value(0) == QLatin1String("glow"))
        image = glow(colour, requested.width() > 0 ? requested.width() : defaultGlow);
    else
        image = shadow(colour, parts.value(1).toInt(), parts.value(2).toInt());
    if (size) *size = image.size();
    return image;
}

}  // namespace brindlet::screens
