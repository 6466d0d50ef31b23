#pragma once

#include <QtQml/qqmlregistration.h>
#include <QAbstractListModel>
#include <vector>

#include "words/FolderWords.h"

namespace brindlet::screens {

/// The mailboxes of the chosen account.
class FoldersModel : public QAbstractListModel {
    Q_OBJECT
    QML_ELEMENT
    QML_UNCREATABLE("made by the program")
    /// The row of the selected mailbox; -1 when there is none.
    Q_PROPERTY(int chosen READ chosen NOTIFY chosenChanged)

  public:
    enum Role {
        NameRole = Qt::UserRole + 1,
        TagRole,
        TagToneRole,
        NoteRole,
        StatusRole,
        StatusTagRole,
        StatusToneRole,
        SelectableRole,
        SelectedRole,
        DescriptionRole,
    };

    int rowCount(const QModelIndex& parent = {}) const override;
    QVariant data(const QModelIndex& index, int role) const override;
    QHash<int, QByteArray> roleNames() const override;

    int chosen() const { return chosen_; }
    /// Notifies what differs.
    void set(const std::vector<FolderWords>& folders);

  Q_SIGNALS:
    void chosenChanged();

  private:
    bool sameFolders(const std::vector<FolderWords>& folders) const;

    std::vector<FolderWords> folders_;
    int chosen_ = -1;
};

}  // namespace brindlet::screens
