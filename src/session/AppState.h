#pragma once

#include <cstdint>
#include <functional>
#include <memory>
#include <optional>
#include <set>
#include <string>
#include <string_view>
#include <unordered_map>
#include <unordered_set>
#include <utility>
#include <vector>

#include "base/EnumInfo.h"
#include "base/IdSet.h"
#include "base/Observable.h"
#include "base/Task.h"
#include "classify/Classifier.h"
#include "gmail/Gmail.h"
#include "mail/MailAccount.h"
#include "mail/MailStore.h"
#include "mail/Reach.h"
#include "mover/Mover.h"
#include "platform/Power.h"
#include "platform/Services.h"
#include "session/FamilyTemplates.h"
#include "session/MoveRoute.h"
#include "session/Review.h"
#include "session/VerdictIndex.h"
#include "session/VerdictList.h"
#include "session/VerdictSplit.h"
#include "stores/Calibration.h"
#include "stores/Destinations.h"
#include "stores/History.h"
#include "stores/Interrupted.h"
#include "stores/Rules.h"
#include "stores/Schedule.h"
#include "stores/Seen.h"

namespace brindlet {

struct KinAnswers;
class SeenAhead;

/// The one session object. Screens read its fields and call its operations; it owns the stores and
/// starts all work that takes time. Main thread only; background work gets copies and comes back
/// through the main queue. A change in any store counts as a change of the session, so whoever
/// watches it need not watch the stores.
///
/// It keeps no decision of its own: those are free functions over values beside it.
class AppState : public Observable, public std::enable_shared_from_this<AppState> {
  public:
    enum class Screen {
        welcome,
        permission,
        pick,
        scanning,
        results,
        automatic,
        history,
        rules,
    };
    /// What goes on when the question about Gmail has been answered.
    enum class GmailThen { scan, move, nothing };
    using Ids = IdSet;
    using PendingRule = brindlet::PendingRule;
    using Sweep = brindlet::Sweep;
    /// Where the last finished move of the scan on show went.
    struct PastMove {
        std::string from;
        std::string to;

        friend bool operator==(const PastMove&, const PastMove&) = default;
    };

    /// Loads the stores before it returns, but for the seen list that is read ahead, if it is. The
    /// adapters, and `ahead`, outlive the session and its tasks.
    static std::shared_ptr<AppState> make(Services services, int readers = 8,
                                          SeenAhead* ahead = nullptr);

    Published<Screen> screen{*this, Screen::welcome};
    Published<std::vector<MailAccount>> accounts{*this};
    Published<bool> loadingAccounts{*this};
    /// The selected folder's name, after it disappeared from the mail program.
    Published<std::optional<std::string>> folderVanished{*this};
    Published<std::int64_t> correspondentCount{*this};
    Published<std::optional<std::string>> scanError{*this};
    Published<bool> refreshingFolders{*this};
    std::optional<ScanRecord> currentRecord;
    /// The label that the next load of the accounts must select.
    std::optional<std::string> pendingAccountLabel;
    /// What goes on when the load of the accounts ends.
    bool retryMoveOnLoad = false;
    bool retryResumeOnLoad = false;
    /// Addresses of the Gmail accounts that Brindlet may file mail of by itself.
    Published<std::set<std::string>> gmailConnected{*this};
    /// The account whose question about Gmail is open.
    Published<std::optional<MailAccount>> askingGmail{*this};
    GmailThen askThen = GmailThen::nothing;
    /// Addresses whose question was answered with no, for as long as the program runs.
    std::set<std::string> declinedGmail;
    Published<std::optional<MailAccount>> account{*this};
    Published<std::optional<MailFolder>> folder{*this};
    /// The most messages that one scan takes; 0 or less means no cap.
    Published<std::int64_t> limit{*this};
    Published<Reach> reach{*this};
    Published<std::optional<std::int64_t>> inReach{*this};
    Published<std::string> stage{*this};
    Published<std::int64_t> done{*this};
    Published<std::int64_t> total{*this};
    /// Messages a second.
    Published<double> rate{*this};
    /// Seconds left.
    Published<std::optional<double>> eta{*this};
    Published<VerdictList> verdicts{*this};
    /// By sender key, as far as they were asked for; emptied whenever `verdicts` changes.
    std::unordered_map<std::string, FamilyTemplates> families;
    Published<bool> running{*this};
    /// The category open in the results.
    Published<std::optional<Category>> expand{*this};
    /// The ticked messages, by row id.
    Published<Ids> approved{*this};
    Published<std::optional<PastMove>> pastMove{*this};
    /// Message-IDs of what was moved out of this scan.
    Published<std::unordered_set<std::string>> movedAlready{*this};
    Published<bool> moving{*this};
    Published<std::int64_t> movedCount{*this};
    Published<std::int64_t> moveTotal{*this};
    Published<std::string> moveStage{*this};
    Published<std::string> moveNote{*this};
    Published<std::optional<std::string>> moveError{*this};

