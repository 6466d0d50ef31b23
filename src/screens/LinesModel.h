#pragma once

#include <QtQml/qqmlregistration.h>
#include <QAbstractListModel>
#include <string>
#include <utility>
#include <vector>

namespace brindlet::screens {

/// A handful of small things in a row, each a text led by something: a symbol's name, a value, or
/// nothing. Badges, steps and stats are such.
class LinesModel : public QAbstractListModel {
    Q_OBJECT
    QML_ELEMENT
    QML_UNCREATABLE("made by the program")

  public:
    enum Role { LeadRole = Qt::UserRole + 1, TextRole };
    using Line = std::pair<std::string, std::string>;

    int rowCount(const QModelIndex& parent = {}) const override;
    QVariant data(const QModelIndex& index, int role) const override;
    QHash<int, QByteArray> roleNames() const override;

    /// Notifies what differs.
    void set(std::vector<Line> lines);

  private:
    std::vector<Line> lines_;
};

}  // namespace brindlet::screens
