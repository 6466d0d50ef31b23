#pragma once

#include <QAbstractListModel>
#include <QtQml/qqmlregistration.h>
#include <vector>

#include "words/CategoryWords.h"

namespace brindlet::screens {

/// The headers of the categories that have messages.
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
        ExpandedRole,
        StateNameRole,
        ChevronRole,
        ScrollLineRole,
    };

    int rowCount(const QModelIndex& parent = {}) const override;
    QVariant data(const QModelIndex& index, int role) const override;
    QHash<int, QByteArray> roleNames() const override;

    /// Notifies what differs.
    void set(const std::vector<CategoryWords>& categories);

  private:
    std::vector<CategoryWords> categories_;
};

}  // namespace brindlet::screens
