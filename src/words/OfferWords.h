#pragma once

#include <optional>
#include <string>
#include <vector>

#include "session/Review.h"

namespace brindlet {

class Locale;

/// One way to take the offer up; without a choice it is declined.
struct OfferButton {
    std::string label;
    std::string help;
    std::optional<SweepChoice> choice;
    bool learn = false;

    friend bool operator==(const OfferButton&, const OfferButton&) = default;
};

/// The offer to treat like messages as one was just treated.
struct OfferWords {
    std::string symbol = "wand.and.stars";
    std::string question;
    /// May be empty.
    std::string explanation;
    /// The last one declines.
    std::vector<OfferButton> buttons;

    friend bool operator==(const OfferWords&, const OfferWords&) = default;
};

OfferWords offerWords(const PendingRule& offer, const Locale& locale);

}  // namespace brindlet
