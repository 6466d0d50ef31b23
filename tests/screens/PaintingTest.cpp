#include <gtest/gtest.h>

#include <QColor>
#include <QImage>
#include <QPainter>

#include "screens/look/ImageUrls.h"
#include "screens/look/PaintProvider.h"
#include "screens/look/Ring.h"

namespace brindlet::screens {
namespace {

/// A ring of 100 by 100 on nothing, its track invisible.
QImage ring(qreal value) {
    Ring item;
    item.setSize(QSizeF(100, 100));
    item.setThickness(10);
    item.setTrack(Qt::transparent);
    item.setFrom(Qt::red);
    item.setTo(Qt::blue);
    item.setValue(value);
    QImage image(100, 100, QImage::Format_ARGB32_Premultiplied);
    image.fill(Qt::transparent);
    QPainter painter(&image);
    item.paint(&painter);
    return image;
}

int painted(const QImage& image) {
    int count = 0;
    for (int y = 0; y < image.height(); ++y)
        for (int x = 0; x < image.width(); ++x) count += qAlpha(image.pixel(x, y)) > 127;
    return count;
}

TEST(Ring, NothingDoneDrawsNothing) {
    EXPECT_EQ(painted(ring(0)), 0);
}

TEST(Ring, HalfAPercentOrLessIsAThinSliver) {
    EXPECT_GT(painted(ring(0.005)), 0);
    EXPECT_LT(painted(ring(0.005)), 60);
    EXPECT_EQ(ring(0.0001), ring(0.005));
}

TEST(Ring, FillsClockwiseFromTheTop) {
    const auto quarter = ring(0.25);
    EXPECT_EQ(qAlpha(quarter.pixel(82, 18)), 255) << "upper right";
    EXPECT_EQ(qAlpha(quarter.pixel(82, 82)), 0) << "lower right";
    EXPECT_EQ(qAlpha(quarter.pixel(18, 18)), 0) << "upper left";
    EXPECT_GT(qRed(quarter.pixel(56, 5)), 200) << "one tint where it begins";
    EXPECT_GT(qBlue(quarter.pixel(94, 46)), 200) << "the other where it ends";
}

TEST(Ring, AllDoneClosesIt) {
    const auto whole = ring(1);
    for (const auto& place : {QPoint(50, 5), QPoint(95, 50), QPoint(50, 95), QPoint(5, 50)})
        EXPECT_EQ(qAlpha(whole.pixel(place)), 255) << place.x() << ", " << place.y();
}

TEST(PaintProvider, AGlowIsBrightInTheMiddleAndGoneAtItsEdge) {
    const auto glow = PaintProvider::glow(QColor(199, 158, 255, 200), 64);
    EXPECT_GT(qAlpha(glow.pixel(32, 32)), 180);
    EXPECT_LT(qAlpha(glow.pixel(32, 2)), 4);
    EXPECT_EQ(qAlpha(glow.pixel(0, 0)), 0);
    EXPECT_EQ(glow, PaintProvider::glow(QColor(199, 158, 255, 200), 64)) << "the same every time";
}

TEST(PaintProvider, AShadowIsDarkInsideAndFadesToItsEdge) {
    PaintProvider provider;
    QSize size;
    const auto shadow = provider.requestImage(QStringLiteral("shadow/14/24?#80000000"), &size, {});
    EXPECT_EQ(size.width(), 2 * (14 + 2 * 24) + 8);
    const int middle = size.width() / 2;
    EXPECT_NEAR(qAlpha(shadow.pixel(middle, middle)), 128, 2);
    EXPECT_EQ(qAlpha(shadow.pixel(0, middle)), 0);
    int last = 0;
    for (int x = 0; x <= middle; ++x) {
        EXPECT_GE(qAlpha(shadow.pixel(x, middle)), last - 1) << "but for rounding";
        last = qAlpha(shadow.pixel(x, middle));
    }
}

TEST(ImageUrls, BearTheColourWithItsAlphaWhereItHasOne) {
    EXPECT_EQ(ImageUrls::symbol(QStringLiteral("checkmark"), QColor(199, 158, 255)).toString(),
              QStringLiteral("image://symbol/checkmark?#c79eff"));
    EXPECT_EQ(ImageUrls::glow(QColor(0, 0, 0, 128)).toString(),
              QStringLiteral("image://paint/glow?#80000000"));
    EXPECT_EQ(ImageUrls::shadow(14, 24, QColor(0, 0, 0, 128)).toString(),
              QStringLiteral("image://paint/shadow/14/24?#80000000"));
}

TEST(ImageUrls, NoSymbolHasNoAddress) {
    EXPECT_TRUE(ImageUrls::symbol(QString(), Qt::black).isEmpty());
}

}  // namespace
}  // namespace brindlet::screens
