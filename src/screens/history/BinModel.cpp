#include "screens/history/BinModel.h"

#include <algorithm>
#include <utility>

#include "platform/Clock.h"
#include "screens/QtText.h"
#include "screens/history/HistoryModel.h"
#include "session/AppState.h"

namespace brindlet::screens {

int BinModel::rowCount(const QModelIndex& parent) const {
    return parent.isValid() ? 0 : static_cast<int>(rows_.size());
}

QVariant BinModel::data(const QModelIndex& index, int role) const {
    if (!checkIndex(index, CheckIndexOption::IndexIsValid)) return {};
    const auto& row = rows_[static_cast<std::size_t>(index.row())];
    switch (role) {
        case PlaceRole:
            return qtText(row.words.place);
        case LineRole:
            return qtText(row.words.line);
        case PurgeLabelRole:
            return qtText(purgeLabel(row.step));
        case AskedRole:
            return row.step == Step::second;
        case HistoryRole:
            return QVariant::fromValue(&history_);
        default:
            return {};
    }
}

QHash<int, QByteArray> BinModel::roleNames() const {
    return {{PlaceRole, "place"},
            {LineRole, "line"},
            {PurgeLabelRole, "purgeLabel"},
            {AskedRole, "asked"},
            {HistoryRole, "history"}};
}

void BinModel::refresh() {
    const auto& services = state_.services();
    const auto now = services.clock.now();
    std::vector<Row> fresh;
    fresh.reserve(state_.history.deleted->size());
    for (const auto& record : *state_.history.deleted) {
        auto id = record.id();
        const auto step = asked_.contains(id) ? Step::second : Step::first;
        fresh.push_back({std::move(id), deletedScanWords(record, now, services.locale), step});
    }
    // Who comes back to the bin later is asked anew.
    std::erase_if(asked_, [&](const std::string& id) {
        return std::none_of(fresh.begin(), fresh.end(),
                            [&](const Row& row) { return row.id == id; });
    });
    adopt(rows_, std::move(fresh));
}

bool BinModel::stepToPurge(int row) {
    const auto found = record(row);
    if (!found) return false;
    const bool second = !asked_.insert(found->id()).second;
    refresh();
    return second;
}

void BinModel::fallBack() {
    asked_.clear();
    refresh();
}

std::optional<ScanRecord> BinModel::record(int row) const {
    if (row < 0 || static_cast<std::size_t>(row) >= rows_.size()) return std::nullopt;
    const auto& id = rows_[static_cast<std::size_t>(row)].id;
    for (const auto& record : *state_.history.deleted)
        if (record.id() == id) return record;
    return std::nullopt;
}

}  // namespace brindlet::screens
