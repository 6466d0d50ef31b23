#pragma once

#include <optional>
#include <string>
#include <vector>

#include "words/Mark.h"
#include "words/SymbolLine.h"

namespace brindlet {

class AppState;

/// What the picker says of a Gmail account: whether Brindlet may file its mail, and what that
/// takes.
struct GmailNoticeWords {
    bool connected = false;
    std::string symbol;
    Tone tone = Tone::plain;
    std::string title;
    std::string text;
    /// Connects, or disconnects.
    std::string control;

    friend bool operator==(const GmailNoticeWords&, const GmailNoticeWords&) = default;
};

/// What the permission means, behind a line that opens and closes it.
struct GmailPermissionWords {
    std::string more = "Google will ask for a lot - here is what is actually used";
    std::string moreSymbol = "chevron.down";
    std::string less = "Hide what this permission means";
    std::string lessSymbol = "chevron.up";
    std::vector<SymbolLine> lines;

    GmailPermissionWords();

    friend bool operator==(const GmailPermissionWords&, const GmailPermissionWords&) = default;
};

/// None unless the selected account is Gmail's. Main thread.
std::optional<GmailNoticeWords> gmailNoticeWords(const AppState& state);

}  // namespace brindlet
