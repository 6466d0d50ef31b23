#pragma once

#include <QtQml/qqmlregistration.h>
#include <QObject>

#include "screens/gmail/GmailNoticeModel.h"
#include "screens/gmail/IntentModel.h"
#include "screens/pick/ChoicesModel.h"
#include "screens/pick/FoldersModel.h"
#include "words/PickWords.h"

namespace brindlet {
class AppState;
}

namespace brindlet::screens {

/// The picking of a mailbox. Main thread; the session outlives it.
class PickModel : public QObject {
    Q_OBJECT
    QML_ELEMENT
    QML_UNCREATABLE("made by the program")
    Q_PROPERTY(QString backName READ backName CONSTANT)
    Q_PROPERTY(QString title READ title NOTIFY wordsChanged)
    Q_PROPERTY(QString text READ text NOTIFY wordsChanged)
    Q_PROPERTY(Content content READ content NOTIFY wordsChanged)
    Q_PROPERTY(QString noticeTitle READ noticeTitle NOTIFY wordsChanged)
    Q_PROPERTY(QString noticeText READ noticeText NOTIFY wordsChanged)
    Q_PROPERTY(QString openSettingsLabel READ openSettingsLabel NOTIFY wordsChanged)
    Q_PROPERTY(QString openMailLabel READ openMailLabel NOTIFY wordsChanged)
    Q_PROPERTY(QString checkAgainLabel READ checkAgainLabel NOTIFY wordsChanged)
    Q_PROPERTY(QString checking READ checking NOTIFY wordsChanged)
    Q_PROPERTY(QString vanished READ vanished NOTIFY wordsChanged)
    Q_PROPERTY(QString vanishedSymbol READ vanishedSymbol NOTIFY wordsChanged)
    Q_PROPERTY(QString dismissSymbol READ dismissSymbol NOTIFY wordsChanged)
    Q_PROPERTY(QString dismissName READ dismissName CONSTANT)
    Q_PROPERTY(QString accountName READ accountName CONSTANT)
    Q_PROPERTY(QString foldersName READ foldersName CONSTANT)
    Q_PROPERTY(QString reachTitle READ reachTitle NOTIFY wordsChanged)
    Q_PROPERTY(QString limitName READ limitName CONSTANT)
    Q_PROPERTY(QString count READ count NOTIFY wordsChanged)
    Q_PROPERTY(QString skipLabel READ skipLabel NOTIFY wordsChanged)
    Q_PROPERTY(bool skips READ skips NOTIFY wordsChanged)
    Q_PROPERTY(QString sortLabel READ sortLabel NOTIFY wordsChanged)
    Q_PROPERTY(bool canSort READ canSort NOTIFY wordsChanged)
    Q_PROPERTY(brindlet::screens::ChoicesModel* accounts READ accounts CONSTANT)
    Q_PROPERTY(brindlet::screens::ChoicesModel* reaches READ reaches CONSTANT)
    Q_PROPERTY(brindlet::screens::ChoicesModel* limits READ limits CONSTANT)
    Q_PROPERTY(brindlet::screens::FoldersModel* folders READ folders CONSTANT)
    Q_PROPERTY(brindlet::screens::GmailNoticeModel* gmail READ gmail CONSTANT)
    Q_PROPERTY(brindlet::screens::IntentModel* intent READ intent CONSTANT)

  public:
    enum Content { Finding, Unreadable, NoAccounts, Accounts };
    Q_ENUM(Content)

    explicit PickModel(AppState& state);

    /// The screen comes on show: folders added in the mail program since must be seen, and a scan
    /// since has left less to sort.
    void appear();
    void refresh();
    void leave();

    QString backName() const;
    QString title() const;
    QString text() const;
    Content content() const;
    QString noticeTitle() const;
    QString noticeText() const;
    QString openSettingsLabel() const;
    QString openMailLabel() const;
    QString checkAgainLabel() const;
    QString checking() const;
    QString vanished() const;
    QString vanishedSymbol() const;
    QString dismissSymbol() const;
    QString dismissName() const;
    QString accountName() const;
    QString foldersName() const;
    QString reachTitle() const;
    QString limitName() const;
    QString count() const;
    QString skipLabel() const;
    bool skips() const { return words_.skips; }
    QString sortLabel() const;
    bool canSort() const { return words_.canSort; }
    ChoicesModel* accounts() { return &accounts_; }
    ChoicesModel* reaches() { return &reaches_; }
    ChoicesModel* limits() { return &limits_; }
    FoldersModel* folders() { return &folders_; }
    GmailNoticeModel* gmail() { return &gmail_; }
    IntentModel* intent() { return &intent_; }

    Q_INVOKABLE void back();
    Q_INVOKABLE void openSettings();
    Q_INVOKABLE void openMail();
    Q_INVOKABLE void checkAgain();
    Q_INVOKABLE void dismissVanished();
    Q_INVOKABLE void chooseAccount(int row);
    Q_INVOKABLE void chooseFolder(int row);
    Q_INVOKABLE void chooseReach(int row);
    Q_INVOKABLE void chooseLimit(int row);
    Q_INVOKABLE void setSkips(bool skips);
    /// Starts the scan, or first has the person asked about Gmail.
    Q_INVOKABLE void sort();

  Q_SIGNALS:
    void wordsChanged();

  private:
    AppState& state_;
    PickWords words_;
    ChoicesModel accounts_;
    ChoicesModel reaches_;
    ChoicesModel limits_;
    FoldersModel folders_;
    GmailNoticeModel gmail_;
    IntentModel intent_;
};

}  // namespace brindlet::screens
