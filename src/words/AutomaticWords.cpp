#include "words/AutomaticWords.h"

#include <iterator>
#include <utility>

#include "platform/Locale.h"
#include "session/AppState.h"
#include "session/Watched.h"
#include "words/FolderWords.h"
#include "words/TickBox.h"

namespace brindlet {
namespace {

std::string pickedNote(const AppState& state) {
    const auto count = std::ssize(state.schedule.watched());
    if (count == 0) return "pick at least one, or nothing will run";
    return state.services().locale.grouped(count) + " picked";
}

std::string goneLine(const AppState& state) {
    const auto gone = goneWatched(*state.accounts, state.schedule.watched());
    if (gone.empty()) return {};
    if (gone.size() == 1) return gone.front().folder + " is no longer in Mail, so it is skipped.";
    return state.services().locale.grouped(std::ssize(gone)) +
           " picked mailboxes are no longer in Mail, so they are skipped.";
}

PickMenu cadenceMenu(Cadence chosen) {
    PickMenu menu;
    for (const auto cadence : allCases<Cadence>()) {
        if (cadence == chosen) menu.chosen = static_cast<int>(menu.labels.size());
        menu.labels.emplace_back(cadenceLabel(cadence));
    }
    return menu;
}

ModeWords modeWords(SortMode mode, SortMode chosen) {
    ModeWords words;
    words.chosen = mode == chosen;
    words.symbol = words.chosen ? "largecircle.fill.circle" : "circle";
    if (mode == SortMode::review) {
        words.title = "Collect for review";
        words.text =
            "Brindlet sorts quietly and saves what it found. Nothing moves until you look and "
            "approve.";
    } else {
        words.title = "Move it for me";
        words.text =
            "Anything Brindlet is confident about moves on its own. Receipts, codes and bills are "
            "still never moved.";
    }
    return words;
}

WatchRow accountRow(const MailAccount& account, bool open) {
    WatchRow row;
    row.id = account.id;
    row.account = account.id;
    row.symbol = "person.crop.circle";
    row.name = account.displayLabel();
    row.chevron = open ? "chevron.up" : "chevron.down";
    row.open = open;
    return row;
}

WatchRow folderRow(const MailAccount& account, const MailFolder& folder, bool ticked) {
    WatchRow row;
    row.id = account.id + "/" + folder.name;
    row.account = account.id;
    row.folder = folder.name;
    row.symbol = tickSymbol({ticked ? 1 : 0, 1});
    row.name = folder.name;
    row.note = folderNote(folder.role);
    row.ticked = ticked;
    return row;
}

}  // namespace

AutomaticWords automaticWords(const AppState& state) {
    AutomaticWords words;
    words.enabled = state.schedule.enabled();
    words.summary = state.schedule.summary();
    words.mailboxesNote = pickedNote(state);
    if (state.accounts->empty())
        words.noAccounts = "No accounts read yet - open Brindlet's main screen once.";
    words.gone = goneLine(state);
    words.cadences = cadenceMenu(state.schedule.cadence());
    for (const auto mode : allCases<SortMode>())
        words.modes.push_back(modeWords(mode, state.schedule.mode()));
    words.canRun = !*state.running && !*state.moving && !state.automaticRunning() &&
                   !state.schedule.watched().empty();
    return words;
}

std::vector<WatchRow> watchRows(const AppState& state, const std::set<std::string>& open) {
    std::set<std::pair<std::string, std::string>> picked;
    for (const auto& each : state.schedule.watched()) picked.emplace(each.account, each.folder);
    std::vector<WatchRow> rows;
    for (const auto& account : *state.accounts) {
        const bool isOpen = open.contains(account.id);
        rows.push_back(accountRow(account, isOpen));
        if (!isOpen) continue;
        for (const auto& folder : account.folders)
            rows.push_back(folderRow(account, folder, picked.contains({account.id, folder.name})));
    }
    return rows;
}

std::string automaticLink(const AppState& state) {
    const auto count = std::ssize(state.schedule.watched());
    if (!state.schedule.enabled() || count == 0) return "Automatic sorting";
    return "Automatic: " + state.services().locale.grouped(count) + " mailbox" +
           (count == 1 ? "" : "es");
}

std::string automaticStatus(const AppState& state) {
    return "Automatic: " + state.schedule.summary();
}

}  // namespace brindlet
