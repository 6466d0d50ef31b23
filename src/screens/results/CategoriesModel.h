#pragma once

#include <QtQml/qqmlregistration.h>
#include <QAbstractListModel>
#include <vector>

#include "words/CategoryWords.h"

namespace brindlet::screens {

class ResultsModel;

/// The headers of the categories that have messages. Each row also leads to the results' model,
/// which must outlive this one: what it opens is there.
class CategoriesModel : public QAbstractListModel {
    Q_OBJECT
    QML_ELEMENT
    QML_UNCREATABLE("made by the program")

  public:
    enum Role {
        LabelRole = Qt::UserRole + 1,
        CountRole,
        BadgeRole,
        BadgeToneRole,
        BadgeHelpRole,
        DescriptionRole,
        ExpandedRole,
        ChevronRole,
        TickSymbolRole,
        TickHelpRole,
        GeneralHelpRole,
        ReviewedRole,
        ReviewedHelpRole,
        ResultsRole,
    };

    explicit CategoriesModel(ResultsModel& results) : results_(results) {}

    int rowCount(const QModelIndex& parent = {}) const override;
    QVariant data(const QModelIndex& index, int role) const override;
    QHash<int, QByteArray> roleNames() const override;

    /// Notifies what differs.
    void set(const std::vector<CategoryWords>& categories);

  private:
    ResultsModel& results_;
    std::vector<CategoryWords> categories_;
};

}  // namespace brindlet::screens
