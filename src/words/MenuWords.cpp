#include "words/MenuWords.h"

#include <utility>

#include "platform/Locale.h"
#include "session/AppState.h"
#include "words/AutomaticWords.h"
#include "words/Decimal.h"

namespace brindlet {
namespace {

using Command = MenuLine::Command;
using Lines = std::vector<MenuLine>;

MenuLine words(std::string text) {
    return {std::move(text), std::nullopt};
}

MenuLine divider() {
    return {};
}

Lines runningLines(const AppState& state) {
    const auto& locale = state.services().locale;
    Lines lines;
    lines.push_back(
        words("Sorting " + locale.grouped(*state.done) + " / " + locale.grouped(*state.total)));
    lines.push_back(words(oneDecimal(*state.rate) + " a second"));
    if (auto left = state.etaText()) lines.push_back(words(*std::move(left)));
    lines.push_back(divider());
    lines.push_back({"Stop", Command::stop});
    return lines;
}

Lines statusLines(const AppState& state) {
    const auto& locale = state.services().locale;
    if (*state.running) return runningLines(state);
    if (*state.moving) return {words("Moving " + locale.grouped(*state.moveTotal) + "\u2026")};
    if (state.verdicts->empty()) return {words("Nothing running"), words(automaticStatus(state))};
    return {words(locale.grouped(state.remainingJunk()) + " junk of " +
                  locale.grouped(std::ssize(*state.verdicts))),
            words(automaticStatus(state))};
}

}  // namespace

MenuWords menuWords(const AppState& state) {
    MenuWords menu;
    menu.symbol = *state.running ? "tray.full.fill" : "tray";
    menu.lines = statusLines(state);
    menu.lines.push_back(divider());
    menu.lines.push_back({"Open Brindlet", Command::open});
    menu.lines.push_back({"Quit", Command::quit});
    return menu;
}

}  // namespace brindlet
