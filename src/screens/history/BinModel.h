#pragma once

#include <QtQml/qqmlregistration.h>
#include <functional>
#include <optional>
#include <set>
#include <string>
#include <vector>

#include "screens/RowsModel.h"
#include "words/HistoryWords.h"

namespace brindlet {
class AppState;
}

namespace brindlet::screens {

class HistoryModel;

/// The deleted scans, newest first. Each row also leads to the history's model, which must outlive
/// this one: what a row's buttons do is there.
class BinModel : public RowsModel {
    Q_OBJECT
    QML_ELEMENT
    QML_UNCREATABLE("made by the program")

  public:
    enum Role { PlaceRole = Qt::UserRole + 1, LineRole, PurgeLabelRole, AskedRole, HistoryRole };

    BinModel(const AppState& state, HistoryModel& history) : state_(state), history_(history) {}

    int rowCount(const QModelIndex& parent = {}) const override;
    QVariant data(const QModelIndex& index, int role) const override;
    QHash<int, QByteArray> roleNames() const override;

    /// Notifies what differs.
    void refresh();
    /// Takes the step towards deleting the row's record for good: true when it was the second.
    bool stepToPurge(int row);
    /// All rows are back before their first step.
    void fallBack();
    /// The row's record; none when it has gone since the last refresh.
    std::optional<ScanRecord> record(int row) const;

  private:
    struct Row {
        std::string id;
        DeletedScanWords words;
        Step step = Step::first;

        friend bool operator==(const Row&, const Row&) = default;
    };

    const AppState& state_;
    HistoryModel& history_;
    std::vector<Row> rows_;
    /// The rows, by id, that ask whether it is really meant.
    std::set<std::string, std::less<>> asked_;
};

}  // namespace brindlet::screens
