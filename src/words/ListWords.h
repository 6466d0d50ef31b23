#pragma once

#include <cstdint>
#include <string>

namespace brindlet {

class Locale;

/// The words around the rows of an open category.
struct ListWords {
    std::string filterSymbol = "magnifyingglass";
    std::string filterPrompt = "Filter by sender or subject - sale";
    std::string tickAll = "Tick all";
    std::string untickAll = "Untick all";
    std::string bySenderSymbol = "person.2";
    std::string bySender = "By sender";
    std::string bySenderHelp = "One row per sender instead of one per message";
    /// Over the messages that protection kept.
    std::string stayPut = "These stay put - none of them will be moved";
};

/// How many messages a filter leaves.
std::string matchLine(std::int64_t matches, const Locale& locale);
/// Stands at the foot of a list that is longer than its frame.
std::string messagesScrollLine(std::int64_t messages, const Locale& locale);
std::string sendersScrollLine(std::int64_t senders, const Locale& locale);

}  // namespace brindlet
