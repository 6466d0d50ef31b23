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

  public:
    enum Role { SymbolRole = Qt::UserRole + 1, TitleRole, TextRole, ChosenRole };

    int rowCount(const QModelIndex& parent = {}) const override;
    QVariant data(const QModelIndex& index, int role) const override;
    QHash<int, QByteArray> roleNames() const override;

    /// Notifies what differs.
    void set(const std::vector<ModeWords>& modes);

  private:
    std::vector<ModeWords> modes_;
};

}  // namespace brindlet::screens
