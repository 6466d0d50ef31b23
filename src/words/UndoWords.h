#pragma once

#include <optional>
#include <string>

namespace brindlet {

class AppState;

/// The offer to undo the last sweep.
struct UndoWords {
    std::string symbol = "arrow.uturn.backward";
    std::string text;
    std::string label = "Undo";
    std::string help;

    friend bool operator==(const UndoWords&, const UndoWords&) = default;
};

/// Main thread. None when there is nothing to undo.
std::optional<UndoWords> undoWords(const AppState& state);

}  // namespace brindlet
