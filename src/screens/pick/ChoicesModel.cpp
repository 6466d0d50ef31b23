#include "screens/pick/ChoicesModel.h"

#include "screens/QtText.h"

namespace brindlet::screens {

int ChoicesModel::rowCount(const QModelIndex& parent) const {
    return parent.isValid() ? 0 : static_cast<int>(menu_.labels.size());
}

QVariant ChoicesModel::data(const QModelIndex& index, int role) const {
    if (!checkIndex(index, CheckIndexOption::IndexIsValid)) return {};
    switch (role) {
        case LabelRole:
            return qtText(menu_.labels[static_cast<std::size_t>(index.row())]);
        case ChosenRole:
            return index.row() == menu_.chosen;
        default:
            return {};
    }
}

QHash<int, QByteArray> ChoicesModel::roleNames() const {
    return {{LabelRole, "label"}, {ChosenRole, "chosen"}};
}

void ChoicesModel::set(PickMenu menu) {
    const bool otherLabels = menu.labels != menu_.labels;
    if (!otherLabels && menu.chosen == menu_.chosen) return;
    if (otherLabels) beginResetModel();
    menu_ = std::move(menu);
    if (otherLabels)
        endResetModel();
    else
        Q_EMIT dataChanged(index(0), index(rowCount() - 1), {ChosenRole});
    Q_EMIT chosenChanged();
}

}  // namespace brindlet::screens
