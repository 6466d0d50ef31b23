#pragma once

#include <optional>
#include <string>

namespace brindlet {

class AppState;

/// The offer to finish a move that was interrupted.
struct ResumeWords {
    std::string symbol = "arrow.clockwise.circle.fill";
    std::string title = "A move didn't finish";
    std::string line;
    std::string resume = "Continue";
    std::string forget = "Forget the rest of this move";

    friend bool operator==(const ResumeWords&, const ResumeWords&) = default;
};

/// Main thread. None when no move is left to finish.
std::optional<ResumeWords> resumeWords(const AppState& state);

}  // namespace brindlet
