#pragma once

#include <cstdint>
#include <optional>
#include <string>

#include "classify/Verdict.h"
#include "words/Mark.h"

namespace brindlet {

class AppState;
class Locale;

/// Where the moved messages of the scan on show are.
std::string movedPlace(const AppState& state);

/// The header of the messages that have left the folder.
struct MovedSectionWords {
    std::string symbol = "checkmark.circle.fill";
    std::string heading;
    Mark badge{"DONE", Tone::green, ""};
    /// How many are ticked, and the button that returns them; both empty where none is.
    std::string count;
    std::string putBack;
    std::string chevron;
    /// Whether the button can be pressed now.
    bool ready = false;

    friend bool operator==(const MovedSectionWords&, const MovedSectionWords&) = default;
};

/// Main thread; looks at no single verdict. None when nothing was moved.
std::optional<MovedSectionWords> movedSectionWords(const AppState& state, bool open);

/// The words around the list of them.
struct MovedListWords {
    std::string hint = "Tick anything that shouldn't have gone.";
    std::string filterSymbol = "magnifyingglass";
    std::string filterPrompt = "Filter these";
};

/// Stands at the foot of the list when it is longer than its frame.
std::string movedScrollLine(std::int64_t messages, const Locale& locale);

/// One of them.
struct MovedRowWords {
    std::string subject;
    std::string sender;
    /// A tick asks for its return.
    std::string tickSymbol;

    friend bool operator==(const MovedRowWords&, const MovedRowWords&) = default;
};

MovedRowWords movedRowWords(const AppState& state, const Verdict& verdict);

}  // namespace brindlet
