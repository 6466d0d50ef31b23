#pragma once

#include <QtQml/qqmlregistration.h>
#include <QAbstractListModel>

#include "words/PickWords.h"

namespace brindlet::screens {

/// The labels of a menu and which of them is chosen.
class ChoicesModel : public QAbstractListModel {
    Q_OBJECT
    QML_ELEMENT
    QML_UNCREATABLE("made by the program")
    /// A row; -1 when none is chosen.
    Q_PROPERTY(int chosen READ chosen NOTIFY chosenChanged)

  public:
    enum Role { LabelRole = Qt::UserRole + 1, ChosenRole };

    int rowCount(const QModelIndex& parent = {}) const override;
    QVariant data(const QModelIndex& index, int role) const override;
    QHash<int, QByteArray> roleNames() const override;

    int chosen() const { return menu_.chosen; }
    /// Notifies what differs.
    void set(PickMenu menu);

  Q_SIGNALS:
    void chosenChanged();

  private:
    PickMenu menu_;
};

}  // namespace brindlet::screens
