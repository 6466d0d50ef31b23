#include <algorithm>
#include <utility>

#include "mail/JunkDestination.h"
#include "mover/Mover.h"
#include "platform/Clock.h"
#include "platform/MainQueue.h"
#include "platform/UserDefaults.h"
#include "session/AppState.h"
#include "session/MoveRoute.h"
#include "session/MoveStages.h"
#include "session/Moved.h"

namespace brindlet {
namespace {

constexpr const char* allowUIMoveKey = "allowUIMove";

}  // namespace

std::string AppState::destinationName() const {
    if (!*account) return std::string(ownJunkFolder);
    return junkDestination(**account, savedDestination(**account));
}

std::optional<std::string> AppState::savedDestination(const MailAccount& of) const {
    const auto saved = destinations.byAccount->find(of.id);
    return saved == destinations.byAccount->end() ? std::nullopt : std::optional(saved->second);
}

bool AppState::allowsUIMove() const {
    return services_.defaults.boolean(allowUIMoveKey).value_or(false);
}

void AppState::startMove() {
    startMove(Caller::person);
}

void AppState::startMove(Caller caller) {
    if (*moving) return;
    if (!*account || !*folder) {
        moveError.set(moves::matching);
        // One press starts one load: what that could not match stays unmatched.
        if (caller == Caller::load) return;
        if (!pendingAccountLabel && currentRecord) pendingAccountLabel = currentRecord->account;
        retryMoveOnLoad = true;
        loadAccounts(true);
        return;
    }
    if (askGmailIfNeeded(*account, GmailThen::move)) return;

    MoveRun run;
    run.verdicts = *verdicts;
    run.account = **account;
    run.source = (*folder)->name;
    run.destination = moveDestination(run.account, isJunkFolder(), savedDestination(run.account));
    PendingMove pendingMove;
    for (std::uint32_t position = 0; position < run.verdicts.size(); ++position) {
        const Verdict& verdict = run.verdicts[position];
        if (!approved->contains(verdict.id)) continue;
        run.selected.push_back(position);
        if (verdict.messageID) pendingMove.remaining.push_back({verdict.id, *verdict.messageID});
    }
    if (pendingMove.remaining.empty()) return;

    beginMoving(pendingMove.remaining.size(), moves::finding);
    pendingMove.account = run.account.address;
    pendingMove.source = run.source;
    pendingMove.destination = run.destination;
    pendingMove.folderLabel = run.source;
    pendingMove.started = services_.clock.now();
    interrupted.begin(pendingMove);
    screen.set(Screen::results);
    Mover::Request request{std::move(pendingMove.remaining), run.account, run.source,
                           run.destination};
    runMover(
        std::move(request), moveRoute(run.account, run.destination, allowsUIMove()),
        moves::movingInto(run.destination),
        [run](AppState& state, const MoveOutcome& outcome) { state.finishMove(run, outcome); },
        filingThroughGmail(run));
}

void AppState::beginMoving(std::size_t messages, const char* words) {
    moving.set(true);
    movedCount.set(0);
    moveTotal.set(static_cast<std::int64_t>(messages));
    moveError.set(std::nullopt);
    moveNote.set({});
    moveStage.set(words);
}

/// Runs the mover on a thread of its own. `book` is called on the main thread when it has returned,
/// before the task ends. `instead`, if there is one, may do all of that and return true.
void AppState::runMover(Mover::Request request, MoveRoute route, std::string movingWords,
                        std::function<void(AppState&, const MoveOutcome&)> book,
                        std::function<bool()> instead) {
    ++movesBegun_;
    moveTask_ = Task::start(
        TaskPriority::userInitiated,
        [weak = weak_from_this(), mover = mover_, &queue = services_.mainQueue, route,
         request = std::move(request), movingWords = std::move(movingWords), book = std::move(book),
         instead = std::move(instead)](const CancelToken&) {
            if (instead && instead()) return;
            const auto report = [&](Mover::Phase phase, std::int64_t count, std::int64_t of) {
                queue.post([weak, phase, count, of, source = request.source, movingWords] {
                    const auto self = weak.lock();
                    if (self) self->showMoveProgress(phase, count, of, source, movingWords);
                });
            };
            const auto outcome = route == MoveRoute::menu
                                     ? mover->moveByMenu(request, report)
                                     : mover->moveMessages(request, false, report);
            (void)hop(queue, [&] {
                const auto self = weak.lock();
                if (!self) return false;
                self->moving.set(false);
                self->moveStage.set({});
                self->movedCount.set(outcome.moved);
                book(*self, outcome);
                return true;
            });
        });
}

void AppState::showMoveProgress(Mover::Phase phase, std::int64_t count, std::int64_t of,
                                const std::string& source, const std::string& movingWords) {
    if (phase == Mover::Phase::move) {
        movedCount.set(count);
        moveStage.set(movingWords);
    } else {
        moveStage.set(of < 1 ? moves::findingIn(source)
                             : moves::found(count, of, services_.locale));
    }
}

void AppState::finishMove(const MoveRun& run, const MoveOutcome& outcome) {
    interrupted.markDone(outcome.landed);
    std::vector<const Verdict*> gone;
    for (const auto position : run.selected)
        if (landed(run.verdicts[position], outcome)) gone.push_back(&run.verdicts[position]);
    takeOut(gone);
    pastMove.set(PastMove{run.source, run.destination});

    const auto& locale = services_.locale;
    if (outcome.error) {
        moveError.set(outcome.error);
        if (outcome.moved >= 1) moveNote.set(moves::movedBeforeStop(outcome.moved, locale));
        return;  // what is left is on record, and resuming it books the whole
    }
    moveError.set(std::nullopt);
    if (gone.empty()) {
        moveError.set(moves::noneFound(run.source));
        return;
    }
    const auto count = std::ssize(gone);
    moveNote.set(gone.size() == run.selected.size()
                     ? moves::moved(count, run.destination, locale)
                     : moves::movedPart(count, std::ssize(run.selected), locale));
    interrupted.clear();
    bookMoved(gone, run);
}

/// Takes messages out of the list of what is still to review.
void AppState::takeOut(const std::vector<const Verdict*>& gone) {
    movedAlready.mutate([&](auto& ids) {
        for (const auto* verdict : gone) ids.insert(*verdict->messageID);
    });
    approved.mutate([&](Ids& ticked) {
        for (const auto* verdict : gone) ticked.erase(verdict->id);
    });
}

void AppState::bookMoved(const std::vector<const Verdict*>& gone, const MoveRun& run) {
    seen.mark(messageIDs(gone), true, run.account.displayLabel(), run.destination);
    history.setMoved(run.source, run.destination, movedOf(gone));
}

}  // namespace brindlet
