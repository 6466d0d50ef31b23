#include "app/TrayIcon.h"

#include <gtest/gtest.h>

#include <QPixmap>
#include <cmath>

namespace brindlet {
namespace {

/// By the definition of WCAG 2.
double luminance(const QColor& colour) {
    const auto linear = [](double part) {
        return part <= 0.04045 ? part / 12.92 : std::pow((part + 0.055) / 1.055, 2.4);
    };
    return 0.2126 * linear(colour.redF()) + 0.7152 * linear(colour.greenF()) +
           0.0722 * linear(colour.blueF());
}

double contrast(const QColor& one, const QColor& other) {
    const auto [dark, light] = std::minmax(luminance(one), luminance(other));
    return (light + 0.05) / (dark + 0.05);
}

TEST(TrayIcon, StandsOutOnDarkPanelsAndOnLightOnes) {
    for (const auto* panel : {"#000000", "#1d1d20", "#2a2e32", "#f6f5f4", "#eff0f1", "#ffffff"})
        EXPECT_GE(contrast(trayColour(), QColor(QLatin1String(panel))), 3) << panel;
}

TEST(TrayIcon, IsDrawnAtEachSizeOfAPanel) {
    for (const auto* symbol : {"tray", "tray.full.fill"}) {
        const auto icon = trayIcon(QLatin1String(symbol));
        for (const int size : {16, 22, 24, 32}) {
            SCOPED_TRACE(size);
            EXPECT_TRUE(icon.availableSizes().contains(QSize(size, size)));
            const auto image = icon.pixmap(size).toImage();
            int solid = 0;
            for (int y = 0; y < size; ++y)
                for (int x = 0; x < size; ++x) solid += qAlpha(image.pixel(x, y)) > 200;
            // Lines that keep their full colour, and not only a shimmer of it.
            EXPECT_GT(solid, size * 2);
        }
    }
}

}  // namespace
}  // namespace brindlet
