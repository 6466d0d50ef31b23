#include <algorithm>
#include <utility>

#include "mail/GmailAccount.h"
#include "platform/Clock.h"
#include "platform/MainQueue.h"
#include "session/AccountMatch.h"
#include "session/AppState.h"

namespace brindlet {

void AppState::loadAccounts(bool force) {
    if (!force && !accounts->empty() && !pendingAccountLabel) return;
    if (*loadingAccounts) return;
    loadingAccounts.set(true);
    (void)Task::start(TaskPriority::userInitiated, [weak = weak_from_this(), mail = mail_,
                                                    gmail = gmail_,
                                                    &queue = services_.mainQueue](const auto&) {
        auto loaded = mail->loadAccounts(true, true);
        std::set<std::string> connected;
        for (const auto& each : loaded)
            if (isGmail(each) && gmail->hasAppPassword(each.address))
                connected.insert(each.address);
        queue.post([weak, loaded = std::move(loaded), connected = std::move(connected)]() mutable {
            if (const auto self = weak.lock())
                self->adoptAccounts(std::move(loaded), std::move(connected));
        });
    });
}

void AppState::adoptAccounts(std::vector<MailAccount> loaded, std::set<std::string> connected) {
    accounts.set(std::move(loaded));
    if (pendingAccountLabel) matchPendingLabel();
    if (!*account && !accounts->empty()) account.set(accounts->front());
    loadingAccounts.set(false);
    if (accounts->empty() && !canReadIndex()) {
        retryMoveOnLoad = false;
        moveError.set(
            "macOS has dropped Brindlet's Full Disk Access - flip it back on in Privacy & "
            "Security, then try again.");
        return;  // a resume waits for the load that finds accounts
    }
    if (std::exchange(retryMoveOnLoad, false) && *account) startMove(Caller::load);
    if (std::exchange(retryResumeOnLoad, false)) resumeMove(Caller::load);
    gmailConnected.set(std::move(connected));
}

void AppState::matchPendingLabel() {
    const auto label = *std::exchange(pendingAccountLabel, std::nullopt);
    if (const auto* match = accountForLabel(*accounts, label)) account.set(*match);
}

void AppState::refreshFolders() {
    if (accounts->empty() || *running || *moving || *refreshingFolders) return;
    refreshingFolders.set(true);
    (void)Task::start(TaskPriority::utility, [weak = weak_from_this(), mail = mail_,
                                              &queue = services_.mainQueue](const auto&) {
        auto loaded = mail->loadAccounts(false, true);
        queue.post([weak, loaded = std::move(loaded)]() mutable {
            const auto self = weak.lock();
            if (!self) return;
            self->refreshingFolders.set(false);
            if (!loaded.empty()) self->adoptRefreshedFolders(std::move(loaded));
        });
    });
}

void AppState::adoptRefreshedFolders(std::vector<MailAccount> loaded) {
    const auto oldAccount = *account;
    const auto oldFolder = *folder;
    accounts.set(std::move(loaded));
    if (!oldAccount) return;
    const auto& all = *accounts;
    const auto entry = std::find_if(all.begin(), all.end(), [&](const MailAccount& candidate) {
        return candidate.id == oldAccount->id;
    });
    if (entry == all.end()) {
        account.set(all.front());
        folder.set(std::nullopt);
        refreshInReach();
        return;
    }
    account.set(*entry);
    if (!oldFolder) return;
    if (const auto* match = folderAsBefore(*entry, *oldFolder)) {
        folder.set(*match);
        if (*match != *oldFolder) refreshInReach();
        return;
    }
    folder.set(std::nullopt);
    refreshInReach();
    folderVanished.set(oldFolder->name);
}

void AppState::refreshInReach() {
    if (!*folder) {
        inReach.set(std::nullopt);
        return;
    }
    const auto since = reachCutoff(*reach, services_.clock.now());
    const auto subtract = seen.skipSeen() ? decidedInFolder() : 0;
    (void)Task::start(TaskPriority::utility, [weak = weak_from_this(), mail = mail_,
                                              &queue = services_.mainQueue, mailbox = (*folder)->id,
                                              most = *limit, since, subtract](const auto&) {
        const auto rows = mail->messages(mailbox, most, since).size();
        const auto left = std::max<std::int64_t>(0, static_cast<std::int64_t>(rows) - subtract);
        queue.post([weak, left] {
            if (const auto self = weak.lock()) self->inReach.set(left);
        });
    });
}

void AppState::selectAccount(const MailAccount& chosen) {
    const bool another = !*account || (*account)->id != chosen.id;
    account.set(chosen);
    if (!another) return;
    folder.set(std::nullopt);
    inReach.set(std::nullopt);
}

void AppState::selectFolder(const MailFolder& chosen) {
    if (chosen.count < 1) return;
    folder.set(chosen);
    refreshInReach();
}

void AppState::dismissVanished() {
    folderVanished.set(std::nullopt);
}

}  // namespace brindlet
