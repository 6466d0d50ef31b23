#pragma once

#include <optional>
#include <string>
#include <vector>

namespace brindlet {

class AppState;

/// A folder that junk may be filed into.
struct DestinationWords {
    /// What the mail program calls it.
    std::string name;
    std::string label;
    /// Empty unless the folder is still to be made.
    std::string help;
    bool chosen = false;
    /// Marks the chosen one; empty at all others.
    std::string symbol;

    friend bool operator==(const DestinationWords&, const DestinationWords&) = default;
};

/// How far a move is, or how the last one ended.
struct MoveStatusWords {
    enum class State { running, partFailed, allFailed, done };

    State state = State::running;
    /// Empty while it runs.
    std::string symbol;
    /// Either of the two may be empty, not both.
    std::string title;
    std::string text;
    /// How many have moved; empty unless it runs and their number is known.
    std::string count;
    /// The part of the bar that is filled, 0 to 1.
    double share = 0;

    friend bool operator==(const MoveStatusWords&, const MoveStatusWords&) = default;
};

/// The words of the bar that moves what is ticked.
struct MoveWords {
    /// There are messages to move, or a move runs. The status may stand without.
    bool offered = false;
    std::string symbol = "tray.and.arrow.down";
    std::string label;
    bool canMove = false;
    /// A move runs, and can be stopped in place of all the rest.
    bool moving = false;
    std::string stop = "Stop";
    std::string stopHelp =
        "Stop here - everything already filed stays filed, and the rest can continue later";
    std::string menuSymbol = "chevron.down";
    std::string menuHelp = "Which folder junk is filed into";
    /// Empty where there is no choice: no account is known yet, or the way leads out of a junk
    /// folder.
    std::vector<DestinationWords> destinations;
    std::optional<MoveStatusWords> status;

    friend bool operator==(const MoveWords&, const MoveWords&) = default;
};

/// Main thread. Looks at no single verdict.
MoveWords moveWords(const AppState& state);

}  // namespace brindlet
