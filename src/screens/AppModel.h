#pragma once

#include <QtQml/qqmlregistration.h>
#include <QObject>

#include "screens/Coalescer.h"
#include "screens/automatic/AutomaticModel.h"
#include "screens/gmail/GmailAskModel.h"
#include "screens/history/HistoryModel.h"
#include "screens/permission/PermissionModel.h"
#include "screens/pick/PickModel.h"
#include "screens/results/ResultsModel.h"
#include "screens/rules/RulesModel.h"
#include "screens/scanning/ScanningModel.h"
#include "screens/unsupported/UnsupportedModel.h"
#include "screens/welcome/WelcomeModel.h"

namespace brindlet::screens {

/// What the window is made of: which screen stands, and one view-model a screen. Refreshed once a
/// turn of the event loop in which the session changed, and then only the screen on show, which is
/// told last: a new screen is born with finished words. Without a language model there is but one
/// screen, whatever the session's; without a window there is none on show. Main thread; the session
/// outlives it.
class AppModel : public QObject {
    Q_OBJECT
    QML_ELEMENT
    QML_UNCREATABLE("made by the program")
    Q_PROPERTY(QString title READ title CONSTANT)
    Q_PROPERTY(bool dark READ dark WRITE setDark NOTIFY darkChanged)
    /// Whether nothing is to move.
    Q_PROPERTY(bool still READ still WRITE setStill NOTIFY stillChanged)
    Q_PROPERTY(Screen screen READ screen NOTIFY screenChanged)
    Q_PROPERTY(brindlet::screens::WelcomeModel* welcome READ welcome CONSTANT)
    Q_PROPERTY(brindlet::screens::PermissionModel* permission READ permission CONSTANT)
    Q_PROPERTY(brindlet::screens::PickModel* pick READ pick CONSTANT)
    Q_PROPERTY(brindlet::screens::ScanningModel* scanning READ scanning CONSTANT)
    Q_PROPERTY(brindlet::screens::ResultsModel* results READ results CONSTANT)
    Q_PROPERTY(brindlet::screens::AutomaticModel* automatic READ automatic CONSTANT)
    Q_PROPERTY(brindlet::screens::HistoryModel* history READ history CONSTANT)
    Q_PROPERTY(brindlet::screens::RulesModel* rules READ rules CONSTANT)
    Q_PROPERTY(brindlet::screens::UnsupportedModel* unsupported READ unsupported CONSTANT)
    /// Stands over any screen but the unsupported one.
    Q_PROPERTY(brindlet::screens::GmailAskModel* gmailAsk READ gmailAsk CONSTANT)

  public:
    enum Screen {
        Welcome,
        Permission,
        Pick,
        Scanning,
        Results,
        Automatic,
        History,
        Rules,
        Unsupported
    };
    Q_ENUM(Screen)

    explicit AppModel(AppState& state);

    QString title() const;
    bool dark() const { return dark_; }
    void setDark(bool dark);
    bool still() const { return still_; }
    void setStill(bool still);
    Screen screen() const { return screen_; }
    /// The window comes, to the session's present screen, or goes, and with it what ends with a
    /// look at the screen on show. It is there from the beginning.
    void setShown(bool shown);
    WelcomeModel* welcome() { return &welcome_; }
    PermissionModel* permission() { return &permission_; }
    PickModel* pick() { return &pick_; }
    ScanningModel* scanning() { return &scanning_; }
    ResultsModel* results() { return &results_; }
    AutomaticModel* automatic() { return &automatic_; }
    HistoryModel* history() { return &history_; }
    RulesModel* rules() { return &rules_; }
    UnsupportedModel* unsupported() { return &unsupported_; }
    GmailAskModel* gmailAsk() { return &gmailAsk_; }
    /// Sees what changes without a word from the session: whether there is a model.
    Q_INVOKABLE void lookAgain() { refresh(); }
    const Coalescer& coalescer() const { return coalescer_; }

  Q_SIGNALS:
    void darkChanged();
    void stillChanged();
    void screenChanged();

  private:
    void leave();
    void refresh();

    AppState& state_;
    bool shown_ = true;
    /// The screen went with the window, so it comes anew with the next.
    bool left_ = false;
    bool dark_ = true;
    bool still_ = false;
    Screen screen_ = Welcome;
    WelcomeModel welcome_;
    PermissionModel permission_;
    PickModel pick_;
    ScanningModel scanning_;
    ResultsModel results_;
    AutomaticModel automatic_;
    HistoryModel history_;
    RulesModel rules_;
    UnsupportedModel unsupported_;
    GmailAskModel gmailAsk_;
    Coalescer coalescer_;
};

}  // namespace brindlet::screens
