#pragma once

#include <QString>
#include <vector>

#include "app/demo/Visit.h"

namespace brindlet::demo {

/// Something that a person can come upon in Brindlet's window: a row of what its screens can show,
/// or of the states that one of their parts can be in.
struct Sight {
    const char* name;
    const char* what;
    /// What stands in the window then, all of it at once: words or symbols, as `reads` takes them.
    std::vector<const char*> marks;
    /// Its screen is still to be built; the tour need not meet it.
    bool pending = false;
};

/// All of them, in the order of the screens. The tour must meet each that is not pending.
const std::vector<Sight>& sights();
/// Null when there is none of that name.
const Sight* sightNamed(const QString& name);

/// Where a visit leaves the names of the sights that it has met, each with its picture.
QString metSightsPath(const QString& folder, Visit visit);

}  // namespace brindlet::demo
