#pragma once

#include <string>

namespace brindlet {

/// The words of the commands that belong to the program and not to a screen.
struct CommandWords {
    std::string menu = "Menu";
    std::string about = "About Brindlet";
    std::string checkForUpdates = "Check for Updates\u2026";
    std::string quit = "Quit Brindlet";
    std::string quitKeys = "Ctrl+Q";
};

/// The words of the sheet that says what the program is.
struct AboutWords {
    std::string name = "Brindlet";
    /// Before the version.
    std::string version = "Version ";
    std::string text = "Sorts the mail you already have. Nothing uploaded, nothing deleted.";
    std::string close = "Close";
};

}  // namespace brindlet
