#pragma once

#include <QtQml/qqmlregistration.h>
#include <QAbstractListModel>
#include <vector>

#include "words/MoveWords.h"

namespace brindlet::screens {

/// The folders that junk may be filed into.
class DestinationsModel : public QAbstractListModel {
    Q_OBJECT
    QML_ELEMENT
    QML_UNCREATABLE("made by the program")

  public:
    enum Role { LabelRole = Qt::UserRole + 1, HelpRole, ChosenRole, SymbolRole };

    int rowCount(const QModelIndex& parent = {}) const override;
    QVariant data(const QModelIndex& index, int role) const override;
    QHash<int, QByteArray> roleNames() const override;

    /// Notifies what differs.
    void set(const std::vector<DestinationWords>& destinations);

  private:
    std::vector<DestinationWords> destinations_;
};

}  // namespace brindlet::screens
