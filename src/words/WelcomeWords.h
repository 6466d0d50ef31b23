#pragma once

#include <string>
#include <vector>

namespace brindlet {

class AppState;

/// A small pill with a symbol and a word.
struct Badge {
    std::string symbol;
    std::string word;

    friend bool operator==(const Badge&, const Badge&) = default;
};

/// The words of the first screen.
struct WelcomeWords {
    std::string symbol = "tray.full";
    std::string title = "Brindlet";
    std::string text =
        "Sorts the accounts you already have in Apple Mail, using the model built into macOS. No "
        "password, no sign-up, and your mail never leaves this Mac.";
    std::vector<Badge> badges = {
        {"lock.fill", "Nothing uploaded"},
        {"cpu", "On-device model"},
        {"arrow.uturn.backward", "Nothing deleted"},
    };
    std::string start = "Start";

    friend bool operator==(const WelcomeWords&, const WelcomeWords&) = default;
};

/// A line under the button that leads to a screen.
struct HomeLink {
    enum class To { history, rules, automatic };

    To to = To::history;
    std::string symbol;
    std::string text;

    friend bool operator==(const HomeLink&, const HomeLink&) = default;
};

/// Main thread.
std::vector<HomeLink> homeLinks(const AppState& state);

}  // namespace brindlet
