#include "screens/pick/PickModel.h"

#include "platform/Desktop.h"
#include "screens/QtText.h"
#include "session/AppState.h"
#include "words/SpokenWords.h"

namespace brindlet::screens {
namespace {

/// The entry of a list that a row number from a view means; null when the list has changed since.
template <class T>
const T* at(const std::vector<T>& list, int row) {
    return row >= 0 && static_cast<std::size_t>(row) < list.size()
               ? &list[static_cast<std::size_t>(row)]
               : nullptr;
}

}  // namespace

PickModel::PickModel(AppState& state) : state_(state), gmail_(state), intent_(state) {}

void PickModel::appear() {
    state_.refreshFolders();
    state_.refreshInReach();
}

void PickModel::leave() {
    gmail_.leave();
}

void PickModel::refresh() {
    gmail_.refresh();
    intent_.refresh();
    auto words = pickWords(state_);
    if (words == words_) return;
    words_ = std::move(words);
    accounts_.set(words_.accounts);
    reaches_.set(words_.reach);
    limits_.set(words_.limit);
    folders_.set(words_.folders);
    Q_EMIT wordsChanged();
}

QString PickModel::backName() const {
    return qtText(spoken::back);
}

QString PickModel::title() const {
    return qtText(words_.title);
}

QString PickModel::text() const {
    return qtText(words_.text);
}

PickModel::Content PickModel::content() const {
    switch (words_.content) {
        case PickWords::Content::unreadable:
            return Unreadable;
        case PickWords::Content::noAccounts:
            return NoAccounts;
        case PickWords::Content::accounts:
            return Accounts;
        case PickWords::Content::finding:
            break;
    }
    return Finding;
}

QString PickModel::noticeTitle() const {
    return qtText(words_.notice.title);
}

QString PickModel::noticeText() const {
    return qtText(words_.notice.text);
}

QString PickModel::openSettingsLabel() const {
    return qtText(words_.notice.openSettings);
}

QString PickModel::openMailLabel() const {
    return qtText(words_.notice.openMail);
}

QString PickModel::checkAgainLabel() const {
    return qtText(words_.notice.checkAgain);
}

QString PickModel::checking() const {
    return qtText(words_.checking);
}

QString PickModel::vanished() const {
    return qtText(words_.vanished);
}

QString PickModel::vanishedSymbol() const {
    return qtText(words_.vanishedSymbol);
}

QString PickModel::dismissSymbol() const {
    return qtText(words_.dismissSymbol);
}

QString PickModel::dismissName() const {
    return qtText(spoken::dismiss);
}

QString PickModel::accountName() const {
    return qtText(spoken::account);
}

QString PickModel::foldersName() const {
    return qtText(spoken::mailboxes);
}

QString PickModel::reachTitle() const {
    return qtText(words_.reachTitle);
}

QString PickModel::limitName() const {
    return qtText(spoken::howMany);
}

QString PickModel::count() const {
    return qtText(words_.count);
}

QString PickModel::skipLabel() const {
    return qtText(words_.skip);
}

QString PickModel::sortLabel() const {
    return qtText(words_.sort);
}

void PickModel::back() {
    state_.goBack();
}

void PickModel::openSettings() {
    state_.services().desktop.openDiskAccessSettings();
}

void PickModel::openMail() {
    state_.services().desktop.openMail();
}

void PickModel::checkAgain() {
    state_.loadAccounts(true);
}

void PickModel::dismissVanished() {
    state_.dismissVanished();
}

void PickModel::chooseAccount(int row) {
    // A copy: selecting must not read from what it replaces.
    if (const auto* account = at(*state_.accounts, row))
        state_.selectAccount(MailAccount(*account));
}

void PickModel::chooseFolder(int row) {
    const auto* words = at(words_.folders, row);
    if (!words || !*state_.account) return;
    for (const auto& folder : (*state_.account)->folders) {
        if (folder.id != words->id) continue;
        state_.selectFolder(MailFolder(folder));
        return;
    }
}

void PickModel::chooseReach(int row) {
    constexpr auto reaches = allCases<Reach>();
    if (row < 0 || static_cast<std::size_t>(row) >= reaches.size()) return;
    state_.reach.set(reaches[static_cast<std::size_t>(row)]);
    state_.saveReach();
    state_.refreshInReach();
}

void PickModel::chooseLimit(int row) {
    const auto* limit = at(words_.limits, row);
    if (!limit) return;
    state_.setLimit(*limit);
    state_.refreshInReach();
}

void PickModel::setSkips(bool skips) {
    state_.seen.setSkipSeen(skips);
    state_.refreshInReach();
}

// A screen reader may press the button while it is off.
void PickModel::sort() {
    if (!words_.canSort) return;
    if (state_.askGmailIfNeeded(*state_.account, AppState::GmailThen::scan)) return;
    state_.startScan(std::nullopt, std::nullopt);
}

}  // namespace brindlet::screens
