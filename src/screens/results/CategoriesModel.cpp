#include "screens/results/CategoriesModel.h"

#include <algorithm>

#include "screens/QtText.h"
#include "screens/RowChanges.h"
#include "screens/look/Tone.h"
#include "screens/results/ResultsModel.h"
#include "words/SpokenWords.h"

namespace brindlet::screens {

int CategoriesModel::rowCount(const QModelIndex& parent) const {
    return parent.isValid() ? 0 : static_cast<int>(categories_.size());
}

QVariant CategoriesModel::data(const QModelIndex& index, int role) const {
    if (!checkIndex(index, CheckIndexOption::IndexIsValid)) return {};
    const auto& category = categories_[static_cast<std::size_t>(index.row())];
    switch (role) {
        case LabelRole:
            return qtText(category.label);
        case CountRole:
            return qtText(category.count);
        case BadgeRole:
            return qtText(category.badge.text);
        case BadgeToneRole:
            return tones::of(category.badge);
        case BadgeHelpRole:
            return qtText(category.badge.help);
        case DescriptionRole:
            return spokenList({category.badge.text, category.badge.help, category.reviewed.text,
                               category.expanded ? spoken::expanded : spoken::collapsed});
        case ExpandedRole:
            return category.expanded;
        case ChevronRole:
            return qtText(category.chevron);
        case TickSymbolRole:
            return qtText(category.tickSymbol);
        case TickHelpRole:
            return qtText(category.tickHelp);
        case GeneralHelpRole:
            return qtText(category.generalHelp);
        case ReviewedRole:
            return qtText(category.reviewed.text);
        case ReviewedHelpRole:
            return qtText(category.reviewed.help);
        case ResultsRole:
            return QVariant::fromValue(&results_);
        default:
            return {};
    }
}

QHash<int, QByteArray> CategoriesModel::roleNames() const {
    return {{LabelRole, "label"},
            {CountRole, "count"},
            {BadgeRole, "badge"},
            {BadgeToneRole, "badgeTone"},
            {BadgeHelpRole, "badgeHelp"},
            {DescriptionRole, "description"},
            {ExpandedRole, "expanded"},
            {ChevronRole, "chevron"},
            {TickSymbolRole, "tickSymbol"},
            {TickHelpRole, "tickHelp"},
            {GeneralHelpRole, "generalHelp"},
            {ReviewedRole, "reviewed"},
            {ReviewedHelpRole, "reviewedHelp"},
            {ResultsRole, "results"}};
}

void CategoriesModel::set(const std::vector<CategoryWords>& categories) {
    const bool same =
        std::equal(categories.begin(), categories.end(), categories_.begin(), categories_.end(),
                   [](const auto& a, const auto& b) { return a.category == b.category; });
    if (same) {
        for (const int row : adoptChanged(categories_, categories))
            Q_EMIT dataChanged(index(row), index(row));
        return;
    }
    beginResetModel();
    categories_ = categories;
    endResetModel();
}

}  // namespace brindlet::screens
