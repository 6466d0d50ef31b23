#include "screens/results/OfferButtonsModel.h"

#include "screens/QtText.h"

namespace brindlet::screens {

int OfferButtonsModel::rowCount(const QModelIndex& parent) const {
    return parent.isValid() ? 0 : static_cast<int>(buttons_.size());
}

QVariant OfferButtonsModel::data(const QModelIndex& index, int role) const {
    if (!checkIndex(index, CheckIndexOption::IndexIsValid)) return {};
    const auto& button = buttons_[static_cast<std::size_t>(index.row())];
    switch (role) {
        case LabelRole:
            return qtText(button.label);
        case HelpRole:
            return qtText(button.help);
        case DeclinesRole:
            return !button.choice;
        default:
            return {};
    }
}

QHash<int, QByteArray> OfferButtonsModel::roleNames() const {
    return {{LabelRole, "label"}, {HelpRole, "help"}, {DeclinesRole, "declines"}};
}

void OfferButtonsModel::set(const std::vector<OfferButton>& buttons) {
    if (buttons == buttons_) return;
    beginResetModel();
    buttons_ = buttons;
    endResetModel();
}

}  // namespace brindlet::screens
