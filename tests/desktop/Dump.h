#pragma once

#include <QString>

#include "desktop/ScreenReader.h"

namespace brindlet::desktop {

/// What the lines of a dump look like without what no two visits share: a moment in words becomes
/// "<date>", and how long ago something was "<ago>".
QString masked(QString dump);

/// What has to be done to the lines of one text to get another: those that go begin with "-", those
/// that come with "+", each with its surroundings. Empty when there is nothing to do.
QString lineDifference(const QString& expected, const QString& actual);

/// Waits until all that the program tells a screen reader is what lies under that name in
/// tests/desktop/dumps; fails the test with the difference if it does not come to that. Where
/// BRINDLET_ACCEPT is set, what is told becomes what is expected, once it stands still.
void expectDump(const ScreenReader& reader, const QString& name);

}  // namespace brindlet::desktop
