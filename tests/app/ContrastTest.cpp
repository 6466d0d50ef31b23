#include "app/demo/Contrast.h"

#include <gtest/gtest.h>

namespace brindlet::demo {
namespace {

QImage filled(QRgb colour) {
    QImage picture(20, 20, QImage::Format_RGB32);
    picture.fill(colour);
    return picture;
}

TEST(Contrast, GoesFromOneToTwentyOneWhicheverComesFirst) {
    EXPECT_NEAR(contrast(Qt::black, Qt::white), 21, 0.001);
    EXPECT_NEAR(contrast(Qt::white, Qt::black), 21, 0.001);
    EXPECT_NEAR(contrast(Qt::red, Qt::red), 1, 0.001);
    EXPECT_NEAR(contrast(QColor(0x77, 0x77, 0x77), Qt::white), 4.48, 0.01);
}

TEST(LaidOver, MixesByTheStrengthOfBoth) {
    EXPECT_EQ(laidOver(Qt::black, Qt::white, 1), QColor(Qt::white));
    EXPECT_EQ(laidOver(Qt::black, Qt::white, 0), QColor(Qt::black));
    EXPECT_EQ(laidOver(Qt::black, QColor(255, 0, 0, 128), 0.5), QColor(64, 0, 0));
}

TEST(Commonest, IsTheGroundAndNotTheLetters) {
    auto picture = filled(qRgb(10, 20, 30));
    for (int i = 0; i < 20; ++i) picture.setPixel(i, 10, qRgb(250, 250, 250));
    EXPECT_EQ(commonest(picture, picture.rect()), QColor(10, 20, 30));
    EXPECT_EQ(commonest(picture, QRect(0, 10, 20, 1)), QColor(250, 250, 250));
    EXPECT_FALSE(commonest(picture, QRect(40, 40, 5, 5)).isValid()) << "outside of the picture";
}

TEST(CommonestAround, LooksOutsideAlone) {
    auto picture = filled(qRgb(10, 20, 30));
    const QRect symbol(5, 5, 8, 8);
    for (int y = symbol.top(); y <= symbol.bottom(); ++y)
        for (int x = symbol.left(); x <= symbol.right(); ++x)
            picture.setPixel(x, y, qRgb(250, 250, 250));
    EXPECT_EQ(commonestAround(picture, symbol), QColor(10, 20, 30));
}

TEST(Strongest, IsThatOfOnePixel) {
    auto picture = filled(qRgb(0, 0, 0));
    EXPECT_NEAR(strongest(picture, picture.rect(), Qt::black), 1, 0.001);
    picture.setPixel(3, 3, qRgb(255, 255, 255));
    EXPECT_NEAR(strongest(picture, picture.rect(), Qt::black), 21, 0.001);
}

}  // namespace
}  // namespace brindlet::demo
