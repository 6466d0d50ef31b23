#pragma once

#include <QtQml/qqmlregistration.h>
#include <QObject>

#include "screens/Coalescer.h"
#include "words/CommandWords.h"

namespace brindlet {
class Updater;
}

namespace brindlet::screens {

/// The commands that belong to the program and not to a screen. Main thread; the updater outlives
/// it.
class CommandsModel : public QObject {
    Q_OBJECT
    QML_ELEMENT
    QML_UNCREATABLE("made by the program")
    Q_PROPERTY(QString menuName READ menuName CONSTANT)
    Q_PROPERTY(QString aboutLabel READ aboutLabel CONSTANT)
    Q_PROPERTY(QString checkLabel READ checkLabel CONSTANT)
    Q_PROPERTY(bool canCheck READ canCheck NOTIFY canCheckChanged)
    Q_PROPERTY(QString quitLabel READ quitLabel CONSTANT)
    Q_PROPERTY(QString quitKeys READ quitKeys CONSTANT)
    Q_PROPERTY(QString name READ name CONSTANT)
    Q_PROPERTY(QString version READ version CONSTANT)
    Q_PROPERTY(QString text READ text CONSTANT)
    Q_PROPERTY(QString closeLabel READ closeLabel CONSTANT)

  public:
    explicit CommandsModel(Updater& updater);

    QString menuName() const;
    QString aboutLabel() const;
    QString checkLabel() const;
    bool canCheck() const { return canCheck_; }
    QString quitLabel() const;
    QString quitKeys() const;
    QString name() const;
    QString version() const;
    QString text() const;
    QString closeLabel() const;

    Q_INVOKABLE void check();
    Q_INVOKABLE void quit();

  Q_SIGNALS:
    void canCheckChanged();
    void quitAsked();

  private:
    void refresh();

    Updater& updater_;
    const CommandWords words_;
    const AboutWords about_;
    bool canCheck_ = false;
    Coalescer coalescer_;
};

}  // namespace brindlet::screens
