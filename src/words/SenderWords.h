#pragma once

#include <cstdint>
#include <string>
#include <string_view>

#include "words/ReviewWords.h"
#include "words/TickBox.h"

namespace brindlet {

class AppState;

/// The row that stands for all messages of one sender.
struct SenderWords {
    std::string title;
    /// The key below the name; empty when it is the title already.
    std::string detail;
    std::string tickSymbol;
    /// Empty where there is nothing to tick.
    std::string tickHelp;
    bool canTick = false;
    std::string count;
    std::string chevron;
    ReviewWords reviewed;

    friend bool operator==(const SenderWords&, const SenderWords&) = default;
};

/// What one sender's row stands for.
struct SenderFacts {
    /// The group's key; also what `reviewed` remembers it by.
    std::string key;
    /// The raw sender of its first message.
    std::string_view firstSender;
    std::int64_t messages = 0;
    TickCount ticks;
    bool expanded = false;
};

/// Main thread; for the rows on show.
SenderWords senderWords(const AppState& state, const SenderFacts& facts);

/// The name that a raw sender gives itself, without quotation marks; empty when it has only an
/// address.
std::string_view displayedName(std::string_view rawSender);

}  // namespace brindlet
