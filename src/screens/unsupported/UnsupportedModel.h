#pragma once

#include <QtQml/qqmlregistration.h>
#include <QObject>

#include "words/UnsupportedWords.h"

namespace brindlet {
class AppState;
}

namespace brindlet::screens {

/// Tells that there is no language model to sort with, and why. Main thread; the session outlives
/// it.
class UnsupportedModel : public QObject {
    Q_OBJECT
    QML_ELEMENT
    QML_UNCREATABLE("made by the program")
    Q_PROPERTY(QString symbol READ symbol CONSTANT)
    Q_PROPERTY(QString title READ title CONSTANT)
    Q_PROPERTY(QString text READ text NOTIFY textChanged)
    Q_PROPERTY(QString openSettingsLabel READ openSettingsLabel CONSTANT)

  public:
    explicit UnsupportedModel(AppState& state) : state_(state) {}

    void refresh();

    /// Whether the screen stands in place of all others.
    bool shown() const { return shown_; }
    QString symbol() const;
    QString title() const;
    QString text() const;
    QString openSettingsLabel() const;

    Q_INVOKABLE void openSettings();

  Q_SIGNALS:
    void textChanged();

  private:
    AppState& state_;
    UnsupportedWords words_;
    bool shown_ = false;
};

}  // namespace brindlet::screens
