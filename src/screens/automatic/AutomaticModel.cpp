#include "screens/automatic/AutomaticModel.h"

#include <optional>
#include <utility>

#include "screens/QtText.h"
#include "session/AppState.h"
#include "session/Watched.h"
#include "words/SpokenWords.h"

namespace brindlet::screens {
namespace {

template <class E>
std::optional<E> caseAt(int row) {
    const auto all = allCases<E>();
    if (row < 0 || static_cast<std::size_t>(row) >= all.size()) return std::nullopt;
    return all[static_cast<std::size_t>(row)];
}

}  // namespace

AutomaticModel::AutomaticModel(AppState& state) : state_(state), mailboxes_(state) {}

void AutomaticModel::refresh() {
    mailboxes_.refresh();
    auto words = automaticWords(state_);
    if (words == words_) return;
    words_ = std::move(words);
    cadences_.set(words_.cadences);
    modes_.set(words_.modes);
    Q_EMIT changed();
}

void AutomaticModel::appear() {
    mailboxes_.appear();
    if (state_.canReadIndex()) state_.loadAccounts(false);
    state_.refreshFolders();
}

void AutomaticModel::leave() {
    mailboxes_.leave();
}

QString AutomaticModel::backName() const {
    return qtText(spoken::back);
}

QString AutomaticModel::title() const {
    return qtText(words_.title);
}

QString AutomaticModel::text() const {
    return qtText(words_.text);
}

QString AutomaticModel::enableLabel() const {
    return qtText(words_.enable);
}

QString AutomaticModel::summary() const {
    return qtText(words_.summary);
}

QString AutomaticModel::mailboxesTitle() const {
    return qtText(words_.mailboxesTitle);
}

QString AutomaticModel::mailboxesNote() const {
    return qtText(words_.mailboxesNote);
}

QString AutomaticModel::mailboxesName() const {
    return qtText(spoken::mailboxes);
}

QString AutomaticModel::noAccounts() const {
    return qtText(words_.noAccounts);
}

QString AutomaticModel::gone() const {
    return qtText(words_.gone);
}

QString AutomaticModel::goneSymbol() const {
    return qtText(words_.goneSymbol);
}

QString AutomaticModel::removeGoneLabel() const {
    return qtText(words_.removeGone);
}

QString AutomaticModel::cadenceTitle() const {
    return qtText(words_.cadenceTitle);
}

QString AutomaticModel::modeTitle() const {
    return qtText(words_.modeTitle);
}

QString AutomaticModel::runNowLabel() const {
    return qtText(words_.runNow);
}

void AutomaticModel::back() {
    state_.goBack();
}

void AutomaticModel::setEnabled(bool enabled) {
    state_.schedule.setEnabled(enabled);
}

void AutomaticModel::removeGone() {
    state_.schedule.setWatched(presentWatched(*state_.accounts, state_.schedule.watched()));
}

void AutomaticModel::chooseCadence(int row) {
    if (const auto cadence = caseAt<Cadence>(row)) state_.schedule.setCadence(*cadence);
}

void AutomaticModel::chooseMode(int row) {
    if (const auto mode = caseAt<SortMode>(row)) state_.schedule.setMode(*mode);
}

void AutomaticModel::runNow() {
    state_.runDue();
}

}  // namespace brindlet::screens
