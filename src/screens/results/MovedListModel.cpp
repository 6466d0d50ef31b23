#include "screens/results/MovedListModel.h"

#include <algorithm>

#include "screens/QtText.h"
#include "screens/look/Tone.h"
#include "session/AppState.h"
#include "words/SpokenWords.h"

namespace brindlet::screens {

int MovedListModel::rowCount(const QModelIndex& parent) const {
    return parent.isValid() ? 0 : static_cast<int>(rows_.size());
}

QVariant MovedListModel::data(const QModelIndex& index, int role) const {
    if (!checkIndex(index, CheckIndexOption::IndexIsValid)) return {};
    const auto words =
        movedRowWords(state_, verdicts_[rows_[static_cast<std::size_t>(index.row())]]);
    switch (role) {
        case TitleRole:
            return qtText(words.subject);
        case DetailRole:
            return qtText(words.sender);
        case TickSymbolRole:
            return qtText(words.tickSymbol);
        default:
            return {};
    }
}

QHash<int, QByteArray> MovedListModel::roleNames() const {
    return {{TitleRole, "title"}, {DetailRole, "detail"}, {TickSymbolRole, "tickSymbol"}};
}

std::pair<std::uint64_t, std::uint64_t> MovedListModel::revisions() const {
    return {state_.verdicts.revision(), state_.movedAlready.revision()};
}

void MovedListModel::refresh() {
    if (revisions() == shownRevisions_)
        refreshTicks();
    else
        refreshRows();
    refreshWords();
    if (!words_) leave();
}

void MovedListModel::refreshWords() {
    auto words = movedSectionWords(state_, expanded_);
    if (words == words_) return;
    words_ = std::move(words);
    Q_EMIT changed();
}

void MovedListModel::leave() {
    setFilter({});
    setExpanded(false);
}

void MovedListModel::refreshRows() {
    shownRevisions_ = revisions();
    beginResetModel();
    verdicts_ = *state_.verdicts;
    moved_ = state_.movedVerdicts();
    rowFilter_.reset(verdicts_, moved_);
    makeRows();
    endResetModel();
    refreshScrollLine();
}

void MovedListModel::makeRows() {
    rows_.clear();
    for (const auto index : rowFilter_.matches(filter_.toStdString()))
        rows_.push_back(moved_[index]);
    ticks_ = *state_.putBack;
}

void MovedListModel::refreshTicks() {
    const auto changed = ticks_.difference(*state_.putBack);
    if (changed.empty()) return;
    ticks_ = *state_.putBack;
    int first = rowCount();
    int last = -1;
    for (const auto id : changed) {
        const auto position = state_.index().find(id);
        const auto row = position ? rowOf(*position) : std::nullopt;
        if (!row) continue;
        first = std::min(first, *row);
        last = std::max(last, *row);
    }
    if (first <= last) Q_EMIT dataChanged(index(first), index(last), {TickSymbolRole});
}

std::optional<int> MovedListModel::rowOf(std::uint32_t position) const {
    const auto found = std::lower_bound(rows_.begin(), rows_.end(), position);
    if (found == rows_.end() || *found != position) return std::nullopt;
    return static_cast<int>(found - rows_.begin());
}

void MovedListModel::refreshScrollLine() {
    auto line = movedScrollLine(rowCount(), state_.services().locale);
    if (line == scrollLine_) return;
    scrollLine_ = std::move(line);
    Q_EMIT scrollLineChanged();
}

void MovedListModel::setFilter(const QString& text) {
    if (text == filter_) return;
    const auto before = rowFilter_.matches(filter_.toStdString());
    filter_ = text;
    Q_EMIT filterChanged();
    // Where nothing comes and nothing goes, the list stays as it is scrolled.
    if (rowFilter_.matches(filter_.toStdString()) == before) return;
    beginResetModel();
    makeRows();
    endResetModel();
    refreshScrollLine();
}

void MovedListModel::setExpanded(bool expanded) {
    expanded_ = expanded;
    refreshWords();
}

void MovedListModel::tick(int row) {
    if (row < 0 || row >= rowCount() || revisions() != shownRevisions_) return;
    state_.togglePutBack(verdicts_[rows_[static_cast<std::size_t>(row)]].id);
}

void MovedListModel::putBack() {
    state_.putBackMoved();
}

QString MovedListModel::symbol() const {
    return words_ ? qtText(words_->symbol) : QString();
}

QString MovedListModel::heading() const {
    return words_ ? qtText(words_->heading) : QString();
}

QString MovedListModel::badge() const {
    return words_ ? qtText(words_->badge.text) : QString();
}

int MovedListModel::badgeTone() const {
    return words_ ? tones::of(words_->badge) : tones::Plain;
}

QString MovedListModel::toPutBack() const {
    return words_ ? qtText(words_->count) : QString();
}

QString MovedListModel::putBackLabel() const {
    return words_ ? qtText(words_->putBack) : QString();
}

QString MovedListModel::description() const {
    if (!words_) return {};
    return spokenList(
        {words_->badge.text, words_->count, expanded_ ? spoken::expanded : spoken::collapsed});
}

QString MovedListModel::chevron() const {
    return words_ ? qtText(words_->chevron) : QString();
}

QString MovedListModel::listName() const {
    return qtText(spoken::movedMessages);
}

QString MovedListModel::hint() const {
    return qtText(listWords_.hint);
}

QString MovedListModel::filterSymbol() const {
    return qtText(listWords_.filterSymbol);
}

QString MovedListModel::filterPrompt() const {
    return qtText(listWords_.filterPrompt);
}

QString MovedListModel::clearLabel() const {
    return qtText(spoken::clear);
}

QString MovedListModel::scrollLine() const {
    return qtText(scrollLine_);
}

}  // namespace brindlet::screens
