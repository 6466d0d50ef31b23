#pragma once

#include <string>
#include <vector>

namespace brindlet {

/// The words of the request for access to the mail files.
struct PermissionWords {
    std::string symbol = "folder.badge.questionmark";
    std::string title = "One permission";
    std::string text =
        "Brindlet reads Mail's own files on this Mac, which macOS keeps behind Full Disk Access. "
        "Grant it, then come back and press Check again.";
    /// Numbered from 1 on the screen.
    std::vector<std::string> steps = {
        "Open Privacy & Security \u2192 Full Disk Access",
        "Switch on Brindlet",
        "Come back here and press Check",
    };
    std::string openSettings = "Open Settings";
    std::string check = "Check";

    friend bool operator==(const PermissionWords&, const PermissionWords&) = default;
};

}  // namespace brindlet
