#pragma once

#include <vector>

#include "app/demo/Sights.h"

/// The list of sights, a table for each kind of screen.
namespace brindlet::demo {

/// Welcome, the permission, the picker, and the page that stands without a model.
std::vector<Sight> onboardingSights();
/// A scan as it runs.
std::vector<Sight> scanningSights();
/// What a scan leaves on show, and the move of it.
std::vector<Sight> resultsSights();
/// The lists of the results, and what a correction offers.
std::vector<Sight> reviewSights();
/// What lasts between runs: the schedule, the rules, the history.
std::vector<Sight> keptSights();
/// The question about Gmail, and the notices in the picker.
std::vector<Sight> gmailSights();
/// What the demo itself adds.
std::vector<Sight> demoSights();

}  // namespace brindlet::demo
