#pragma once

#include <QtQml/qqmlregistration.h>
#include <QAbstractListModel>
#include <cstddef>
#include <string_view>
#include <utility>
#include <vector>

#include "screens/RowChanges.h"

namespace brindlet::screens {

/// A list whose rows have an `id` each, so that a view keeps its place when others come and go.
class RowsModel : public QAbstractListModel {
    Q_OBJECT
    QML_ANONYMOUS

  protected:
    /// Takes `fresh` over `rows` and tells what went, came and changed.
    template <class Row>
    void adopt(std::vector<Row>& rows, std::vector<Row> fresh) {
        const auto [removals, insertions] = steps(idsOf(rows), idsOf(fresh));
        for (const auto& run : removals) {
            beginRemoveRows({}, firstOf(run), lastOf(run));
            rows.erase(rows.begin() + firstOf(run), rows.begin() + lastOf(run) + 1);
            endRemoveRows();
        }
        for (const auto& run : insertions) {
            beginInsertRows({}, firstOf(run), lastOf(run));
            rows.insert(rows.begin() + firstOf(run), fresh.begin() + firstOf(run),
                        fresh.begin() + lastOf(run) + 1);
            endInsertRows();
        }
        for (const int row : adoptChanged(rows, std::move(fresh)))
            Q_EMIT dataChanged(index(row), index(row));
    }

  private:
    using Ids = std::vector<std::string_view>;
    static RowSteps steps(const Ids& before, const Ids& after);

    template <class Row>
    static Ids idsOf(const std::vector<Row>& rows) {
        Ids ids;
        ids.reserve(rows.size());
        for (const auto& row : rows) ids.push_back(row.id);
        return ids;
    }
    static int firstOf(const RowRun& run) { return static_cast<int>(run.first); }
    static int lastOf(const RowRun& run) { return static_cast<int>(run.first + run.count) - 1; }
};

}  // namespace brindlet::screens
