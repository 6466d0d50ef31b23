#pragma once

#include <QColor>
#include <QImage>
#include <QRect>

/// How well something painted can be told from what lies behind it.
namespace brindlet::demo {

/// The contrast of two opaque colours as WCAG 2 defines it, from 1 to 21.
double contrast(const QColor& one, const QColor& other);

/// A colour of that strength laid over another, opaque one.
QColor laidOver(const QColor& ground, const QColor& ink, qreal opacity);

/// The commonest colour of a part of a picture: what lies behind the letters of a text, which never
/// fill half of it.
QColor commonest(const QImage& picture, const QRect& part);

/// The commonest colour right outside a part of a picture.
QColor commonestAround(const QImage& picture, const QRect& part);

/// The contrast of the pixel that stands out most against that ground.
double strongest(const QImage& picture, const QRect& part, const QColor& ground);

}  // namespace brindlet::demo
