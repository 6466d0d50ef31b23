#pragma once

#include <QtQml/qqmlregistration.h>
#include <QAbstractListModel>
#include <cstddef>
#include <string_view>
#include <unordered_set>
#include <utility>
#include <vector>

namespace brindlet::screens {

/// A list whose rows have a name of their own, so that a view keeps its place when others come and
/// go.
class RowsModel : public QAbstractListModel {
    Q_OBJECT
    QML_ANONYMOUS

  protected:
    /// Takes `fresh` over `rows` and tells what went, came and changed. A row is known by its `id`.
    /// What both lists have must stand in the same order; otherwise all is told to be new.
    template <class Row>
    void adopt(std::vector<Row>& rows, std::vector<Row> fresh) {
        std::unordered_set<std::string_view> staying;
        for (const auto& row : fresh) staying.insert(row.id);
        if (!keepsOrder(rows, fresh, staying)) {
            beginResetModel();
            rows = std::move(fresh);
            endResetModel();
            return;
        }
        for (std::size_t i = rows.size(); i-- > 0;) {
            if (staying.contains(rows[i].id)) continue;
            beginRemoveRows({}, static_cast<int>(i), static_cast<int>(i));
            rows.erase(rows.begin() + static_cast<std::ptrdiff_t>(i));
            endRemoveRows();
        }
        for (std::size_t i = 0; i < fresh.size(); ++i) {
            const int at = static_cast<int>(i);
            if (i == rows.size() || rows[i].id != fresh[i].id) {
                beginInsertRows({}, at, at);
                rows.insert(rows.begin() + at, std::move(fresh[i]));
                endInsertRows();
            } else if (!(rows[i] == fresh[i])) {
                rows[i] = std::move(fresh[i]);
                Q_EMIT dataChanged(index(at), index(at));
            }
        }
    }

  private:
    template <class Row>
    static bool keepsOrder(const std::vector<Row>& rows, const std::vector<Row>& fresh,
                           const std::unordered_set<std::string_view>& staying) {
        auto next = fresh.begin();
        for (const auto& row : rows) {
            if (!staying.contains(row.id)) continue;
            while (next != fresh.end() && next->id != row.id) ++next;
            if (next == fresh.end()) return false;
            ++next;
        }
        return true;
    }
};

}  // namespace brindlet::screens
