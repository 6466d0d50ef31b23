#pragma once

#include <QtQml/qqmlregistration.h>
#include <QAbstractListModel>
#include <vector>

#include "stores/ScanRecord.h"

namespace brindlet::screens {

/// What one scan had moved. There may be tens of thousands, so words are made when a view asks.
class MovedModel : public QAbstractListModel {
    Q_OBJECT
    QML_ELEMENT
    QML_UNCREATABLE("made by the program")

  public:
    enum Role { SubjectRole = Qt::UserRole + 1, SenderRole };

    using QAbstractListModel::QAbstractListModel;

    int rowCount(const QModelIndex& parent = {}) const override;
    QVariant data(const QModelIndex& index, int role) const override;
    QHash<int, QByteArray> roleNames() const override;

    /// Tells nobody when it is the same.
    void set(const std::vector<ScanRecord::Moved>& messages);

  private:
    std::vector<ScanRecord::Moved> messages_;
};

}  // namespace brindlet::screens
