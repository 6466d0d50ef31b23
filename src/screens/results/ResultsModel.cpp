#include "screens/results/ResultsModel.h"

#include <algorithm>

#include "screens/QtText.h"
#include "session/AppState.h"
#include "words/SpokenWords.h"

namespace brindlet::screens {

ResultsModel::ResultsModel(AppState& state)
    : state_(state),
      categories_(*this),
      messages_(state),
      move_(state),
      moved_(state),
      undo_(state),
      offer_(state) {}

void ResultsModel::refresh() {
    refreshLists();
    move_.refresh();
    moved_.refresh();
    undo_.refresh();
    offer_.refresh();
    auto words = resultsWords(state_);
    if (words == words_) return;
    words_ = std::move(words);
    Q_EMIT wordsChanged();
}

// Only another list of messages is walked; everything else costs a few comparisons.
void ResultsModel::refreshLists() {
    const Revisions now{state_.verdicts.revision(), state_.movedAlready.revision(),
                        state_.folder.revision(), state_.expand.revision()};
    const bool otherMessages =
        !shown_ || shown_->verdicts != now.verdicts || shown_->moved != now.moved;
    const bool sameRows = shown_ == now;
    shown_ = now;

    if (otherMessages) rows_ = categoryRows(*state_.verdicts, state_.remainingVerdicts());
    if (sameRows)
        messages_.refresh();
    else
        showOpenCategory();
    categories_.set(categoryWords(state_, rows_));
}

void ResultsModel::showOpenCategory() {
    for (const auto& rows : rows_)
        if (*state_.expand == rows.category) return messages_.show(rows);
    messages_.close();
}

void ResultsModel::leave() {
    closeCategory();
    moved_.leave();
    shown_.reset();
}

/// What was open on this screen was looked at.
void ResultsModel::closeCategory() {
    const auto open = messages_.category();
    if (!open) return;
    messages_.close();
    state_.markCategoryReviewed(*open);
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

QString ResultsModel::rulesSymbol() const {
    return qtText(words_.rulesSymbol);
}

QString ResultsModel::rulesLabel() const {
    return qtText(words_.rules);
}

QString ResultsModel::historySymbol() const {
    return qtText(words_.historySymbol);
}

QString ResultsModel::historyLabel() const {
    return qtText(words_.history);
}

QString ResultsModel::automaticSymbol() const {
    return qtText(words_.automaticSymbol);
}

QString ResultsModel::automaticLabel() const {
    return qtText(words_.automatic);
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

QString ResultsModel::allMovedSymbol() const {
    return words_.allMoved ? qtText(words_.allMoved->symbol) : QString();
}

QString ResultsModel::allMovedText() const {
    return words_.allMoved ? qtText(words_.allMoved->text) : QString();
}

QString ResultsModel::allMovedNext() const {
    return words_.allMoved ? qtText(words_.allMoved->next) : QString();
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

void ResultsModel::openRules() {
    state_.navigate(AppState::Screen::rules);
}

void ResultsModel::openHistory() {
    state_.navigate(AppState::Screen::history);
}

void ResultsModel::openAutomatic() {
    state_.navigate(AppState::Screen::automatic);
}

const CategoryRows* ResultsModel::category(int row) const {
    const bool exists = row >= 0 && static_cast<std::size_t>(row) < rows_.size();
    return exists ? &rows_[static_cast<std::size_t>(row)] : nullptr;
}

void ResultsModel::toggleCategory(int row) {
    const auto* rows = category(row);
    if (!rows) return;
    openCategory(*state_.expand == rows->category ? std::nullopt : std::optional(rows->category));
}

void ResultsModel::openCategory(std::optional<Category> category) {
    closeCategory();
    state_.expand.set(category);
}

void ResultsModel::tickCategory(int row) {
    const auto* rows = category(row);
    if (!rows || rows->tickable.empty()) return;
    state_.setCategoryTicked(rows->category, tickCount(state_, *rows).wouldTick());
}

void ResultsModel::jumpToReviewed() {
    if (state_.reviewedCats->empty()) return;
    const auto last = fromRaw<Category>(state_.reviewedCats->back());
    const auto found = std::find_if(rows_.begin(), rows_.end(),
                                    [&](const auto& rows) { return rows.category == last; });
    if (found == rows_.end()) return;
    if (*state_.expand != last) openCategory(last);
    // Its row must have its height before the view goes there.
    refresh();
    Q_EMIT jumped(static_cast<int>(found - rows_.begin()));
}

void ResultsModel::quit() {
    Q_EMIT quitAsked();
}

}  // namespace brindlet::screens
