#include "words/MoveWords.h"

#include <algorithm>
#include <utility>

#include "mail/JunkDestination.h"
#include "platform/Locale.h"
#include "session/AppState.h"

namespace brindlet {
namespace {

std::string moveLabel(const AppState& state) {
    return "Move " + state.services().locale.grouped(state.movableCount()) + " to " +
           (state.isJunkFolder() ? "the inbox" : state.destinationName());
}

std::vector<DestinationWords> destinationWords(const AppState& state) {
    if (!*state.account || state.isJunkFolder()) return {};
    const MailAccount& account = **state.account;
    const auto chosen = state.destinationName();
    std::vector<DestinationWords> all;
    for (auto& name : junkCandidates(account)) {
        const bool exists = std::any_of(account.folders.begin(), account.folders.end(),
                                        [&](const auto& folder) { return folder.name == name; });
        DestinationWords words;
        words.label = exists ? name : name + " (new folder)";
        if (!exists) words.help = "This folder doesn't exist yet - Brindlet will create it";
        words.chosen = name == chosen;
        if (words.chosen) words.symbol = "checkmark";
        words.name = std::move(name);
        all.push_back(std::move(words));
    }
    return all;
}

MoveStatusWords running(const AppState& state) {
    MoveStatusWords words;
    words.title = state.moveStage->empty() ? "Working" : *state.moveStage;
    const auto total = *state.moveTotal;
    if (total < 1) return words;
    const auto& locale = state.services().locale;
    words.count = locale.grouped(*state.movedCount) + " of " + locale.grouped(total) + " moved";
    words.share =
        std::clamp(static_cast<double>(*state.movedCount) / static_cast<double>(total), 0.0, 1.0);
    return words;
}

MoveStatusWords failed(const AppState& state) {
    MoveStatusWords words;
    words.symbol = "exclamationmark.triangle.fill";
    words.text = **state.moveError;
    words.state = MoveStatusWords::State::partFailed;
    if (*state.movedCount > 0) return words;
    words.state = MoveStatusWords::State::allFailed;
    words.title = "Nothing moved";
    return words;
}

std::optional<MoveStatusWords> statusWords(const AppState& state) {
    if (*state.moving) return running(state);
    if (*state.moveError) return failed(state);
    if (state.moveNote->empty()) return std::nullopt;
    MoveStatusWords words;
    words.state = MoveStatusWords::State::done;
    words.symbol = "checkmark.circle.fill";
    words.text = *state.moveNote;
    return words;
}

}  // namespace

MoveWords moveWords(const AppState& state) {
    MoveWords words;
    words.moving = *state.moving;
    words.offered = words.moving || !state.remainingVerdicts().empty();
    words.label = moveLabel(state);
    words.canMove = !words.moving && state.movableCount() > 0;
    if (!words.moving) words.destinations = destinationWords(state);
    words.status = statusWords(state);
    return words;
}

}  // namespace brindlet
