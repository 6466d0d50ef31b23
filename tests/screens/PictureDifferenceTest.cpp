#include "screens/PictureDifference.h"

#include <gtest/gtest.h>

#include <functional>

#include "screens/Golden.h"

namespace brindlet::testing {
namespace {

/// The welcome before and after something was done to it.
PictureDifference welcomeAfter(const std::function<void(const Stage&)>& deed) {
    const Stage stage(scenes::interrupted);
    const auto before = pictureOf(stage);
    deed(stage);
    return difference(before, pictureOf(stage));
}

/// The first item below this one, itself among them, that has the property with the value.
QQuickItem* having(const Stage& stage, const char* property, const QVariant& value) {
    for (auto* item : stage.items())
        if (item->property(property) == value) return item;
    ADD_FAILURE() << "nothing has " << property << " " << value.toString().toStdString();
    return nullptr;
}

TEST(PictureDifference, IsNoneBetweenTwoPicturesOfOneScreen) {
    const auto found = welcomeAfter([](const auto&) {});
    EXPECT_EQ(found.mean, 0);
    EXPECT_EQ(found.worst, 0);
    EXPECT_TRUE(found.tolerable());
}

TEST(PictureDifference, FindsALabelThatMovedByAPixel) {
    const auto found = welcomeAfter([](const Stage& stage) {
        auto* label = having(stage, "text", QStringLiteral("Nothing uploaded"));
        label->setX(label->x() + 1);
    });
    EXPECT_FALSE(found.tolerable()) << found.worst;
    EXPECT_LT(found.mean, PictureDifference::mostMean) << "the block tells, not the mean";
}

TEST(PictureDifference, FindsATextInAnotherTint) {
    EXPECT_FALSE(welcomeAfter([](const Stage& stage) {
                     having(stage, "text", QStringLiteral("Nothing uploaded"))
                         ->setProperty("color", QColor(0x73, 0xcc, 0xff));
                 }).tolerable());
}

TEST(PictureDifference, FindsAMissingSymbol) {
    EXPECT_FALSE(welcomeAfter([](const Stage& stage) {
                     having(stage, "symbol", QStringLiteral("cpu"))->setOpacity(0);
                 }).tolerable());
}

TEST(PictureDifference, FindsASlightlyOtherGroundByTheMean) {
    const auto found = welcomeAfter([](const Stage& stage) {
        auto* ground = stage.window()->contentItem()->childItems().value(0);
        ground->setOpacity(0.8);
        stage.window()->setProperty("color", QColor(0x1b, 0x17, 0x28));
    });
    EXPECT_GT(found.mean, PictureDifference::mostMean);
    EXPECT_LE(found.worst, PictureDifference::mostInABlock) << "the mean tells, not a block";
}

TEST(PictureDifference, FindsAnotherSize) {
    EXPECT_FALSE(difference(QImage(4, 4, QImage::Format_RGB32), QImage(4, 5, QImage::Format_RGB32))
                     .tolerable());
}

TEST(PictureDifference, ForgivesTheRoundingOfALettersEdge) {
    QImage one(64, 64, QImage::Format_RGB32);
    one.fill(qRgb(40, 40, 40));
    auto other = one;
    for (int y = 8; y < 24; ++y) other.setPixel(20, y, qRgb(52, 52, 52));
    EXPECT_TRUE(difference(one, other).tolerable());
    for (int y = 8; y < 24; ++y) other.setPixel(20, y, qRgb(250, 250, 250));
    EXPECT_FALSE(difference(one, other).tolerable()) << "but not a stroke";
}

}  // namespace
}  // namespace brindlet::testing
