#include "screens/PictureDifference.h"

#include <algorithm>
#include <cstdlib>

namespace brindlet::testing {
namespace {

int difference(QRgb one, QRgb other) {
    return std::max({std::abs(qRed(one) - qRed(other)), std::abs(qGreen(one) - qGreen(other)),
                     std::abs(qBlue(one) - qBlue(other))});
}

double sumOver(const QRect& block, const QImage& one, const QImage& other) {
    int sum = 0;
    for (int y = block.top(); y <= block.bottom(); ++y)
        for (int x = block.left(); x <= block.right(); ++x)
            sum += difference(one.pixel(x, y), other.pixel(x, y));
    return sum;
}

}  // namespace

PictureDifference difference(const QImage& one, const QImage& other) {
    PictureDifference found;
    found.sameSize = one.size() == other.size();
    if (!found.sameSize || one.isNull()) return found;
    constexpr int side = PictureDifference::blockSize;
    double sum = 0;
    for (int y = 0; y < one.height(); y += side)
        for (int x = 0; x < one.width(); x += side) {
            const auto block = QRect(x, y, side, side).intersected(one.rect());
            const double inBlock = sumOver(block, one, other);
            sum += inBlock;
            if (const double mean = inBlock / (block.width() * block.height());
                mean > found.worst) {
                found.worst = mean;
                found.worstBlock = block;
            }
        }
    found.mean = sum / (one.width() * one.height());
    return found;
}

QImage differencePicture(const QImage& one, const QImage& other) {
    QImage picture(one.size(), QImage::Format_Grayscale8);
    for (int y = 0; y < one.height(); ++y)
        for (int x = 0; x < one.width(); ++x)
            picture.scanLine(y)[x] = static_cast<uchar>(
                std::min(255, 4 * difference(one.pixel(x, y), other.pixel(x, y))));
    return picture;
}

}  // namespace brindlet::testing
