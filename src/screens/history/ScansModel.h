#pragma once

#include <QtQml/qqmlregistration.h>
#include <cstdint>
#include <functional>
#include <map>
#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "screens/RowsModel.h"
#include "screens/history/MovedModel.h"
#include "words/HistoryWords.h"

namespace brindlet {
class AppState;
}

namespace brindlet::screens {

class HistoryModel;

/// The past scans, newest first, any of them open. Each row also leads to the history's model,
/// which must outlive this one: what a row's buttons do is there.
class ScansModel : public RowsModel {
    Q_OBJECT
    QML_ELEMENT
    QML_UNCREATABLE("made by the program")

  public:
    enum Role {
        DateRole = Qt::UserRole + 1,
        PlaceRole,
        SortedRole,
        MovedRole,
        ChevronRole,
        ExpandedRole,
        DescriptionRole,
        JunkRole,
        MovedIntoRole,
        MovedTitleRole,
        /// The list of what was moved; null while the row is closed.
        MessagesRole,
        /// The scan can be put back on screen.
        FileStandsRole,
        HistoryRole,
    };

    ScansModel(const AppState& state, HistoryModel& history) : state_(state), history_(history) {}

    int rowCount(const QModelIndex& parent = {}) const override;
    QVariant data(const QModelIndex& index, int role) const override;
    QHash<int, QByteArray> roleNames() const override;

    /// Notifies what differs. Looks on the disk for the files of the open rows alone.
    void refresh();
    void setOpen(int row, bool open);
    void closeAll();
    /// The row's record; none when it has gone since the last refresh.
    std::optional<ScanRecord> record(int row) const;

  private:
    struct Row {
        std::string id;
        ScanWords words;
        bool fileStands = false;
        MovedModel* messages = nullptr;

        bool open() const { return messages != nullptr; }
        friend bool operator==(const Row&, const Row&) = default;
    };
    void forgetGone(const std::vector<Row>& rows);

    const AppState& state_;
    HistoryModel& history_;
    std::vector<Row> rows_;
    /// The open rows by id. A list that is let go may still be on show for a moment.
    std::map<std::string, std::shared_ptr<MovedModel>, std::less<>> open_;
    std::uint64_t recordsShown_ = 0;
};

}  // namespace brindlet::screens