  private:
    // Behind pointers because background work may still hold one when the session ends.
    const std::shared_ptr<Schedule> scheduleOwner_;
    const std::shared_ptr<Destinations> destinationsOwner_;
    const std::shared_ptr<Calibration> calibrationOwner_;
    const std::shared_ptr<Interrupted> interruptedOwner_;
    const std::shared_ptr<Rules> rulesOwner_;
    const std::shared_ptr<History> historyOwner_;
    const std::shared_ptr<Seen> seenOwner_;

  public:
    Schedule& schedule;
    Destinations& destinations;
    Calibration& calibration;
    Interrupted& interrupted;
    Rules& rules;
    History& history;
    Seen& seen;
    Published<std::int64_t> skipped{*this};
    /// How often the person taught something since the scan.
    Published<std::int64_t> learned{*this};
    /// The offer on show.
    Published<std::optional<PendingRule>> pending{*this};
    /// What the undo bar can undo; outlives a new scan.
    Published<std::optional<Sweep>> lastSweep{*this};
    /// Sender groups and categories that were opened and left, the latest last.
    Published<std::vector<std::string>> reviewed{*this};
    Published<std::vector<std::string>> reviewedCats{*this};
    /// Messages that the person handled, oldest first, at most 2000.
    Published<std::vector<std::int64_t>> touched{*this};
    std::unordered_set<std::int64_t> touchedSet;
    /// Moved messages that the person chose to return.
    Published<Ids> putBack{*this};

    /// The permission test and the way on from the welcome.
    void pressOn();
    bool canReadIndex() const;

    void navigate(Screen to);
    void goBack();

    void loadAccounts(bool force);
    void refreshFolders();
    void refreshInReach();
    /// Another account than the selected one clears the folder.
    void selectAccount(const MailAccount& chosen);
    /// A folder without messages cannot be selected.
    void selectFolder(const MailFolder& chosen);
    void dismissVanished();
    void setLimit(std::int64_t limit);
    /// Stores `reach`; callers set it first.
    void saveReach();

    void startScan(std::optional<MailAccount> account, std::optional<MailFolder> folder);
    void stopScan();
    std::optional<std::string> etaText() const;
    /// Saves the ticks in a moment, once for a burst of changes.
    void persistSoon();

    /// Ticks or unticks one message, learns from it and offers the same for its like. It does not
    /// refuse a message without a Message-ID; screens do.
    void toggleMessage(std::int64_t id);
    /// All messages of the category that have a Message-ID, moved ones included. Learns nothing.
    void setCategoryTicked(Category category, bool tick);
    /// `learn` is false for a filtered list: what happens to match says nothing of a sender.
    void setMessagesTicked(const std::vector<std::int64_t>& ids, bool tick, bool learn);
    void applyPendingRule(const PendingRule& offer, bool learn, SweepChoice choice);
    void dismissPending();
    void undoSweep();
    /// Remembers what was opened and left: a sender group by its key, a category.
    void markReviewed(const std::string& group);
    void markCategoryReviewed(Category category);
    /// The recurring phrase of the verdict's subject among its sender's mail; may be empty. Mines
    /// the sender's whole family when it is first asked for.
    Classifier::Words familyTemplate(const Verdict& verdict);
    /// Puts a past scan back on screen; does nothing when its file is gone or damaged.
    void openRecord(const ScanRecord& record);

