#include "screens/results/ResultsModel.h"

#include "screens/QtText.h"
#include "session/AppState.h"
#include "words/SpokenWords.h"

namespace brindlet::screens {

ResultsModel::ResultsModel(AppState& state) : state_(state), categories_(*this), messages_(state) {}

void ResultsModel::refresh() {
    refreshLists();
    auto words = resultsWords(state_);
    if (words == words_) return;
    words_ = std::move(words);
    Q_EMIT wordsChanged();
}

// Only another list of verdicts is walked; everything else costs a few comparisons.
void ResultsModel::refreshLists() {
    const Revisions now{state_.verdicts.revision(), state_.folder.revision(),
                        state_.expand.revision(), state_.approved.revision()};
    const bool otherVerdicts = !shown_ || shown_->verdicts != now.verdicts;
    const bool otherCategory =
        !shown_ || shown_->expand != now.expand || shown_->folder != now.folder;
    const bool otherTicks = !shown_ || shown_->approved != now.approved;
    shown_ = now;

    if (otherVerdicts) rows_ = categoryRows(*state_.verdicts);
    const auto headers = categoryWords(state_, rows_);
    if (otherVerdicts || otherCategory)
        resetMessages(headers);
    else if (otherTicks)
        messages_.ticksChanged();
    categories_.set(headers);
}

void ResultsModel::resetMessages(const std::vector<CategoryWords>& headers) {
    for (std::size_t i = 0; i < headers.size(); ++i) {
        if (!headers[i].expanded) continue;
        messages_.reset(rows_[i], headers[i].stayPut);
        return;
    }
    messages_.clear();
}

QString ResultsModel::backName() const {
    return qtText(spoken::back);
}

QString ResultsModel::title() const {
    return qtText(words_.title);
}

QString ResultsModel::summary() const {
    return qtText(words_.summary);
}

QString ResultsModel::scanAnotherLabel() const {
    return qtText(words_.scanAnother);
}

QString ResultsModel::nothing() const {
    return qtText(words_.nothing);
}

QString ResultsModel::stoppedSymbol() const {
    return words_.scanError ? qtText(words_.scanError->symbol) : QString();
}

QString ResultsModel::stoppedTitle() const {
    return words_.scanError ? qtText(words_.scanError->title) : QString();
}

QString ResultsModel::stoppedText() const {
    return words_.scanError ? qtText(words_.scanError->sentence) : QString();
}

QString ResultsModel::quitLabel() const {
    return words_.scanError ? qtText(words_.scanError->quit) : QString();
}

QString ResultsModel::messagesName() const {
    return qtText(spoken::messages);
}

void ResultsModel::back() {
    state_.goBack();
}

void ResultsModel::scanAnother() {
    state_.navigate(AppState::Screen::pick);
}

void ResultsModel::toggleCategory(int row) {
    if (row < 0 || static_cast<std::size_t>(row) >= rows_.size()) return;
    const auto category = rows_[static_cast<std::size_t>(row)].category;
    state_.expand.set(*state_.expand == category ? std::nullopt : std::optional(category));
}

void ResultsModel::quit() {
    Q_EMIT quitAsked();
}

}  // namespace brindlet::screens
