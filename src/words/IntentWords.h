#pragma once

#include <optional>
#include <string>
#include <vector>

#include "words/MoveWords.h"

namespace brindlet {

class AppState;

/// How the destination is coloured.
enum class DestinationTint { fresh, own, spam };

/// What the picker says of where junk will go.
struct IntentWords {
    std::string symbol;
    /// Out of a folder of junk, where the way goes back; empty elsewhere. No destination stands
    /// beside it.
    std::string backwards;

    std::string label = "Junk will go to";
    std::string destination;
    DestinationTint tint = DestinationTint::fresh;
    std::string menuSymbol = "chevron.down";
    std::vector<DestinationWords> destinations;

    std::string text;

    friend bool operator==(const IntentWords&, const IntentWords&) = default;
};

/// None while no account is selected, unless the folder is one of junk. Main thread.
std::optional<IntentWords> intentWords(const AppState& state);
/// `fresh` for a folder that is still to be made, or without an account.
DestinationTint destinationTint(const AppState& state);

}  // namespace brindlet
