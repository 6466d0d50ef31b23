#include "words/ResultsWords.h"

#include <algorithm>

#include "platform/Locale.h"
#include "session/AppState.h"

namespace brindlet {
namespace {

/// What the scan was after: junk, or in a junk folder the opposite.
std::int64_t foundBy(const AppState& state) {
    const auto junk = state.verdicts->junkCount();
    return state.isJunkFolder() ? static_cast<std::int64_t>(state.verdicts->size()) - junk : junk;
}

std::string titleOf(const AppState& state, std::int64_t found) {
    if (found < 1) return "Nothing to sort";
    return state.services().locale.grouped(found) +
           (state.isJunkFolder() ? " look like real mail" : " look like junk");
}

std::int64_t heldRules(const AppState& state) {
    return std::count_if(state.rules.all->begin(), state.rules.all->end(),
                         [](const Rule& rule) { return rule.legacy; });
}

std::string summaryOf(const AppState& state, std::int64_t found) {
    const auto& locale = state.services().locale;
    std::string line = locale.grouped(found) + " out of " +
                       locale.grouped(static_cast<std::int64_t>(state.verdicts->size()));
    if (*state.folder) line += " in " + (*state.folder)->name;
    const auto add = [&](const std::string& piece) { line += " \u00b7 " + piece; };

    if (const auto vetoed = state.verdicts->vetoedCount(); vetoed > 0)
        add(locale.grouped(vetoed) + " protected from being moved");
    if (*state.skipped > 0) add("skipped " + locale.grouped(*state.skipped) + " already sorted");
    if (const auto held = heldRules(state); held > 0)
        add(locale.grouped(held) + " rules await review and were NOT applied");
    if (*state.correspondentCount > 0)
        add(locale.grouped(*state.correspondentCount) + " people you've written to were protected");
    for (const auto& row : state.calibration.rows())
        add(std::string(displayName(row.category)) + " treated as " +
            std::string(rawValue(row.verdict)) + " (learned)");
    return line;
}

std::string nothingFound(const AppState& state) {
    if (!*state.folder) return {};
    const auto& folder = **state.folder;
    if (folder.role != MailFolder::Role::junk) {
        const auto place = folder.role == MailFolder::Role::inbox ? "your inbox" : folder.name;
        return "Brindlet went through " + place + " and found nothing worth moving.";
    }
    std::string text =
        "This folder is already junk, so Brindlet looked for the opposite: real mail that got "
        "filtered by mistake.";
    if (*state.skipped > 0)
        text += " Skipped " + state.services().locale.grouped(*state.skipped) +
                " it had already decided about.";
    return text;
}

}  // namespace

ResultsWords resultsWords(const AppState& state) {
    const auto found = foundBy(state);
    ResultsWords words;
    words.title = titleOf(state, found);
    words.summary = summaryOf(state, found);
    if (*state.scanError) {
        words.scanError.emplace();
        words.scanError->sentence = **state.scanError;
    } else if (found < 1) {
        words.nothing = nothingFound(state);
    }
    return words;
}

}  // namespace brindlet
