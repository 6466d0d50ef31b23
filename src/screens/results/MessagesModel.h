#pragma once

#include <QtQml/qqmlregistration.h>
#include <QAbstractListModel>
#include <cstdint>
#include <string>
#include <vector>

#include "words/CategoryWords.h"

namespace brindlet {
class AppState;
}

namespace brindlet::screens {

/// The rows of the open category, flattened: messages, and the heading over those that protection
/// kept. A row holds no more than where its verdict stands, and words are made when a view asks, so
/// fifty thousand rows cost nothing until they are scrolled to. Built by hand instead of on a
/// proxy: one reset is cheaper than thousands of row signals.
class MessagesModel : public QAbstractListModel {
    Q_OBJECT
    QML_ELEMENT
    QML_UNCREATABLE("made by the program")

  public:
    enum Role {
        HeadingRole = Qt::UserRole + 1,
        SubjectRole,
        SenderRole,
        TickSymbolRole,
        DescriptionRole,
        CanTickRole,
        MarkRole,
        MarkToneRole,
    };

    explicit MessagesModel(const AppState& state) : state_(state) {}

    int rowCount(const QModelIndex& parent = {}) const override;
    QVariant data(const QModelIndex& index, int role) const override;
    QHash<int, QByteArray> roleNames() const override;

    /// Other verdicts, or another category: `heading` stands over the protected messages unless it
    /// is empty.
    void reset(const CategoryRows& rows, const std::string& heading);
    void clear();
    /// Other ticks on the same messages.
    void ticksChanged();

  private:
    struct Row {
        bool heading = false;
        /// Into the session's verdicts.
        std::uint32_t verdict = 0;
    };
    const AppState& state_;
    std::vector<Row> rows_;
    std::string heading_;
};

}  // namespace brindlet::screens
