#include "screens/automatic/ModesModel.h"

#include "screens/QtText.h"
#include "screens/RowChanges.h"

namespace brindlet::screens {

int ModesModel::rowCount(const QModelIndex& parent) const {
    return parent.isValid() ? 0 : static_cast<int>(modes_.size());
}

QVariant ModesModel::data(const QModelIndex& index, int role) const {
    if (!checkIndex(index, CheckIndexOption::IndexIsValid)) return {};
    const auto& mode = modes_[static_cast<std::size_t>(index.row())];
    switch (role) {
        case SymbolRole:
            return qtText(mode.symbol);
        case TitleRole:
            return qtText(mode.title);
        case TextRole:
            return qtText(mode.text);
        case ChosenRole:
            return mode.chosen;
        default:
            return {};
    }
}

QHash<int, QByteArray> ModesModel::roleNames() const {
    return {
        {SymbolRole, "symbol"}, {TitleRole, "title"}, {TextRole, "text"}, {ChosenRole, "chosen"}};
}

void ModesModel::set(const std::vector<ModeWords>& modes) {
    if (modes.size() == modes_.size()) {
        for (const int row : adoptChanged(modes_, modes))
            Q_EMIT dataChanged(index(row), index(row));
        return;
    }
    beginResetModel();
    modes_ = modes;
    endResetModel();
}

}  // namespace brindlet::screens
