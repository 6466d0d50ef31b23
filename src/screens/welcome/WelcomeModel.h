#pragma once

#include <QtQml/qqmlregistration.h>
#include <QObject>

#include "screens/LinesModel.h"
#include "words/WelcomeWords.h"

namespace brindlet {
class AppState;
}

namespace brindlet::screens {

/// The first screen. Main thread; the session outlives it.
class WelcomeModel : public QObject {
    Q_OBJECT
    QML_ELEMENT
    QML_UNCREATABLE("made by the program")
    Q_PROPERTY(QString symbol READ symbol CONSTANT)
    Q_PROPERTY(QString title READ title CONSTANT)
    Q_PROPERTY(QString text READ text CONSTANT)
    Q_PROPERTY(QString startLabel READ startLabel CONSTANT)
    Q_PROPERTY(brindlet::screens::LinesModel* badges READ badges CONSTANT)

  public:
    explicit WelcomeModel(AppState& state);

    QString symbol() const;
    QString title() const;
    QString text() const;
    QString startLabel() const;
    LinesModel* badges() { return &badges_; }

    Q_INVOKABLE void start();

  private:
    AppState& state_;
    WelcomeWords words_;
    LinesModel badges_;
};

}  // namespace brindlet::screens
