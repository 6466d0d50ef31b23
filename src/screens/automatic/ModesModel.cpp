#include "screens/automatic/ModesModel.h"

#include <algorithm>

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
        case DetailRole:
            return qtText(mode.text);
        case ChosenRole:
            return mode.chosen;
        default:
            return {};
    }
}

QHash<int, QByteArray> ModesModel::roleNames() const {
    return {{SymbolRole, "symbol"},
            {TitleRole, "title"},
            {DetailRole, "detail"},
            {ChosenRole, "chosen"}};
}

int ModesModel::chosen() const {
    const auto mode = std::find_if(modes_.begin(), modes_.end(),
                                   [](const ModeWords& each) { return each.chosen; });
    return mode == modes_.end() ? -1 : static_cast<int>(mode - modes_.begin());
}

void ModesModel::set(const std::vector<ModeWords>& modes) {
    const int before = chosen();
    if (modes.size() == modes_.size()) {
        for (const int row : adoptChanged(modes_, modes))
            Q_EMIT dataChanged(index(row), index(row));
    } else {
        beginResetModel();
        modes_ = modes;
        endResetModel();
    }
    if (chosen() != before) Q_EMIT chosenChanged();
}

}  // namespace brindlet::screens
