#include "screens/history/HistoryModel.h"

#include <utility>

#include "screens/QtText.h"
#include "session/AppState.h"
#include "words/SpokenWords.h"

namespace brindlet::screens {

HistoryModel::HistoryModel(AppState& state)
    : state_(state), rules_(state, taughtRules), scans_(state, *this), bin_(state, *this) {}

void HistoryModel::refresh() {
    rules_.refresh();
    scans_.refresh();
    bin_.refresh();
    // What is deleted after the bin was emptied is not what the question was about.
    if (state_.history.deleted->empty()) setEmptyStep(Step::first);
    auto words = historyWords(state_);
    if (words == words_) return;
    words_ = std::move(words);
    Q_EMIT wordsChanged();
}

void HistoryModel::leave() {
    rules_.leave();
    scans_.closeAll();
    bin_.fallBack();
    setEmptyStep(Step::first);
}

void HistoryModel::setEmptyStep(Step step) {
    if (std::exchange(emptyStep_, step) != step) Q_EMIT emptyAskedChanged();
}

QString HistoryModel::backName() const {
    return qtText(spoken::back);
}

QString HistoryModel::title() const {
    return qtText(words_.title);
}

QString HistoryModel::count() const {
    return qtText(words_.count);
}

QString HistoryModel::nothing() const {
    return qtText(words_.nothing);
}

QString HistoryModel::rulesTitle() const {
    return qtText(words_.rulesTitle);
}

QString HistoryModel::scansName() const {
    return qtText(spoken::pastScans);
}

QString HistoryModel::movedName() const {
    return qtText(spoken::movedMessages);
}

QString HistoryModel::putOnScreenLabel() const {
    return qtText(historyLabels::putOnScreen);
}

QString HistoryModel::deleteLabel() const {
    return qtText(historyLabels::deleteScan);
}

QString HistoryModel::deleteSymbol() const {
    return qtText(historyLabels::deleteSymbol);
}

QString HistoryModel::forgetLabel() const {
    return qtText(words_.forget);
}

QString HistoryModel::forgetNote() const {
    return qtText(words_.forgetNote);
}

QString HistoryModel::binTitle() const {
    return qtText(words_.binTitle);
}

QString HistoryModel::binNote() const {
    return qtText(words_.binNote);
}

QString HistoryModel::binName() const {
    return qtText(spoken::binnedScans);
}

QString HistoryModel::emptyLabel() const {
    return qtText(emptyBinLabel(emptyStep_));
}

QString HistoryModel::putBackLabel() const {
    return qtText(historyLabels::putBack);
}

QString HistoryModel::purgeHelp() const {
    return qtText(historyLabels::purgeHelp);
}

void HistoryModel::back() {
    state_.goBack();
}

void HistoryModel::setOpen(int scan, bool open) {
    scans_.setOpen(scan, open);
}

void HistoryModel::putOnScreen(int scan) {
    const auto record = scans_.record(scan);
    if (!record) return;
    state_.openRecord(*record);
    // Its file may have gone since the last look; then nothing happened and the button goes off.
    scans_.refresh();
}

void HistoryModel::deleteScan(int scan) {
    if (const auto record = scans_.record(scan)) state_.history.deleteRecord(*record);
}

void HistoryModel::forgetSorted() {
    state_.seen.clear();
}

void HistoryModel::emptyBin() {
    if (emptyStep_ == Step::first) return setEmptyStep(Step::second);
    setEmptyStep(Step::first);
    state_.history.emptyBin();
}

void HistoryModel::putBack(int binned) {
    if (const auto record = bin_.record(binned)) state_.history.restore(*record);
}

void HistoryModel::purge(int binned) {
    const auto record = bin_.record(binned);
    if (record && bin_.stepToPurge(binned)) state_.history.purge(*record);
}

}  // namespace brindlet::screens
