#pragma once

#include <optional>
#include <string>
#include <vector>

namespace brindlet {

class AppState;

/// A line of the menu: words to read, a command, or the divider between two parts.
struct MenuLine {
    enum class Command { stop, open, quit };

    /// Empty for a divider.
    std::string text;
    /// What choosing it does; nothing for words to read.
    std::optional<Command> command;

    bool isDivider() const { return text.empty(); }
    friend bool operator==(const MenuLine&, const MenuLine&) = default;
};

/// The program as the desktop's tray shows it.
struct MenuWords {
    std::string title = "Brindlet";
    /// Fuller while a scan runs.
    std::string symbol;
    /// What goes on, from top to bottom, and then the commands that are always there.
    std::vector<MenuLine> lines;

    friend bool operator==(const MenuWords&, const MenuWords&) = default;
};

/// Main thread. Without a scan or a move the lines tell the time of the next automatic run as it
/// is from now, so they grow stale by themselves.
MenuWords menuWords(const AppState& state);

}  // namespace brindlet
