#pragma once

#include <QQuickItem>
#include <QQuickWindow>
#include <functional>
#include <memory>
#include <vector>

#include "app/MainWindow.h"
#include "doubles/Doubles.h"
#include "doubles/RecordingUpdates.h"
#include "session/AppState.h"
#include "session/Updater.h"

namespace brindlet::testing {

/// A session over doubles with the real window on it, used as a person would: things are found by
/// name, clicked with the mouse, and typed at.
class Stage {
  public:
    enum class Motion { full, none };
    explicit Stage(const std::function<void(AppState&)>& prepare = {},
                   Motion motion = Motion::full);

    ~Stage();
    Stage(const Stage&) = delete;
    Stage& operator=(const Stage&) = delete;

    doubles::World& world = doubles::World::lasting();
    std::shared_ptr<AppState> state;
    doubles::RecordingUpdates updates;
    Updater updater{updates};
    std::unique_ptr<MainWindow> main;

    QQuickWindow* window() const { return main->window(); }
    screens::AppModel& model() const { return main->model(); }
    /// The visible item of that object name; null when there is none.
    QQuickItem* find(const QString& name) const;
    /// The same, as soon as it is there and the screens stand still.
    QQuickItem* await(const QString& name) const;
    bool click(const QString& name) const;
    /// Lets the pointer rest on it.
    bool hover(const QString& name) const;
    void press(Qt::Key key, Qt::KeyboardModifiers modifiers = Qt::NoModifier) const;
    void type(const QString& text) const;
    /// The name of what has the keyboard; of the list, where it is a list's row.
    QString focused() const;
    /// Tabs until that has the keyboard; false when it never does.
    bool tabTo(const QString& name) const;
    /// Until no screen moves and all refreshes are through.
    void settle() const;
    /// All visible items that a person can reach with Tab, in their order.
    std::vector<QQuickItem*> tabStops() const;
    /// All visible items.
    std::vector<QQuickItem*> items() const;
};

MailFolder folder(std::int64_t id, const std::string& name, std::int64_t count);
MailAccount account(const std::string& address, std::vector<MailFolder> folders);
/// So many verdicts, spread over the categories, with some protected and some without an id.
VerdictList verdicts(int count);
/// A scan so many days before the test's present, with so many messages moved.
ScanRecord scanRecord(const AppState& state, double daysAgo, const std::string& folder,
                      int moved = 0);
/// The same from forty addresses of one domain.
VerdictList verdictsOfOneDomain(int count);

/// States of a session that have a screen of their own each. They leave the session on that screen.
namespace scenes {
/// The first screen with a move of 1,834 that stopped after 412, in an account that is known.
void interrupted(AppState& state);
void permission(AppState& state);
/// The language model is still on its way to this machine.
void unsupported(AppState& state);
/// Two accounts with folders of all kinds; nothing selected.
void mailboxes(AppState& state);
/// The same with the inbox selected and one folder gone.
void chosenMailbox(AppState& state);
/// A Gmail account that is not connected, its inbox selected.
void gmail(AppState& state);
/// The same with the question open.
void askedAboutGmail(AppState& state);
void noAccounts(AppState& state);
void scanning(AppState& state);
void pausedScan(AppState& state);
/// 200 verdicts of the inbox, all junk ticked.
void results(AppState& state);
void openResults(AppState& state);
/// The same after one sweep and one correction: an undo and an offer stand.
void correctedResults(AppState& state);
/// The open results after one sweep alone.
void sweptResults(AppState& state);
/// Ads and newsletters, of which the newsletters were moved; of these one is to be put back.
void movedResults(AppState& state);
/// The end of a move that took everything.
void allDone(AppState& state);
/// The results of `results` in an account with junk folders of its own.
void movable(AppState& state);
/// The same with a move halfway.
void moving(AppState& state);
/// The same after one that failed.
void failedMove(AppState& state);
void stoppedScan(AppState& state);
void nothingFound(AppState& state);
/// Four scans, the first moved three messages and has its file; a bin of two.
void history(AppState& state);
/// The same with the first scan moved by hundreds.
void longHistory(AppState& state);
/// The same as the first with the rules of `rules`, of which four last.
void taughtHistory(AppState& state);
void emptyHistory(AppState& state);
/// The schedule on, two accounts, two folders picked of the first and one that is gone.
void automatic(AppState& state);
/// The same with nothing picked and the schedule off.
void automaticOff(AppState& state);
/// The schedule on before any account was read.
void automaticAtFirst(AppState& state);
void noRules(AppState& state);
/// Two flipped categories and rules of every kind, over the mail of `results`.
void rules(AppState& state);
}  // namespace scenes

}  // namespace brindlet::testing
