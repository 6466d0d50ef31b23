#pragma once

#include <QStringList>

class QImage;
class QQuickWindow;

namespace brindlet::demo {

/// What is wrong with a picture of a window that nothing moves in, a sentence each:
/// - a text that is cut short, unless a control that it belongs to offers the whole of it as help;
/// - a text or a control that is cut off by the window or a clipping parent, or has something float
///   over a part of it, and cannot be scrolled to;
/// - two texts that overlap;
/// - a text whose contrast against what is painted behind it is below 4.5 to 1, a symbol below 3 to
///   1, or a text that cannot be seen at all;
/// - a picture that is empty.
/// What cannot be used now, and what lies under a veil, need not be legible. Empty when all is
/// well. Main thread.
QStringList pictureFaults(const QQuickWindow& window, const QImage& picture);

}  // namespace brindlet::demo
