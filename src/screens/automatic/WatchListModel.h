#pragma once

#include <QtQml/qqmlregistration.h>
#include <set>
#include <string>
#include <vector>

#include "screens/RowsModel.h"
#include "words/AutomaticWords.h"

namespace brindlet {
class AppState;
}

namespace brindlet::screens {

/// The accounts, and the folders of those that are open, as one list. Main thread; the session
/// outlives it.
class WatchListModel : public RowsModel {
    Q_OBJECT
    QML_ELEMENT
    QML_UNCREATABLE("made by the program")

  public:
    enum Role {
        IsAccountRole = Qt::UserRole + 1,
        SymbolRole,
        NameRole,
        NoteRole,
        ChevronRole,
        OpenRole,
        TickedRole,
        DescriptionRole,
    };

    explicit WatchListModel(AppState& state) : state_(state) {}

    int rowCount(const QModelIndex& parent = {}) const override;
    QVariant data(const QModelIndex& index, int role) const override;
    QHash<int, QByteArray> roleNames() const override;

    /// Notifies what differs.
    void refresh();
    /// The screen comes on show: what is picked is to be seen.
    void appear();
    /// The screen is left: all accounts are closed again.
    void leave();

    /// Opens or closes an account; ticks or unticks a folder.
    Q_INVOKABLE void press(int row);
    /// Does nothing to a folder.
    Q_INVOKABLE void setOpen(int row, bool open);
    /// Of the account that the row is part of.
    Q_INVOKABLE int accountRow(int row) const;

  private:
    const WatchRow* rowAt(int row) const;

    AppState& state_;
    std::vector<WatchRow> rows_;
    /// Ids of accounts.
    std::set<std::string> open_;
};

}  // namespace brindlet::screens
