#include <utility>

#include "mail/GmailAccount.h"
#include "platform/MainQueue.h"
#include "session/AppState.h"
#include "session/MoveRoute.h"
#include "session/MoveStages.h"

namespace brindlet {

bool AppState::askGmailIfNeeded(const std::optional<MailAccount>& of, GmailThen then) {
    if (!of || !isGmail(*of) || of->address.empty()) return false;
    if (gmailConnected->contains(of->address) || declinedGmail.contains(of->address)) return false;
    askThen = then;
    askingGmail.set(of);
    return true;
}

void AppState::gmailLinked(const MailAccount& of) {
    gmailConnected.mutate([&](auto& addresses) { addresses.insert(of.address); });
    declinedGmail.erase(of.address);
    askingGmail.set(std::nullopt);
    goOnAfterGmail();
}

void AppState::gmailDeclined(const MailAccount& of) {
    declinedGmail.insert(of.address);
    askingGmail.set(std::nullopt);
    goOnAfterGmail();
}

void AppState::goOnAfterGmail() {
    switch (std::exchange(askThen, GmailThen::nothing)) {
        case GmailThen::scan:
            return startScan(std::nullopt, std::nullopt);
        case GmailThen::move:
            return startMove();
        case GmailThen::nothing:
            return;
    }
}

// The question itself would not be put to an account that has declined it.
void AppState::connectGmail(const MailAccount& of) {
    askThen = GmailThen::nothing;
    askingGmail.set(of);
}

void AppState::disconnectGmail(const MailAccount& of) {
    (void)Task::start(TaskPriority::userInitiated,
                      [gmail = gmail_, address = of.address](const CancelToken&) {
                          gmail->forgetAppPassword(address);
                      });
    gmailConnected.mutate([&](auto& addresses) { addresses.erase(of.address); });
}

/// Files the run's mail on Gmail's own server; false when there is no password to do it with. None
/// where Gmail is not to be asked at all. For another thread, since the system's safe may ask the
/// person first.
std::function<bool()> AppState::filingThroughGmail(const MoveRun& run) {
    if (!mayFileThroughGmail(run.account, run.destination, isJunkFolder())) return {};
    Gmail::Filing what{{}, run.account.address, run.destination, true};
    for (const auto position : run.selected)
        if (const auto& id = run.verdicts[position].messageID) what.ids.push_back(*id);
    return [weak = weak_from_this(), gmail = gmail_, &queue = services_.mainQueue, run,
            what = std::move(what)] {
        if (!gmail->readAppPassword(what.address)) return false;
        queue.post([weak] {
            if (const auto self = weak.lock()) self->moveStage.set(moves::filing);
        });
        const auto filed = gmail->fileThroughGmail(what);
        (void)hop(queue, [&] {
            const auto self = weak.lock();
            if (self) self->finishFiling(run, filed);
            return self != nullptr;
        });
        return true;
    };
}

void AppState::finishFiling(const MoveRun& run, const Gmail::Filed& filed) {
    moving.set(false);
    moveStage.set({});
    movedCount.set(filed.count);
    if (filed.error) {
        moveError.set(filed.error);
        return;  // the saved move keeps the whole list
    }
    // All count as moved, even where the account did not have every one of them.
    std::vector<const Verdict*> gone;
    for (const auto position : run.selected)
        if (run.verdicts[position].messageID) gone.push_back(&run.verdicts[position]);
    takeOut(gone);
    pastMove.set(PastMove{run.source, run.destination});
    moveError.set(std::nullopt);
    moveNote.set(moves::moved(filed.count, run.destination, services_.locale));
    interrupted.clear();
    bookMoved(gone, run);
    persistSoon();
}

}  // namespace brindlet
