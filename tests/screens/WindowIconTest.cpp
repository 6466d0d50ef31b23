#include <gtest/gtest.h>

#include <QGuiApplication>
#include <QIcon>
#include <QImage>
#include <QPixmap>

namespace brindlet {
namespace {

TEST(WindowIcon, HasAPictureOfItsOwnForEachSize) {
    const QIcon icon = QGuiApplication::windowIcon();
    const QList<QSize> sizes = icon.availableSizes();
    for (const int size : {16, 24, 32, 48, 64, 128}) {
        SCOPED_TRACE(size);
        EXPECT_TRUE(sizes.contains(QSize(size, size)));
        const QImage picture = icon.pixmap(size).toImage();
        ASSERT_EQ(picture.size(), QSize(size, size));
        EXPECT_EQ(qAlpha(picture.pixel(0, 0)), 0) << "the corner outside the ground";
        EXPECT_EQ(qAlpha(picture.pixel(size / 2, size / 2)), 255);
    }
}

}  // namespace
}  // namespace brindlet
