#pragma once

#include <QColor>
#include <QIcon>
#include <QString>

namespace brindlet {

/// One of our symbols as the desktop's panel wants it: at each of its usual sizes, and in the one
/// colour that stands out on dark panels and on light ones, since no desktop tells which it has.
QIcon trayIcon(const QString& symbol);
QColor trayColour();

}  // namespace brindlet
