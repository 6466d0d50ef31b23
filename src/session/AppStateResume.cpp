#include <algorithm>

#include "platform/RunningApps.h"
#include "session/AppState.h"
#include "session/MoveStages.h"
#include "session/Moved.h"

namespace brindlet {
namespace {

constexpr const char* mailBundle = "com.apple.mail";

}  // namespace

void AppState::resumeMove() {
    resumeMove(Caller::person);
}

void AppState::resumeMove(Caller caller) {
    if (!*interrupted.pending || *moving) return;
    const PendingMove left = **interrupted.pending;
    if (accounts->empty() && caller == Caller::person) {
        pendingAccountLabel = left.account;
        retryResumeOnLoad = true;
        loadAccounts(true);
        return;
    }
    const auto found =
        std::find_if(accounts->begin(), accounts->end(),
                     [&](const MailAccount& each) { return each.address == left.account; });
    if (found == accounts->end()) {
        moveError.set(moves::accountGone(left.account));
        return;
    }
    const MailAccount from = *found;
    if (!services_.runningApps.isRunning(mailBundle)) {
        moveError.set(moves::mailClosed);
        return;
    }
    if (verdicts->empty()) {
        const auto& records = *history.records;
        const auto record =
            std::find_if(records.begin(), records.end(), [&](const ScanRecord& each) {
                return each.account == left.account && each.folder == left.source;
            });
        if (record != records.end()) openRecord(*record);
    }
    beginMoving(left.remaining.size(), moves::resuming);
    screen.set(Screen::results);
    Mover::Request request{left.remaining, from, left.source, left.destination};
    MoveRun run;
    run.account = from;
    run.source = left.source;
    run.destination = left.destination;
    runMover(
        std::move(request), moveRoute(from, left.destination, allowsUIMove()),
        moves::movingInto(left.destination),
        [run](AppState& state, const MoveOutcome& outcome) { state.finishResume(run, outcome); });
}

void AppState::finishResume(const MoveRun& run, const MoveOutcome& outcome) {
    interrupted.markDone(outcome.landed);
    // What is on show may be another scan, which then knows none of these messages.
    const auto shown = *verdicts;
    std::vector<const Verdict*> known;
    for (const auto& verdict : shown)
        if (landed(verdict, outcome)) known.push_back(&verdict);
    takeOut(known);
    movedAlready.mutate(
        [&](auto& ids) { ids.insert(outcome.landed.begin(), outcome.landed.end()); });
    if (!known.empty() && isOnShow(run)) pastMove.set(PastMove{run.source, run.destination});
    const std::vector<std::string> ids(outcome.landed.begin(), outcome.landed.end());
    seen.mark(ids, true, run.account.displayLabel(), run.destination);
    history.setMoved(run.source, run.destination, movedOf(known));

    const auto left = *interrupted.pending ? std::ssize((*interrupted.pending)->remaining) : 0;
    if (left == 0) interrupted.clear();
    if (outcome.error)
        moveError.set(outcome.error);
    else
        moveNote.set(left > 0 ? moves::someLeft(outcome.moved, left, services_.locale)
                              : moves::finished(outcome.moved, services_.locale));
}

/// Whether the scan on show is one of the folder that the move takes from.
bool AppState::isOnShow(const MoveRun& run) const {
    return currentRecord && currentRecord->account == run.account.displayLabel() &&
           currentRecord->folder == run.source;
}

void AppState::togglePutBack(std::int64_t id) {
    if (!split().movedIds.contains(id)) return;
    putBack.mutate(
        [&](Ids& chosen) { chosen.contains(id) ? chosen.erase(id) : chosen.insert(id); });
}

void AppState::putBackMoved() {
    if (*moving || !*account || !*pastMove) return;
    MoveRun run;
    run.verdicts = *verdicts;
    run.account = **account;
    run.source = (*pastMove)->to;
    run.destination = (*pastMove)->from;
    std::vector<PendingMove::Item> items;
    for (std::uint32_t position = 0; position < run.verdicts.size(); ++position) {
        const Verdict& verdict = run.verdicts[position];
        if (!verdict.messageID || !putBack->contains(verdict.id)) continue;
        run.selected.push_back(position);
        items.push_back({verdict.id, *verdict.messageID});
    }
    if (items.empty()) return;
    beginMoving(items.size(), moves::puttingBack);
    Mover::Request request{std::move(items), run.account, run.source, run.destination};
    runMover(
        std::move(request), MoveRoute::script, moves::puttingBackInto(run.destination),
        [run](AppState& state, const MoveOutcome& outcome) { state.finishPutBack(run, outcome); });
}

void AppState::finishPutBack(const MoveRun& run, const MoveOutcome& outcome) {
    std::vector<const Verdict*> returned;
    for (const auto position : run.selected)
        if (landed(run.verdicts[position], outcome)) returned.push_back(&run.verdicts[position]);
    seen.mark(messageIDs(returned), false, run.account.displayLabel(), run.destination);
    movedAlready.mutate([&](auto& ids) {
        for (const auto* verdict : returned) ids.erase(*verdict->messageID);
    });
    const auto leave = [&](Ids& ids) {
        for (const auto* verdict : returned) ids.erase(verdict->id);
    };
    putBack.mutate(leave);
    approved.mutate(leave);
    if (outcome.error)
        moveError.set(outcome.error);
    else
        moveNote.set(moves::putBack(outcome.moved, run.destination, services_.locale));
    persistSoon();
}

}  // namespace brindlet