    /// Moves the ticked messages out of the scan's folder. Without account or folder, as after a
    /// past scan was put back, loads the accounts first.
    void startMove();
    /// Goes on with the move that was not finished.
    void resumeMove();
    /// Takes a moved message into `putBack`, or out of it; any other is left alone.
    void togglePutBack(std::int64_t id);
    /// Returns the messages in `putBack` to where they were moved from.
    void putBackMoved();
    /// True when the person has to be asked first; what was asked for then goes on with the answer.
    bool askGmailIfNeeded(const std::optional<MailAccount>& account, GmailThen then);
    /// The two answers.
    void gmailLinked(const MailAccount& account);
    void gmailDeclined(const MailAccount& account);
    /// Asks again, though it was answered before; nothing goes on with the answer.
    void connectGmail(const MailAccount& account);
    /// Forgets the account's app password, in the background.
    void disconnectGmail(const MailAccount& account);
    /// For testing and saving an app password. It outlives the session.
    const std::shared_ptr<Gmail>& gmail() const { return gmail_; }
    /// Where the selected account's junk goes.
    std::string destinationName() const;

    /// Looks every 300 seconds whether an automatic run is due, for as long as the program runs.
    /// However many were missed, as while the machine slept, the next look begins one.
    void startTimer();
    /// Scans the watched mailboxes one after another, and moves what it finds if the schedule says
    /// so; nothing while a scan, a move or such a run is under way. Stopping one of its scans stops
    /// no more than that.
    void runDue();
    /// Also true while it waits for the accounts, or between two mailboxes.
    bool automaticRunning() const { return *automaticRunning_; }
    /// The latest automatic run, if there ever was one.
    const std::optional<Task>& automaticTask() const { return automaticTask_; }

    /// Whose `stopMove` ends the running move.
    Mover& mover() { return *mover_; }
    /// The latest move, if there ever was one.
    const std::optional<Task>& moveTask() const { return moveTask_; }

    /// Where to find what in `verdicts`; made anew when they changed.
    const VerdictIndex& index() const;
    /// Positions in `verdicts`, in its order, split by `movedAlready`. Cached.
    const std::vector<std::uint32_t>& remainingVerdicts() const;
    const std::vector<std::uint32_t>& movedVerdicts() const;
    std::int64_t remainingJunk() const;
    std::int64_t remainingKept() const;
    std::int64_t protectedCount() const { return verdicts->vetoedCount(); }
    /// How many remaining messages of the category are ticked.
    std::int64_t tickedCount(Category category) const;
    /// How many messages a move would take now: all ticked ones with a Message-ID, even those that
    /// were moved before and have been ticked again since.
    std::int64_t movableCount() const;
    /// How many moved messages are in `putBack`, which may also hold those of an earlier scan.
    std::int64_t putBackCount() const;
    /// Nothing to show and nothing to do.
    bool resultsEmpty() const;

    /// The latest search for messages like the one corrected, if one was ever started.
    const std::optional<Task>& kindTask() const { return kindTask_; }
    /// The latest save put off, if there ever was one.
    const std::optional<Task>& persistTask() const { return persistTask_; }
    /// `done` over `total`; 0 before there is anything to do.
    double progress() const;
    bool isJunkFolder() const;
    /// What a scan of the selection would skip as already decided.
    std::int64_t decidedInFolder() const;

    /// The running scan, if one was ever started; for those who wait for its end.
    const std::optional<Task>& scanTask() const { return task_; }
    /// Waits until all scan files are written. For tools and tests.
    void drainWrites();
    const Services& services() const { return services_; }
    const MailStore& mail() const { return *mail_; }
    const Classifier& classifier() const { return *classifier_; }

  private:
    class Port;
    class AutomaticRun;

    AppState(Services services, int readers, SeenAhead* ahead);
    void observeStores();
    void adoptAccounts(std::vector<MailAccount> loaded, std::set<std::string> connected);
    void matchPendingLabel();
    void adoptRefreshedFolders(std::vector<MailAccount> loaded);
    void endRun();
    void failScanUnreadable(std::int64_t readable, std::int64_t total);
    /// What a scan has found, prepared on its own thread so that the main one has only to take it.
    struct Findings {
        VerdictList verdicts;
        std::shared_ptr<const VerdictIndex> index;
        Ids ticked;
        /// Message-ID and whether it is junk, of those that have one.
        std::vector<std::pair<std::string, bool>> decided;
        MailAccount account;
        MailFolder folder;
        Date started;

