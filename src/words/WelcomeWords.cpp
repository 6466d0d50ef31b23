#include "words/WelcomeWords.h"

#include <iterator>

#include "platform/Locale.h"
#include "session/AppState.h"
#include "words/AutomaticWords.h"

namespace brindlet {

std::vector<HomeLink> homeLinks(const AppState& state) {
    const auto& locale = state.services().locale;
    std::vector<HomeLink> links;
    if (const auto moved = state.history.totalMoved(); moved > 0)
        links.push_back({HomeLink::To::history, "list.bullet.rectangle",
                         locale.grouped(moved) + " messages filed so far"});
    std::string rules = "Manage rules";
    if (const auto count = std::ssize(*state.rules.all) + std::ssize(*state.rules.session);
        count > 0)
        rules += " (" + locale.grouped(count) + ")";
    links.push_back({HomeLink::To::rules, "wand.and.stars", std::move(rules)});
    links.push_back({HomeLink::To::automatic, "clock.arrow.2.circlepath", automaticLink(state)});
    if (!state.history.records->empty() || !state.history.deleted->empty())
        links.push_back({HomeLink::To::history, "clock.arrow.circlepath", "History"});
    return links;
}

}  // namespace brindlet
