#pragma once

#include <QImage>
#include <QRect>

namespace brindlet::testing {

/// How far two pictures of a window lie apart. A pixel's difference is that of the channel that
/// differs most, from 0 to 255.
///
/// Another version of the font renderer may round the edge of a letter differently, which is worth
/// a few steps in a block. A control that has moved by a pixel or two, a symbol that is missing, or
/// another tint is worth more, there; a slight change of a colour that is everywhere tells in the
/// mean.
struct PictureDifference {
    static constexpr int blockSize = 16;
    static constexpr double mostMean = 0.4;
    static constexpr double mostInABlock = 6;

    /// Over all pixels.
    double mean = 0;
    /// Over the pixels of the block that differs most.
    double worst = 0;
    QRect worstBlock;
    bool sameSize = true;

    bool tolerable() const { return sameSize && mean <= mostMean && worst <= mostInABlock; }
};

PictureDifference difference(const QImage& one, const QImage& other);

/// Each pixel's difference as a grey, four times as bright so that it can be seen. The pictures are
/// of one size.
QImage differencePicture(const QImage& one, const QImage& other);

}  // namespace brindlet::testing
