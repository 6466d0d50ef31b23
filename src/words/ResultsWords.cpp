#include "words/ResultsWords.h"

#include <algorithm>

#include "platform/Locale.h"
#include "session/AppState.h"
#include "words/MovedWords.h"

namespace brindlet {
namespace {

/// What the scan was after, of what is still there: junk, or in a junk folder the opposite.
std::int64_t foundBy(const AppState& state) {
    return state.isJunkFolder() ? state.remainingKept() : state.remainingJunk();
}

std::string titleOf(const AppState& state, std::int64_t found) {
    if (found < 1) return state.movedVerdicts().empty() ? "Nothing to sort" : "All done";
    return state.services().locale.grouped(found) +
           (state.isJunkFolder() ? " look like real mail" : " look like junk");
}

/// The folder that the scan on show went through, whatever is selected now. A scan that left
/// nothing behind, or is still ending, has no record yet: what stands there is an older one's.
std::optional<MailFolder> scannedFolder(const AppState& state) {
    const auto& selected = *state.folder;
    const auto& record = state.currentRecord;
    const auto found = static_cast<std::int64_t>(state.verdicts->size());
    if (!record || found < 1 || record->scanned != found) return selected;
    if (selected && selected->name == record->folder) return selected;
    return MailFolder{0, record->folder, found, MailFolder::roleForName(record->folder)};
}

std::int64_t heldRules(const AppState& state) {
    return std::count_if(state.rules.all->begin(), state.rules.all->end(),
                         [](const Rule& rule) { return rule.legacy; });
}

std::string summaryOf(const AppState& state, std::int64_t found) {
    const auto& locale = state.services().locale;
    std::string line = locale.grouped(found) + " out of " +
                       locale.grouped(static_cast<std::int64_t>(state.verdicts->size()));
    if (const auto folder = scannedFolder(state)) line += " in " + folder->name;
    const auto add = [&](const std::string& piece) { line += " \u00b7 " + piece; };

    if (const auto vetoed = state.protectedCount(); vetoed > 0)
        add(locale.grouped(vetoed) + " protected from being moved");
    if (*state.learned > 0)
        add("learned " + locale.grouped(*state.learned) +
            (*state.learned == 1 ? " rule" : " rules"));
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
    const auto folder = scannedFolder(state);
    if (!folder) return {};
    if (folder->role != MailFolder::Role::junk) {
        const auto place = folder->role == MailFolder::Role::inbox ? "your inbox" : folder->name;
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

std::string movedAway(const AppState& state) {
    return state.services().locale.grouped(
               static_cast<std::int64_t>(state.movedVerdicts().size())) +
           " moved. Nothing else here needs a look.";
}

AllMovedWords allMovedWords(const AppState& state) {
    AllMovedWords words;
    words.text = "They're in " + movedPlace(state) +
                 " - nothing was deleted, so you can put any of them back.";
    return words;
}

std::string rulesLabel(const AppState& state) {
    const auto count = state.rules.all->size() + state.rules.session->size();
    if (count == 0) return "Rules";
    return "Rules (" + state.services().locale.grouped(static_cast<std::int64_t>(count)) + ")";
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
    } else if (found < 1 && state.movedVerdicts().empty()) {
        words.nothing = nothingFound(state);
    } else if (found < 1) {
        words.nothing = movedAway(state);
        words.allMoved = allMovedWords(state);
    }
    words.rules = rulesLabel(state);
    words.automatic = state.schedule.enabled() ? "Automatic on" : "Run automatically";
    return words;
}

}  // namespace brindlet
