#include <algorithm>
#include <utility>

#include "session/AppState.h"
#include "session/Corrections.h"

namespace brindlet {
namespace {

/// What a scan file keeps of a message; a category that this version does not know cannot be told.
Verdict restored(ScanRecord::Saved saved) {
    Verdict verdict;
    verdict.id = saved.n;
    verdict.messageID = std::move(saved.messageID);
    verdict.sender = std::move(saved.sender);
    verdict.subject = std::move(saved.subject);
    verdict.category = fromRaw<Category>(saved.category).value_or(Category::cannotTell);
    verdict.isJunk = saved.isJunk;
    verdict.vetoed = saved.vetoed;
    return verdict;
}

}  // namespace

void AppState::openRecord(const ScanRecord& chosen) {
    // It may be the scan on show, whose last ticks have not reached its file yet.
    persistNow();
    scanFiles_.drain();
    auto saved = history.readScan(chosen.started);
    if (!saved) return;
    const ScanRecord record = chosen;  // it may be `currentRecord` itself

    std::vector<Verdict> list;
    list.reserve(saved->size());
    for (auto& message : *saved) list.push_back(restored(std::move(message)));
    verdicts.set(VerdictList(std::move(list)));
    families.clear();
    currentRecord = record;
    restoreReviewState();
    // The id is no mailbox's: this folder can be looked at, not scanned.
    folder.set(
        MailFolder{0, record.folder, std::ssize(*saved), MailFolder::roleForName(record.folder)});
    selectRecordAccount(record.account);
    learned.set(0);
    moveNote.set({});
    moveError.set(std::nullopt);
    movedCount.set(0);
    pending.set(std::nullopt);

    std::unordered_set<std::string> gone;
    for (const auto& moved : record.moved) gone.insert(moved.messageID);
    movedAlready.set(std::move(gone));
    putBack.set({});
    pastMove.set(record.movedTo ? std::optional(PastMove{record.folder, *record.movedTo})
                                : std::nullopt);

    std::vector<std::int64_t> ticked;
    for (const auto position : remainingVerdicts()) {
        const Verdict& verdict = (*verdicts)[position];
        if (verdict.messageID &&
            (*saved)[position].approved.value_or(proposesTick(isJunkFolder(), verdict.isJunk)))
            ticked.push_back(verdict.id);
    }
    approved.set(Ids(std::move(ticked)));
    navigate(Screen::results);
}

void AppState::selectRecordAccount(const std::string& label) {
    const auto& all = *accounts;
    const auto match = std::find_if(all.begin(), all.end(), [&](const MailAccount& candidate) {
        return candidate.displayLabel() == label;
    });
    if (match != all.end()) {
        account.set(*match);
        return;
    }
    pendingAccountLabel = label;
    loadAccounts(false);
}

}  // namespace brindlet
