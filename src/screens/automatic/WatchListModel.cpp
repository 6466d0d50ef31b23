#include "screens/automatic/WatchListModel.h"

#include "screens/QtText.h"
#include "session/AppState.h"
#include "words/SpokenWords.h"

namespace brindlet::screens {

int WatchListModel::rowCount(const QModelIndex& parent) const {
    return parent.isValid() ? 0 : static_cast<int>(rows_.size());
}

QVariant WatchListModel::data(const QModelIndex& index, int role) const {
    if (!checkIndex(index, CheckIndexOption::IndexIsValid)) return {};
    const auto& row = rows_[static_cast<std::size_t>(index.row())];
    switch (role) {
        case IsAccountRole:
            return row.isAccount();
        case SymbolRole:
            return qtText(row.symbol);
        case NameRole:
            return qtText(row.name);
        case NoteRole:
            return qtText(row.note);
        case ChevronRole:
            return qtText(row.chevron);
        case OpenRole:
            return row.open;
        case TickedRole:
            return row.ticked;
        case DescriptionRole:
            if (!row.isAccount()) return qtText(row.note);
            return qtText(row.open ? spoken::expanded : spoken::collapsed);
        default:
            return {};
    }
}

QHash<int, QByteArray> WatchListModel::roleNames() const {
    return {{IsAccountRole, "isAccount"}, {SymbolRole, "symbol"},          {NameRole, "name"},
            {NoteRole, "note"},           {ChevronRole, "chevron"},        {OpenRole, "open"},
            {TickedRole, "ticked"},       {DescriptionRole, "description"}};
}

void WatchListModel::refresh() {
    adopt(rows_, watchRows(state_, open_));
}

void WatchListModel::appear() {
    for (const auto& each : state_.schedule.watched()) open_.insert(each.account);
}

void WatchListModel::leave() {
    open_.clear();
    refresh();
}

const WatchRow* WatchListModel::rowAt(int row) const {
    if (row < 0 || row >= rowCount()) return nullptr;
    return &rows_[static_cast<std::size_t>(row)];
}

void WatchListModel::press(int row) {
    const auto* pressed = rowAt(row);
    if (!pressed) return;
    if (pressed->isAccount())
        setOpen(row, !pressed->open);
    else
        state_.schedule.toggle(pressed->account, pressed->folder);
}

void WatchListModel::setOpen(int row, bool open) {
    const auto* pressed = rowAt(row);
    if (!pressed || !pressed->isAccount() || pressed->open == open) return;
    if (open)
        open_.insert(pressed->account);
    else
        open_.erase(pressed->account);
    refresh();
}

int WatchListModel::accountRow(int row) const {
    while (rowAt(row) && !rowAt(row)->isAccount()) --row;
    return row;
}

}  // namespace brindlet::screens
