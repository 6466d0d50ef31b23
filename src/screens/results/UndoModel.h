#pragma once

#include <QtQml/qqmlregistration.h>
#include <QObject>
#include <optional>

#include "words/UndoWords.h"

namespace brindlet {
class AppState;
}

namespace brindlet::screens {

/// The bar that undoes the last sweep. Main thread; the session outlives it.
class UndoModel : public QObject {
    Q_OBJECT
    QML_ELEMENT
    QML_UNCREATABLE("made by the program")
    Q_PROPERTY(bool shown READ shown NOTIFY wordsChanged)
    Q_PROPERTY(QString symbol READ symbol NOTIFY wordsChanged)
    Q_PROPERTY(QString text READ text NOTIFY wordsChanged)
    Q_PROPERTY(QString label READ label NOTIFY wordsChanged)
    Q_PROPERTY(QString help READ help NOTIFY wordsChanged)

  public:
    explicit UndoModel(AppState& state) : state_(state) {}

    void refresh();

    bool shown() const { return words_.has_value(); }
    QString symbol() const;
    QString text() const;
    QString label() const;
    QString help() const;

    Q_INVOKABLE void press();

  Q_SIGNALS:
    void wordsChanged();

  private:
    AppState& state_;
    std::optional<UndoWords> words_;
};

}  // namespace brindlet::screens
