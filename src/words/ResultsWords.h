#pragma once

#include <optional>
#include <string>

namespace brindlet {

class AppState;

/// Told when a scan was stopped by an error.
struct ScanErrorWords {
    std::string symbol = "exclamationmark.triangle.fill";
    std::string title = "This scan was stopped";
    std::string sentence;
    std::string quit = "Quit Brindlet";

    friend bool operator==(const ScanErrorWords&, const ScanErrorWords&) = default;
};

/// Told when a move took everything that the scan was after.
struct AllMovedWords {
    std::string symbol = "checkmark.circle";
    std::string text;
    std::string next = "Scan another mailbox, or let Brindlet watch this one on a schedule.";

    friend bool operator==(const AllMovedWords&, const AllMovedWords&) = default;
};

/// The words above the lists of the results.
struct ResultsWords {
    std::string backSymbol = "chevron.left";
    std::string title;
    /// All pieces in one line, joined by a middle dot.
    std::string summary;
    std::optional<ScanErrorWords> scanError;
    std::optional<AllMovedWords> allMoved;
    /// Why there is nothing to look at; empty when there is, or when `scanError` says why.
    std::string nothing;
    std::string scanAnother = "Scan another";
    std::string rulesSymbol = "wand.and.stars";
    std::string rules;
    std::string historySymbol = "clock.arrow.circlepath";
    std::string history = "History";
    std::string automaticSymbol = "clock.arrow.2.circlepath";
    std::string automatic;

    friend bool operator==(const ResultsWords&, const ResultsWords&) = default;
};

/// Main thread. Looks at no single verdict.
ResultsWords resultsWords(const AppState& state);

}  // namespace brindlet
