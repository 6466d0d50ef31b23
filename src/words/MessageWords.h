#pragma once

#include <string>

#include "classify/Verdict.h"
#include "words/Mark.h"

namespace brindlet {

class AppState;

/// One message of a list.
struct MessageWords {
    std::string subject;
    std::string sender;
    std::string tickSymbol;
    /// Why there is no tick; empty where there can be one.
    std::string tickHelp;
    bool canTick = false;
    /// What the person wants done otherwise than the scan proposed; empty when nothing.
    Mark note;
    /// Empty when no link leads to the message.
    std::string openHelp;

    friend bool operator==(const MessageWords&, const MessageWords&) = default;
};

/// Main thread; for the rows on show.
MessageWords messageWords(const AppState& state, const Verdict& verdict);

}  // namespace brindlet
