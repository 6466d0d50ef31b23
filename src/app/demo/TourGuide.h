#pragma once

#include "app/demo/Options.h"

namespace brindlet::demo {

/// Plays all visits of the tour, each as a process of its own in a world of its own, all at once,
/// as they mostly wait. Then writes "sights.txt" beside the pictures: of each sight of the list its
/// name, the first picture that shows it, and what it is. False when a visit failed, or when a
/// sight was met in none. Blocks; the application object must stand.
bool playTour(const Options& options);

}  // namespace brindlet::demo
