#include "words/SenderWords.h"

#include "base/Text.h"
#include "platform/Locale.h"
#include "session/AppState.h"

namespace brindlet {

std::string_view displayedName(std::string_view rawSender) {
    const auto open = rawSender.rfind('<');
    if (open == std::string_view::npos || rawSender.find('>', open) == std::string_view::npos)
        return {};
    auto name = trimBlanksAndNewlines(rawSender.substr(0, open));
    if (name.size() > 1 && name.front() == '"' && name.back() == '"')
        name = trimBlanksAndNewlines(name.substr(1, name.size() - 2));
    return name;
}

SenderWords senderWords(const AppState& state, const SenderFacts& facts) {
    const auto& locale = state.services().locale;
    const auto name = displayedName(facts.firstSender);
    SenderWords words;
    words.title = name.empty() ? facts.key : std::string(name);
    if (words.title != facts.key) words.detail = facts.key;
    words.tickSymbol = tickSymbol(facts.ticks);
    words.canTick = facts.ticks.tickable > 0;
    if (words.canTick)
        words.tickHelp = facts.ticks.wouldTick() ? "Tick everything from this sender"
                                                 : "Untick everything from this sender";
    words.count = locale.grouped(facts.messages);
    if (facts.ticks.some()) words.count = locale.grouped(facts.ticks.ticked) + " of " + words.count;
    words.chevron = facts.expanded ? "chevron.up" : "chevron.down";
    words.reviewed = reviewWords(*state.reviewed, facts.key);
    return words;
}

}  // namespace brindlet
