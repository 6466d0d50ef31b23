#include <algorithm>
#include <utility>
#include <vector>

#include "screens/results/MessagesModel.h"
#include "session/AppState.h"

// What changes the rows, and what they do.

namespace brindlet::screens {

std::optional<Category> MessagesModel::category() const {
    return category_ ? std::optional(category_->category) : std::nullopt;
}

void MessagesModel::show(const CategoryRows& rows) {
    if (category_ && category_->category != rows.category) close();
    verdictsRevision_ = state_.verdicts.revision();
    beginResetModel();
    verdicts_ = *state_.verdicts;
    category_ = rows;
    rowFilter_.reset(verdicts_, rows.rows);
    makeRows();
    endResetModel();
    forgetGroup();
    refreshLines();
}

void MessagesModel::close() {
    if (!category_) return;
    if (open_) state_.markReviewed(*std::exchange(open_, std::nullopt));
    beginResetModel();
    verdicts_ = {};
    category_.reset();
    rowFilter_.reset({}, {});
    rows_ = {};
    matched_ = 0;
    tickable_.clear();
    endResetModel();
    if (!filter_.isEmpty()) {
        filter_.clear();
        Q_EMIT filterChanged();
    }
    if (std::exchange(bySender_, false)) Q_EMIT bySenderChanged();
    refreshLines();
}

void MessagesModel::refresh() {
    if (!category_) return;
    refreshTicks();
    refreshReviewed();
}

void MessagesModel::setFilter(const QString& text) {
    if (text == filter_ || !category_) return;
    const auto before = rowFilter_.matches(filter_.toStdString());
    filter_ = text;
    Q_EMIT filterChanged();
    // Where nothing comes and nothing goes, the list stays as it is scrolled.
    if (rowFilter_.matches(filter_.toStdString()) != before) rebuild();
    refreshLines();
}

void MessagesModel::setBySender(bool grouped) {
    if (grouped == bySender_ || !category_) return;
    bySender_ = grouped;
    rebuild();
    Q_EMIT bySenderChanged();
    refreshLines();
}

void MessagesModel::tick(int row) {
    const auto at = present(row);
    if (!at) return;
    if (at->kind == MessageRows::Kind::message && verdicts_[at->at].messageID)
        state_.toggleMessage(verdicts_[at->at].id);
    if (at->kind != MessageRows::Kind::sender || tickable(at->at).empty()) return;
    const auto& ids = tickable(at->at);
    // What happens to match a filter says nothing of its sender.
    state_.setMessagesTicked({ids.begin(), ids.end()}, facts(at->at).ticks.wouldTick(),
                             filter_.isEmpty());
}

void MessagesModel::setExpanded(int row, bool expanded) {
    const auto at = present(row);
    if (!at || at->kind != MessageRows::Kind::sender) return;
    if ((rows_.openSender() == at->at) == expanded) return;
    closeGroup();
    if (expanded) openGroup(at->at);
}

void MessagesModel::toggleExpanded(int row) {
    const auto at = present(row);
    if (at && at->kind == MessageRows::Kind::sender) setExpanded(row, rows_.openSender() != at->at);
}

int MessagesModel::senderRow(int row) const {
    const auto at = present(row);
    if (!at) return -1;
    if (at->kind == MessageRows::Kind::sender) return row;
    return at->indented ? static_cast<int>(rows_.rowOfSender(*rows_.openSender())) : -1;
}

void MessagesModel::openInMail(int row) {
    const auto at = present(row);
    if (!at || at->kind != MessageRows::Kind::message) return;
    if (const auto& messageID = verdicts_[at->at].messageID) state_.mail().openInMail(*messageID);
}

void MessagesModel::tickAll() {
    tickMatches(true);
}

void MessagesModel::untickAll() {
    tickMatches(false);
}

void MessagesModel::tickMatches(bool tick) {
    if (!category_ || !isCurrent()) return;
    std::vector<std::int64_t> ids;
    for (const auto index : rowFilter_.matches(filter_.toStdString())) {
        const auto& verdict = verdicts_[category_->rows[index]];
        if (verdict.messageID) ids.push_back(verdict.id);
    }
    if (!ids.empty()) state_.setMessagesTicked(ids, tick, false);
}

void MessagesModel::jumpToReviewed() {
    if (state_.reviewed->empty()) return;
    if (const auto sender = rows_.senders().find(state_.reviewed->back()))
        Q_EMIT jumped(static_cast<int>(rows_.rowOfSender(*sender)));
}

std::optional<MessageRows::Row> MessagesModel::present(int row) const {
    if (row < 0 || row >= rowCount() || !isCurrent()) return std::nullopt;
    return rows_.at(static_cast<std::size_t>(row));
}

bool MessagesModel::isCurrent() const {
    return verdictsRevision_ == state_.verdicts.revision();
}

void MessagesModel::rebuild() {
    // A new list comes with the next refresh, which asks for its filter and its grouping.
    if (!isCurrent()) return;
    beginResetModel();
    makeRows();
    endResetModel();
    forgetGroup();
}

void MessagesModel::makeRows() {
    const auto& matches = rowFilter_.matches(filter_.toStdString());
    const auto split = std::lower_bound(matches.begin(), matches.end(), category_->firstProtected);
    const auto firstProtected = static_cast<std::size_t>(split - matches.begin());
    std::vector<std::uint32_t> positions;
    positions.reserve(matches.size());
    for (const auto index : matches) positions.push_back(category_->rows[index]);
    matched_ = matches.size();
    tickable_.clear();
    ticks_ = *state_.approved;
    lastReviewed_ = state_.reviewed->empty() ? std::string() : state_.reviewed->back();

    // In a junk folder what protection kept is what should come out: it does not stay put.
    const bool heading = !state_.isJunkFolder();
    if (!bySender_) {
        rows_.list(std::move(positions), firstProtected, heading);
        return;
    }
    const std::span<const std::uint32_t> all(positions);
    const auto kept = all.subspan(firstProtected);
    rows_.group(SenderGroups(verdicts_, state_.index(), all.first(firstProtected)),
                {kept.begin(), kept.end()}, heading);
    if (!open_) return;
    if (const auto sender = rows_.senders().find(*open_)) rows_.open(*sender);
}

void MessagesModel::openGroup(std::size_t sender) {
    const auto row = rows_.rowOfSender(sender);
    const auto count = rows_.senders().members(sender).size();
    beginInsertRows({}, static_cast<int>(row + 1), static_cast<int>(row + count));
    rows_.open(sender);
    endInsertRows();
    open_ = rows_.senders().key(sender);
    notify(row, row, {ExpandedRole, ChevronRole, DescriptionRole});
}

void MessagesModel::closeGroup() {
    const auto sender = rows_.openSender();
    if (!sender) return;
    const auto row = rows_.rowOfSender(*sender);
    const auto count = rows_.senders().members(*sender).size();
    beginRemoveRows({}, static_cast<int>(row + 1), static_cast<int>(row + count));
    rows_.close();
    endRemoveRows();
    notify(row, row, {ExpandedRole, ChevronRole, DescriptionRole});
    forgetGroup();
}

/// A group that the list no longer shows open was left.
void MessagesModel::forgetGroup() {
    if (open_ && !rows_.openSender()) state_.markReviewed(*std::exchange(open_, std::nullopt));
}

void MessagesModel::refreshLines() {
    const auto& locale = state_.services().locale;
    const auto matched = static_cast<std::int64_t>(matched_);
    auto match = filter_.isEmpty() ? std::string() : brindlet::matchLine(matched, locale);
    auto scroll = bySender_
                      ? sendersScrollLine(static_cast<std::int64_t>(rows_.senders().size()), locale)
                      : messagesScrollLine(matched, locale);
    if (match == matchLine_ && scroll == scrollLine_) return;
    matchLine_ = std::move(match);
    scrollLine_ = std::move(scroll);
    Q_EMIT linesChanged();
}

void MessagesModel::refreshTicks() {
    const auto changed = ticks_.difference(*state_.approved);
    if (changed.empty()) return;
    ticks_ = *state_.approved;
    auto first = rows_.size();
    std::size_t last = 0;
    const auto cover = [&](std::size_t row) {
        first = std::min(first, row);
        last = std::max(last, row);
    };
    const auto& index = state_.index();
    for (const auto id : changed) {
        const auto position = index.find(id);
        if (!position) continue;
        if (const auto row = rows_.rowOfMessage(*position)) cover(*row);
        if (const auto sender = senderOf(*position)) cover(rows_.rowOfSender(*sender));
    }
    if (first < rows_.size())
        notify(first, last,
               {TickSymbolRole, TickHelpRole, CountRole, NoteRole, NoteToneRole, NoteHelpRole,
                DescriptionRole});
}

std::optional<std::size_t> MessagesModel::senderOf(std::uint32_t position) const {
    const auto& verdict = verdicts_[position];
    if (!bySender_ || verdict.vetoed || verdict.category != category_->category)
        return std::nullopt;
    return rows_.senders().find(SenderGroups::keyOf(verdicts_, state_.index(), position));
}

void MessagesModel::refreshReviewed() {
    const auto& reviewed = *state_.reviewed;
    if (reviewed.empty() || reviewed.back() == lastReviewed_) return;
    for (const auto& key : {std::exchange(lastReviewed_, reviewed.back()), reviewed.back()}) {
        const auto sender = rows_.senders().find(key);
        if (!sender) continue;
        const auto row = rows_.rowOfSender(*sender);
        notify(row, row, {ReviewedRole, ReviewedHelpRole, DescriptionRole});
    }
}

void MessagesModel::notify(std::size_t first, std::size_t last, const QList<int>& roles) {
    Q_EMIT dataChanged(index(static_cast<int>(first)), index(static_cast<int>(last)), roles);
}

}  // namespace brindlet::screens
