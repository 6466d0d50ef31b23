#include "words/PickWords.h"

#include <algorithm>

#include "platform/Locale.h"
#include "session/AppState.h"

namespace brindlet {
namespace {

constexpr std::int64_t quickLook = 500;
constexpr std::int64_t noCap = 0;

PickWords::Content contentOf(const AppState& state) {
    if (!state.accounts->empty()) return PickWords::Content::accounts;
    if (*state.loadingAccounts) return PickWords::Content::finding;
    return state.canReadIndex() ? PickWords::Content::noAccounts : PickWords::Content::unreadable;
}

PickNotice noticeFor(PickWords::Content content) {
    PickNotice notice;
    switch (content) {
        case PickWords::Content::accounts:
            break;
        case PickWords::Content::finding:
            notice.title = "Finding your mailboxes";
            notice.text = "Asking Mail for your accounts. A couple of seconds.";
            break;
        case PickWords::Content::unreadable:
            notice.title = "Brindlet can't read Mail's files";
            notice.text =
                "Your accounts are there, but macOS keeps Mail's files behind Full Disk Access. "
                "Switch Brindlet on in Privacy & Security, then press Check again.";
            notice.openSettings = "Open Settings";
            notice.checkAgain = "Check again";
            break;
        case PickWords::Content::noAccounts:
            notice.title = "No accounts set up in Mail yet";
            notice.text =
                "Brindlet sorts the accounts you have already added to Apple Mail - it never asks "
                "for an email password. Add your account in Mail \u2192 Settings \u2192 Accounts, "
                "let it finish downloading, then come back.";
            notice.openMail = "Open Mail";
            notice.checkAgain = "Check again";
            break;
    }
    return notice;
}

PickMenu accountMenu(const AppState& state) {
    PickMenu menu;
    for (const auto& account : *state.accounts) {
        if (*state.account && (*state.account)->id == account.id)
            menu.chosen = static_cast<int>(menu.labels.size());
        menu.labels.push_back(account.displayLabel());
    }
    return menu;
}

PickMenu reachMenu(Reach chosen) {
    PickMenu menu;
    for (const auto reach : allCases<Reach>()) {
        if (reach == chosen) menu.chosen = static_cast<int>(menu.labels.size());
        menu.labels.emplace_back(reachLabel(reach));
    }
    return menu;
}

/// A stored limit that is none of the offered ones gets an entry of its own, in its place.
std::vector<std::int64_t> limitsOffered(std::int64_t stored) {
    std::vector<std::int64_t> limits = {quickLook, 2000};
    if (stored > 0 && std::find(limits.begin(), limits.end(), stored) == limits.end())
        limits.insert(std::upper_bound(limits.begin(), limits.end(), stored), stored);
    limits.push_back(noCap);
    return limits;
}

PickMenu limitMenu(const std::vector<std::int64_t>& limits, std::int64_t stored,
                   const Locale& locale) {
    PickMenu menu;
    for (const auto limit : limits) {
        if (limit == std::max(stored, noCap)) menu.chosen = static_cast<int>(menu.labels.size());
        if (limit == noCap)
            menu.labels.emplace_back("Everything");
        else
            menu.labels.push_back("First " + locale.grouped(limit) +
                                  (limit == quickLook ? " - quick look" : ""));
    }
    return menu;
}

std::string countLine(const AppState& state) {
    // A count that is on its way may come after its folder has gone.
    if (!*state.folder || !*state.inReach) return {};
    const bool leavesOut = state.seen.skipSeen() && state.decidedInFolder() > 0;
    return state.services().locale.grouped(**state.inReach) +
           (leavesOut ? " new to sort" : " to sort");
}

}  // namespace

std::string_view reachLabel(Reach reach) {
    switch (reach) {
        case Reach::week:
            return "Past week";
        case Reach::month:
            return "Past month";
        case Reach::threeMonths:
            return "Past 3 months";
        case Reach::year:
            return "Past year";
        case Reach::everything:
            break;
    }
    return "Everything";
}

std::string skipLine(const AppState& state) {
    if (!*state.folder) return "Skip anything I've already sorted";
    const auto decided = state.decidedInFolder();
    const auto number = state.services().locale.grouped(decided);
    if (state.isJunkFolder())
        return decided > 0 ? "Skip the " + number + " Brindlet filed here"
                           : "Nothing here was filed by Brindlet yet";
    return decided > 0 ? "Skip the " + number + " already sorted in this folder"
                       : "Nothing here has been sorted yet";
}

PickWords pickWords(const AppState& state) {
    PickWords words;
    words.content = contentOf(state);
    words.notice = noticeFor(words.content);
    if (*state.folderVanished)
        words.vanished = **state.folderVanished + " isn't in Mail any more - pick another folder.";
    if (words.content != PickWords::Content::accounts) return words;

    if (*state.refreshingFolders) words.checking = "Checking mailboxes";
    words.accounts = accountMenu(state);
    if (*state.account) {
        const auto lastScans = state.history.lastScans();
        for (const auto& folder : (*state.account)->folders)
            words.folders.push_back(folderWords(state, folder, lastScans));
    }
    words.reach = reachMenu(*state.reach);
    words.limits = limitsOffered(*state.limit);
    words.limit = limitMenu(words.limits, *state.limit, state.services().locale);
    words.count = countLine(state);
    words.skip = skipLine(state);
    words.skips = state.seen.skipSeen();
    words.canSort = state.account->has_value() && state.folder->has_value();
    return words;
}

}  // namespace brindlet
