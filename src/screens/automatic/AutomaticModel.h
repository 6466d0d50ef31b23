#pragma once

#include <QtQml/qqmlregistration.h>
#include <QObject>

#include "screens/automatic/ModesModel.h"
#include "screens/automatic/WatchListModel.h"
#include "screens/pick/ChoicesModel.h"
#include "words/AutomaticWords.h"

namespace brindlet {
class AppState;
}

namespace brindlet::screens {

/// The schedule's settings. Main thread; the session outlives it.
class AutomaticModel : public QObject {
    Q_OBJECT
    QML_ELEMENT
    QML_UNCREATABLE("made by the program")
    Q_PROPERTY(QString backName READ backName CONSTANT)
    Q_PROPERTY(QString title READ title CONSTANT)
    Q_PROPERTY(QString text READ text CONSTANT)
    Q_PROPERTY(QString enableLabel READ enableLabel CONSTANT)
    /// While it is off, nothing below the summary shows.
    Q_PROPERTY(bool enabled READ enabled NOTIFY changed)
    Q_PROPERTY(QString summary READ summary NOTIFY changed)
    Q_PROPERTY(QString mailboxesTitle READ mailboxesTitle CONSTANT)
    Q_PROPERTY(QString mailboxesNote READ mailboxesNote NOTIFY changed)
    Q_PROPERTY(QString mailboxesName READ mailboxesName CONSTANT)
    Q_PROPERTY(QString noAccounts READ noAccounts NOTIFY changed)
    Q_PROPERTY(QString gone READ gone NOTIFY changed)
    Q_PROPERTY(QString goneSymbol READ goneSymbol CONSTANT)
    Q_PROPERTY(QString removeGoneLabel READ removeGoneLabel CONSTANT)
    Q_PROPERTY(QString cadenceTitle READ cadenceTitle CONSTANT)
    Q_PROPERTY(QString modeTitle READ modeTitle CONSTANT)
    Q_PROPERTY(QString runNowLabel READ runNowLabel CONSTANT)
    Q_PROPERTY(bool canRun READ canRun NOTIFY changed)
    Q_PROPERTY(brindlet::screens::WatchListModel* mailboxes READ mailboxes CONSTANT)
    Q_PROPERTY(brindlet::screens::ChoicesModel* cadences READ cadences CONSTANT)
    Q_PROPERTY(brindlet::screens::ModesModel* modes READ modes CONSTANT)

  public:
    explicit AutomaticModel(AppState& state);

    void refresh();
    /// The screen comes on show: the accounts are read, or looked up again.
    void appear();
    void leave();

    QString backName() const;
    QString title() const;
    QString text() const;
    QString enableLabel() const;
    bool enabled() const { return words_.enabled; }
    QString summary() const;
    QString mailboxesTitle() const;
    QString mailboxesNote() const;
    QString mailboxesName() const;
    QString noAccounts() const;
    QString gone() const;
    QString goneSymbol() const;
    QString removeGoneLabel() const;
    QString cadenceTitle() const;
    QString modeTitle() const;
    QString runNowLabel() const;
    bool canRun() const { return words_.canRun; }
    WatchListModel* mailboxes() { return &mailboxes_; }
    ChoicesModel* cadences() { return &cadences_; }
    ModesModel* modes() { return &modes_; }

    Q_INVOKABLE void back();
    Q_INVOKABLE void setEnabled(bool enabled);
    Q_INVOKABLE void removeGone();
    Q_INVOKABLE void chooseCadence(int row);
    Q_INVOKABLE void chooseMode(int row);
    Q_INVOKABLE void runNow();

  Q_SIGNALS:
    void changed();

  private:
    AppState& state_;
    AutomaticWords words_;
    WatchListModel mailboxes_;
    ChoicesModel cadences_;
    ModesModel modes_;
};

}  // namespace brindlet::screens
