#pragma once

#include <set>
#include <string>
#include <vector>

#include "words/PickWords.h"

namespace brindlet {

class AppState;

/// One of the two things that a run may do with what it finds.
struct ModeWords {
    std::string symbol;
    std::string title;
    std::string text;
    bool chosen = false;

    friend bool operator==(const ModeWords&, const ModeWords&) = default;
};

/// The words of the schedule's screen, but for its list of mailboxes.
struct AutomaticWords {
    std::string backSymbol = "chevron.left";
    std::string title = "Automatic sorting";
    std::string text =
        "Brindlet checks the mailboxes you pick, on a schedule, while it sits in the menu bar.";
    std::string enable = "Sort on a schedule";
    /// The switch's position. While it is off, nothing below the summary shows.
    bool enabled = false;
    std::string summary;

    std::string mailboxesTitle = "MAILBOXES TO SORT";
    std::string mailboxesNote;
    /// Stands in place of the list; empty where there is one.
    std::string noAccounts;
    /// Empty unless something picked is not there any more.
    std::string gone;
    std::string goneSymbol = "exclamationmark.triangle.fill";
    std::string removeGone = "Remove them";

    std::string cadenceTitle = "HOW OFTEN";
    /// In the order of `Cadence`.
    PickMenu cadences;
    std::string modeTitle = "WHAT IT DOES WHEN IT FINDS JUNK";
    /// In the order of `SortMode`.
    std::vector<ModeWords> modes;

    std::string runNow = "Run now";
    bool canRun = false;

    friend bool operator==(const AutomaticWords&, const AutomaticWords&) = default;
};

/// Main thread.
AutomaticWords automaticWords(const AppState& state);

/// A line of the list of mailboxes: an account, or one of its folders.
struct WatchRow {
    /// Tells the lines apart, across changes of the list.
    std::string id;
    std::string account;
    /// The folder's name; empty for an account's own line.
    std::string folder;
    /// A person or a box to tick.
    std::string symbol;
    std::string name;
    /// What a folder of its role holds; empty for an account.
    std::string note;
    /// Whether an account shows its folders; empty for a folder.
    std::string chevron;
    bool open = false;
    bool ticked = false;

    bool isAccount() const { return folder.empty(); }
    friend bool operator==(const WatchRow&, const WatchRow&) = default;
};

/// All accounts, those whose ids are in `open` with their folders below them. Main thread.
std::vector<WatchRow> watchRows(const AppState& state, const std::set<std::string>& open);

/// The words of the link that leads to the screen.
std::string automaticLink(const AppState& state);
/// What the menu says of the schedule.
std::string automaticStatus(const AppState& state);

}  // namespace brindlet
