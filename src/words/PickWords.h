#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

#include "mail/Reach.h"
#include "words/FolderWords.h"

namespace brindlet {

class AppState;

/// What stands in place of the folders while there are none to show. Empty texts stand for nothing.
struct PickNotice {
    std::string title;
    std::string text;
    std::string openSettings;
    std::string openMail;
    std::string checkAgain;

    friend bool operator==(const PickNotice&, const PickNotice&) = default;
};

/// A menu of labels, one of them chosen; -1 when none is.
struct PickMenu {
    std::vector<std::string> labels;
    int chosen = -1;

    friend bool operator==(const PickMenu&, const PickMenu&) = default;
};

/// The words of the mailbox picker.
struct PickWords {
    enum class Content { finding, unreadable, noAccounts, accounts };

    std::string backSymbol = "chevron.left";
    std::string title = "Choose a mailbox";
    std::string text = "Start with your inbox. Nothing is moved without your say-so.";

    /// Empty unless the selected folder disappeared; stands over any content until dismissed.
    std::string vanished;
    std::string vanishedSymbol = "trash";
    std::string dismissSymbol = "xmark";

    Content content = Content::finding;
    /// Filled unless the content is the accounts; all below it only then.
    PickNotice notice;

    /// Empty unless the folders are being looked up again.
    std::string checking;

    /// In the order of the session's accounts.
    PickMenu accounts;
    std::vector<FolderWords> folders;

    std::string reachTitle = "HOW FAR BACK";
    /// In the order of `Reach`.
    PickMenu reach;
    PickMenu limit;
    /// What each entry of `limit` sets; 0 is no cap.
    std::vector<std::int64_t> limits;

    /// How many messages a scan would take; empty while that is unknown.
    std::string count;
    std::string skip;
    bool skips = false;

    std::string sort = "Sort it";
    bool canSort = false;

    friend bool operator==(const PickWords&, const PickWords&) = default;
};

/// Main thread. Asks the disk for the permission, by one byte, only while there are no accounts.
PickWords pickWords(const AppState& state);

std::string_view reachLabel(Reach reach);
/// What the switch that leaves out decided messages says of the selected folder.
std::string skipLine(const AppState& state);

}  // namespace brindlet