        Findings(const VerdictList& found, const MailAccount& scanned, const MailFolder& source,
                 Date start);
    };
    void finishScan(Findings findings);
    /// What a scan leaves behind, whether it is still the one on show or not.
    ScanRecord recordScan(const Findings& findings);

    const VerdictSplit& split() const;
    std::function<void()> stamping() const;
    void persistNow();
    void sweep(std::string what, std::vector<std::int64_t> ids, bool tick,
               std::optional<Rule> learnedRule);
    std::string sweepWords(bool tick, std::size_t count) const;
    void markTouched(std::int64_t id);
    void storeReview(std::string_view what, const std::vector<std::string>& strings);
    void restoreReviewState();
    const FamilyTemplates& familyOf(const std::string& key);
    void findKin(std::uint32_t position);
    void completeOffer(std::int64_t source, const KinAnswers& answers);
    void selectRecordAccount(const std::string& label);

    /// A load that was started for the caller's sake calls it again, and must not start another.
    enum class Caller { person, load };
    /// What a move takes along to its end.
    struct MoveRun {
        VerdictList verdicts;
        /// Positions of those that the person chose.
        std::vector<std::uint32_t> selected;
        MailAccount account;
        std::string source;
        std::string destination;
    };
    void startMove(Caller caller);
    void resumeMove(Caller caller);
    void beginMoving(std::size_t messages, const char* words);
    void runMover(Mover::Request request, MoveRoute route, std::string movingWords,
                  std::function<void(AppState&, const MoveOutcome&)> book,
                  std::function<bool()> instead = {});
    void showMoveProgress(Mover::Phase phase, std::int64_t count, std::int64_t of,
                          const std::string& source, const std::string& movingWords);
    void finishMove(const MoveRun& run, const MoveOutcome& outcome);
    std::function<bool()> filingThroughGmail(const MoveRun& run);
    void finishFiling(const MoveRun& run, const Gmail::Filed& filed);
    void goOnAfterGmail();
    void finishResume(const MoveRun& run, const MoveOutcome& outcome);
    void finishPutBack(const MoveRun& run, const MoveOutcome& outcome);
    void takeOut(const std::vector<const Verdict*>& gone);
    void bookMoved(const std::vector<const Verdict*>& gone, const MoveRun& run);
    bool isOnShow(const MoveRun& run) const;
    bool allowsUIMove() const;
    std::optional<std::string> savedDestination(const MailAccount& of) const;

    void timerTick();

    Services services_;
    int readers_;
    std::shared_ptr<const MailStore> mail_;
    std::shared_ptr<const Classifier> classifier_;
    std::shared_ptr<Mover> mover_;
    std::shared_ptr<Gmail> gmail_;
    std::vector<Subscription> childObservers_;
    std::optional<Task> timer_;
    std::optional<Task> automaticTask_;
    Published<bool> automaticRunning_{*this};
    std::optional<Task> task_;
    std::uint64_t scanNumber_ = 0;  // tells the present scan from one that a newer has replaced
    std::vector<Screen> navStack_;
    std::optional<Task> kindTask_;
    std::optional<Task> moveTask_;
    std::uint64_t movesBegun_ = 0;
    std::optional<Task> persistTask_;
    std::unique_ptr<Power::Activity> sleepAssertion_;
    /// What was worked out last, and of which revisions.
    mutable std::shared_ptr<const VerdictIndex> index_ = std::make_shared<const VerdictIndex>();
    mutable std::uint64_t indexed_ = 0;
    mutable VerdictSplit split_;
    mutable std::pair<std::uint64_t, std::uint64_t> splitOf_;
    /// Writes of scan files, in order: a stamp must find the file that it stamps.
    SerialQueue scanFiles_{TaskPriority::utility};
};

template <>
struct EnumInfo<AppState::Screen> {
    using Screen = AppState::Screen;
    static constexpr std::array<std::pair<Screen, std::string_view>, 8> all{{
        {Screen::welcome, "welcome"},
        {Screen::permission, "permission"},
        {Screen::pick, "pick"},
        {Screen::scanning, "scanning"},
        {Screen::results, "results"},
        {Screen::automatic, "automatic"},
        {Screen::history, "history"},
        {Screen::rules, "rules"},
    }};
};

}  // namespace brindlet
