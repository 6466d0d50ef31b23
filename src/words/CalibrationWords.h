#pragma once

#include <string>
#include <vector>

#include "stores/Calibration.h"
#include "words/Mark.h"

namespace brindlet {

class Locale;

/// One category that corrections have flipped.
struct CalibrationWords {
    Category category = Category::cannotTell;
    Mark badge;
    std::string label;
    /// How many corrections stand behind it, and what follows from them.
    std::string line;

    friend bool operator==(const CalibrationWords&, const CalibrationWords&) = default;
};

CalibrationWords calibrationWords(const Locale& locale, const Calibration::Row& row);

/// The heading over the flipped categories, and what each offers.
struct CalibrationControls {
    std::string label = "LEARNED BY ITSELF";
    std::string note = "from corrections you made - you never wrote these";
    std::string stop = "Stop this";
    std::string mute = "Go back to letting the model decide this category";
    std::string forget = "Forget what it learned about this category";
};

}  // namespace brindlet
