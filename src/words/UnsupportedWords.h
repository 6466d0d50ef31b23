#pragma once

#include <optional>
#include <string>

namespace brindlet {

class AppState;

/// The words of the one screen there is while the language model cannot be used.
struct UnsupportedWords {
    std::string symbol = "exclamationmark.triangle";
    std::string title = "Not available";
    /// What is the matter with the model.
    std::string text;
    std::string openSettings = "Open Settings";

    friend bool operator==(const UnsupportedWords&, const UnsupportedWords&) = default;
};

/// None while the model can be used. Asks the model at each call: nobody tells when it comes or
/// goes. Main thread.
std::optional<UnsupportedWords> unsupportedWords(const AppState& state);

}  // namespace brindlet
