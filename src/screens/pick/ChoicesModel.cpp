#include "screens/pick/ChoicesModel.h"

#include "screens/QtText.h"

namespace brindlet::screens {

int ChoicesModel::rowCount(const QModelIndex& parent) const {
    return parent.isValid() ? 0 : static_cast<int>(menu_.labels.size());
}

QVariant ChoicesModel::data(const QModelIndex& index, int role) const {
    if (role != LabelRole || !checkIndex(index, CheckIndexOption::IndexIsValid)) return {};
    return qtText(menu_.labels[static_cast<std::size_t>(index.row())]);
}

QHash<int, QByteArray> ChoicesModel::roleNames() const {
    return {{LabelRole, "label"}};
}

void ChoicesModel::set(PickMenu menu) {
    const bool otherLabels = menu.labels != menu_.labels;
    if (!otherLabels && menu.chosen == menu_.chosen) return;
    if (otherLabels) beginResetModel();
    menu_ = std::move(menu);
    if (otherLabels) endResetModel();
    Q_EMIT chosenChanged();
}

}  // namespace brindlet::screens
