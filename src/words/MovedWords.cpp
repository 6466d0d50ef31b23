#include "words/MovedWords.h"

#include "platform/Locale.h"
#include "session/AppState.h"
#include "words/Subject.h"
#include "words/TickBox.h"

namespace brindlet {

std::string movedPlace(const AppState& state) {
    const auto& past = *state.pastMove;
    return past ? past->to : "your junk folder";
}

std::optional<MovedSectionWords> movedSectionWords(const AppState& state, bool open) {
    if (state.movedAlready->empty()) return std::nullopt;
    const auto& past = *state.pastMove;
    MovedSectionWords words;
    words.heading = "Already moved to " + movedPlace(state);
    words.chevron = open ? "chevron.up" : "chevron.down";
    // Without these the session returns nothing.
    words.ready = !*state.moving && *state.account && past;
    if (const auto ticked = state.putBackCount(); ticked > 0) {
        const auto count = state.services().locale.grouped(ticked);
        words.count = count + " to put back";
        words.putBack = "Put " + count + " back in " + (past ? past->from : "the inbox");
    }
    return words;
}

std::string movedScrollLine(std::int64_t messages, const Locale& locale) {
    return locale.grouped(messages) + " messages - scroll to see them all";
}

MovedRowWords movedRowWords(const AppState& state, const Verdict& verdict) {
    return {shownSubject(verdict.subject), verdict.sender,
            tickSymbol({state.putBack->contains(verdict.id), 1})};
}

}  // namespace brindlet
