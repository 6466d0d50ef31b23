#pragma once

#include <QtQml/qqmlregistration.h>
#include <QAbstractListModel>
#include <optional>
#include <vector>

#include "words/CalibrationWords.h"

namespace brindlet {
class AppState;
}

namespace brindlet::screens {

/// The flipped categories, and for which of them the two ways to stop it are on show. Main thread;
/// the session outlives it.
class CalibrationRowsModel : public QAbstractListModel {
    Q_OBJECT
    QML_ELEMENT
    QML_UNCREATABLE("made by the program")
    Q_PROPERTY(QString label READ label CONSTANT)
    Q_PROPERTY(QString note READ note CONSTANT)
    Q_PROPERTY(QString stopLabel READ stopLabel CONSTANT)
    Q_PROPERTY(QString muteLabel READ muteLabel CONSTANT)
    Q_PROPERTY(QString forgetLabel READ forgetLabel CONSTANT)
    Q_PROPERTY(int count READ count NOTIFY countChanged)

  public:
    enum Role {
        RowsRole = Qt::UserRole + 1,  // this model, for the buttons of a row
        BadgeRole,
        BadgeToneRole,
        CategoryRole,
        LineRole,
        StoppingRole,
        StopDescriptionRole,
    };

    explicit CalibrationRowsModel(AppState& state) : state_(state) {}

    int rowCount(const QModelIndex& parent = {}) const override;
    QVariant data(const QModelIndex& index, int role) const override;
    QHash<int, QByteArray> roleNames() const override;

    /// Notifies what differs.
    void refresh();
    /// The view is left.
    void leave();

    QString label() const;
    QString note() const;
    QString stopLabel() const;
    QString muteLabel() const;
    QString forgetLabel() const;
    int count() const { return rowCount(); }

    /// Opens the two ways to stop a row, or closes them.
    Q_INVOKABLE void toggleStop(int row);
    Q_INVOKABLE void mute(int row);
    Q_INVOKABLE void forget(int row);

  Q_SIGNALS:
    void countChanged();

  private:
    std::optional<Category> categoryAt(int row) const;
    void tellAll();

    // What `data` hands out though it may not change it itself.
    CalibrationRowsModel* const self_ = this;
    AppState& state_;
    std::vector<CalibrationWords> rows_;
    std::optional<Category> stopping_;
};

}  // namespace brindlet::screens
