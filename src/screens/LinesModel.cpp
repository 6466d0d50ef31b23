#include "screens/LinesModel.h"

#include "screens/QtText.h"
#include "screens/RowChanges.h"

namespace brindlet::screens {

int LinesModel::rowCount(const QModelIndex& parent) const {
    return parent.isValid() ? 0 : static_cast<int>(lines_.size());
}

QVariant LinesModel::data(const QModelIndex& index, int role) const {
    if (!checkIndex(index, CheckIndexOption::IndexIsValid)) return {};
    const auto& [lead, text] = lines_[static_cast<std::size_t>(index.row())];
    switch (role) {
        case LeadRole:
            return qtText(lead);
        case TextRole:
            return qtText(text);
        default:
            return {};
    }
}

QHash<int, QByteArray> LinesModel::roleNames() const {
    return {{LeadRole, "lead"}, {TextRole, "text"}};
}

void LinesModel::set(std::vector<Line> lines) {
    if (lines.size() != lines_.size()) {
        beginResetModel();
        lines_ = std::move(lines);
        endResetModel();
        return;
    }
    for (const int row : adoptChanged(lines_, std::move(lines)))
        Q_EMIT dataChanged(index(row), index(row));
}

}  // namespace brindlet::screens
