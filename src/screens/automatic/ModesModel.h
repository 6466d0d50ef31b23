#pragma once

#include <QtQml/qqmlregistration.h>
#include <QAbstractListModel>
#include <vector>

#include "words/AutomaticWords.h"

namespace brindlet::screens {

/// What a run may do with what it finds, one of them chosen.
class ModesModel : public QAbstractListModel {
    Q_OBJECT
    QML_ELEMENT
    QML_UNCREATABLE("made by the program")
    /// A row; -1 when none is chosen.
    Q_PROPERTY(int chosen READ chosen NOTIFY chosenChanged)

  public:
    enum Role { SymbolRole = Qt::UserRole + 1, TitleRole, DetailRole, ChosenRole };

    int rowCount(const QModelIndex& parent = {}) const override;
    QVariant data(const QModelIndex& index, int role) const override;
    QHash<int, QByteArray> roleNames() const override;

    int chosen() const;
    /// Notifies what differs.
    void set(const std::vector<ModeWords>& modes);

  Q_SIGNALS:
    void chosenChanged();

  private:
    std::vector<ModeWords> modes_;
};

}  // namespace brindlet::screens
