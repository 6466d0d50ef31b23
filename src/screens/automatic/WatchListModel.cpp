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

void WatchListModel::leave() {
    open_.clear();
    refresh();
}

void WatchListModel::press(int row) {
    if (row < 0 || row >= rowCount()) return;
    const WatchRow pressed = rows_[static_cast<std::size_t>(row)];
    if (!pressed.isAccount()) {
        state_.schedule.toggle(pressed.account, pressed.folder);
        return;
    }
    if (open_.erase(pressed.account) == 0) open_.insert(pressed.account);
    refresh();
}

}  // namespace brindlet::screens
