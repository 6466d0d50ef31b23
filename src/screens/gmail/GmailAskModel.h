#pragma once

#include <QtQml/qqmlregistration.h>
#include <QObject>
#include <optional>
#include <string>

#include "base/Secret.h"
#include "base/Task.h"
#include "mail/MailAccount.h"
#include "screens/LinesModel.h"
#include "words/GmailAskWords.h"

namespace brindlet {
class AppState;
}

namespace brindlet::screens {

/// The question whether Brindlet may file mail on Gmail by itself, and the test of the app password
/// that it takes. What the person typed is kept in one place of its own, and goes with the
/// question; a test goes on without it, and a password that passes is kept in any case. Main
/// thread; the session outlives it.
class GmailAskModel : public QObject {
    Q_OBJECT
    QML_ELEMENT
    QML_UNCREATABLE("made by the program")
    /// Whether the question is open.
    Q_PROPERTY(bool asked READ asked NOTIFY askedChanged)
    Q_PROPERTY(QString symbol READ symbol CONSTANT)
    Q_PROPERTY(QString title READ title CONSTANT)
    /// Of the account last asked about.
    Q_PROPERTY(QString address READ address NOTIFY askedChanged)
    Q_PROPERTY(QString why READ why CONSTANT)
    Q_PROPERTY(QString allowSymbol READ allowSymbol CONSTANT)
    Q_PROPERTY(QString allowTitle READ allowTitle CONSTANT)
    Q_PROPERTY(QString allowText READ allowText CONSTANT)
    Q_PROPERTY(QString declineTitle READ declineTitle CONSTANT)
    Q_PROPERTY(QString declineText READ declineText CONSTANT)
    Q_PROPERTY(brindlet::screens::LinesModel* promises READ promises CONSTANT)
    /// Whether the panel for the app password is open; all below stands in it.
    Q_PROPERTY(bool connecting READ connecting NOTIFY askChanged)
    Q_PROPERTY(QString explanation READ explanation CONSTANT)
    Q_PROPERTY(QString warningSymbol READ warningSymbol CONSTANT)
    Q_PROPERTY(QString warning READ warning CONSTANT)
    Q_PROPERTY(QString openPageLabel READ openPageLabel CONSTANT)
    Q_PROPERTY(QString fieldTitle READ fieldTitle CONSTANT)
    Q_PROPERTY(QString prompt READ prompt CONSTANT)
    Q_PROPERTY(QString keychain READ keychain CONSTANT)
    /// Empty before the first test.
    Q_PROPERTY(QString status READ status NOTIFY askChanged)
    /// A `Tone`.
    Q_PROPERTY(int statusTone READ statusTone NOTIFY askChanged)
    Q_PROPERTY(QString declineLabel READ declineLabel CONSTANT)
    Q_PROPERTY(QString label READ label NOTIFY askChanged)
    Q_PROPERTY(bool canPress READ canPress NOTIFY askChanged)
    Q_PROPERTY(bool checking READ checking NOTIFY askChanged)

  public:
    explicit GmailAskModel(AppState& state);

    void refresh();
    /// Nothing is to stand over the screen now. The session's question stays open and begins anew
    /// with the next refresh.
    void leave();

    bool asked() const { return account_.has_value(); }
    QString symbol() const;
    QString title() const;
    QString address() const;
    QString why() const;
    QString allowSymbol() const;
    QString allowTitle() const;
    QString allowText() const;
    QString declineTitle() const;
    QString declineText() const;
    LinesModel* promises() { return &promises_; }
    bool connecting() const { return ask_.connecting; }
    QString explanation() const;
    QString warningSymbol() const;
    QString warning() const;
    QString openPageLabel() const;
    QString fieldTitle() const;
    QString prompt() const;
    QString keychain() const;
    QString status() const;
    int statusTone() const;
    QString declineLabel() const;
    QString label() const;
    bool canPress() const { return gmailAskButton(ask_).enabled; }
    bool checking() const { return ask_.checking; }
    /// The latest test, if there ever was one.
    const std::optional<Task>& checkTask() const { return checkTask_; }

    /// What now stands in the field.
    Q_INVOKABLE void type(const QString& appPassword);
    /// Opens the panel, or tests what was typed.
    Q_INVOKABLE void press();
    Q_INVOKABLE void decline();
    Q_INVOKABLE void openPage();

  Q_SIGNALS:
    void askedChanged();
    void askChanged();
    /// The field has nothing to hold any more.
    void passwordKept();

  private:
    struct Check;

    void begin(std::optional<MailAccount> account);
    void setAsk(GmailAsk ask);
    static void run(const Check& check, const CancelToken& token);
    bool isOpen(const Check& check) const;
    void showFailure(const Check& check, const std::string& sentence);
    void showConnected(const Check& check);
    void finish(const Check& check);

    AppState& state_;
    const GmailAskWords words_;
    LinesModel promises_;
    /// None while nothing is asked.
    std::optional<MailAccount> account_;
    std::string address_;
    GmailAsk ask_;
    Secret appPassword_;
    /// Tells a question from the one before it, which a test may still belong to.
    int question_ = 0;
    std::optional<Task> checkTask_;
};

}  // namespace brindlet::screens
