#include "screens/results/DestinationsModel.h"

#include "screens/QtText.h"
#include "screens/RowChanges.h"

namespace brindlet::screens {

int DestinationsModel::rowCount(const QModelIndex& parent) const {
    return parent.isValid() ? 0 : static_cast<int>(destinations_.size());
}

QVariant DestinationsModel::data(const QModelIndex& index, int role) const {
    if (!checkIndex(index, CheckIndexOption::IndexIsValid)) return {};
    const auto& destination = destinations_[static_cast<std::size_t>(index.row())];
    switch (role) {
        case LabelRole:
            return qtText(destination.label);
        case HelpRole:
            return qtText(destination.help);
        case ChosenRole:
            return destination.chosen;
        case SymbolRole:
            return qtText(destination.symbol);
        default:
            return {};
    }
}

QHash<int, QByteArray> DestinationsModel::roleNames() const {
    return {
        {LabelRole, "label"}, {HelpRole, "help"}, {ChosenRole, "chosen"}, {SymbolRole, "symbol"}};
}

void DestinationsModel::set(const std::vector<DestinationWords>& destinations) {
    if (destinations.size() != destinations_.size()) {
        beginResetModel();
        destinations_ = destinations;
        endResetModel();
        return;
    }
    for (const int row : adoptChanged(destinations_, destinations))
        Q_EMIT dataChanged(index(row), index(row));
}

}  // namespace brindlet::screens
