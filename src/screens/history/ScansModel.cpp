#include "screens/history/ScansModel.h"

#include <algorithm>
#include <utility>

#include "screens/QtText.h"
#include "screens/history/HistoryModel.h"
#include "session/AppState.h"
#include "words/SpokenWords.h"

namespace brindlet::screens {

int ScansModel::rowCount(const QModelIndex& parent) const {
    return parent.isValid() ? 0 : static_cast<int>(rows_.size());
}

QVariant ScansModel::data(const QModelIndex& index, int role) const {
    if (!checkIndex(index, CheckIndexOption::IndexIsValid)) return {};
    const auto& row = rows_[static_cast<std::size_t>(index.row())];
    switch (role) {
        case DateRole:
            return qtText(row.words.date);
        case PlaceRole:
            return qtText(row.words.place);
        case SortedRole:
            return qtText(row.words.sorted);
        case MovedRole:
            return qtText(row.words.moved);
        case ChevronRole:
            return qtText(row.words.chevron);
        case ExpandedRole:
            return row.open();
        case DescriptionRole:
            return spokenList({row.words.sorted, row.words.moved,
                               row.open() ? spoken::expanded : spoken::collapsed});
        case JunkRole:
            return qtText(row.words.junk);
        case MovedIntoRole:
            return qtText(row.words.movedInto);
        case MovedTitleRole:
            return qtText(row.words.movedTitle);
        case MessagesRole:
            return QVariant::fromValue(row.messages);
        case FileStandsRole:
            return row.fileStands;
        case HistoryRole:
            return QVariant::fromValue(&history_);
        default:
            return {};
    }
}

QHash<int, QByteArray> ScansModel::roleNames() const {
    return {{DateRole, "date"},
            {PlaceRole, "place"},
            {SortedRole, "sorted"},
            {MovedRole, "moved"},
            {ChevronRole, "chevron"},
            {ExpandedRole, "expanded"},
            {DescriptionRole, "description"},
            {JunkRole, "junk"},
            {MovedIntoRole, "movedInto"},
            {MovedTitleRole, "movedTitle"},
            {MessagesRole, "messages"},
            {FileStandsRole, "fileStands"},
            {HistoryRole, "history"}};
}

void ScansModel::refresh() {
    const auto& history = state_.history;
    const bool otherRecords =
        std::exchange(recordsShown_, history.records.revision()) != history.records.revision();
    std::vector<Row> fresh;
    fresh.reserve(history.records->size());
    for (const auto& record : *history.records) {
        Row row;
        row.id = record.id();
        if (const auto found = open_.find(row.id); found != open_.end()) {
            row.messages = found->second.get();
            if (otherRecords) row.messages->set(record.moved);
            row.fileStands = history.hasScan(record.started);
        }
        row.words = scanWords(record, row.open(), state_.services().locale);
        fresh.push_back(std::move(row));
    }
    forgetGone(fresh);
    adopt(rows_, std::move(fresh));
}

// What comes back from the bin comes back closed.
void ScansModel::forgetGone(const std::vector<Row>& rows) {
    std::erase_if(open_, [&](const auto& entry) {
        return std::none_of(rows.begin(), rows.end(),
                            [&](const Row& row) { return row.id == entry.first; });
    });
}

void ScansModel::setOpen(int row, bool open) {
    const auto found = record(row);
    if (!found) return;
    if (!open) {
        open_.erase(found->id());
    } else if (auto& messages = open_[found->id()]; !messages) {
        messages = {new MovedModel(this), [](MovedModel* model) { model->deleteLater(); }};
        messages->set(found->moved);
    }
    refresh();
}

void ScansModel::closeAll() {
    open_.clear();
    refresh();
}

std::optional<ScanRecord> ScansModel::record(int row) const {
    if (row < 0 || static_cast<std::size_t>(row) >= rows_.size()) return std::nullopt;
    const auto& id = rows_[static_cast<std::size_t>(row)].id;
    for (const auto& record : *state_.history.records)
        if (record.id() == id) return record;
    return std::nullopt;
}

}  // namespace brindlet::screens
