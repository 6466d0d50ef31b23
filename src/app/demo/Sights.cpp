#include "app/demo/Sights.h"

#include <algorithm>
#include <iterator>
#include <utility>

#include "app/demo/SightTables.h"

namespace brindlet::demo {
namespace {

std::vector<Sight> joined() {
    std::vector<Sight> all;
    for (const auto table : {onboardingSights, scanningSights, resultsSights, reviewSights,
                             keptSights, gmailSights, demoSights}) {
        auto some = table();
        std::ranges::move(some, std::back_inserter(all));
    }
    return all;
}

}  // namespace

const std::vector<Sight>& sights() {
    static const auto all = joined();
    return all;
}

const Sight* sightNamed(const QString& name) {
    const auto found = std::ranges::find_if(
        sights(), [&](const Sight& sight) { return name == QLatin1String(sight.name); });
    return found == sights().end() ? nullptr : &*found;
}

QString metSightsPath(const QString& folder, Visit visit) {
    return folder + QLatin1Char('/') + QString::fromUtf8(rawValue(visit)) + QStringLiteral(".met");
}

}  // namespace brindlet::demo
