#pragma once

#include <QtQml/qqmlregistration.h>
#include <QObject>

#include "screens/LinesModel.h"
#include "words/PermissionWords.h"

namespace brindlet {
class AppState;
}

namespace brindlet::screens {

/// The request for access to the mail files. Main thread; the session outlives it.
class PermissionModel : public QObject {
    Q_OBJECT
    QML_ELEMENT
    QML_UNCREATABLE("made by the program")
    Q_PROPERTY(QString symbol READ symbol CONSTANT)
    Q_PROPERTY(QString title READ title CONSTANT)
    Q_PROPERTY(QString text READ text CONSTANT)
    Q_PROPERTY(QString openSettingsLabel READ openSettingsLabel CONSTANT)
    Q_PROPERTY(QString checkLabel READ checkLabel CONSTANT)
    Q_PROPERTY(brindlet::screens::LinesModel* steps READ steps CONSTANT)

  public:
    explicit PermissionModel(AppState& state);

    QString symbol() const;
    QString title() const;
    QString text() const;
    QString openSettingsLabel() const;
    QString checkLabel() const;
    LinesModel* steps() { return &steps_; }

    Q_INVOKABLE void openSettings();
    Q_INVOKABLE void check();
    Q_INVOKABLE void back();

  private:
    AppState& state_;
    PermissionWords words_;
    LinesModel steps_;
};

}  // namespace brindlet::screens
