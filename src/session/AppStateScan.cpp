#include <utility>

#include "base/Text.h"
#include "platform/Clock.h"
#include "platform/MainQueue.h"
#include "session/AppState.h"
#include "session/AskSession.h"
#include "session/Corrections.h"
#include "session/Scan.h"
#include "session/ScanStages.h"

namespace brindlet {
namespace {

constexpr double persistDelay = 0.6;

}  // namespace

/// The scan's port: each call hops to the main thread. It is cut as soon as a newer scan has begun:
/// then what would show is dropped, and only what must be kept still happens.
class AppState::Port : public ScanPort {
  public:
    Port(const std::shared_ptr<AppState>& state, const MailAccount& account,
         const MailFolder& folder)
        : state_(state),
          queue_(state->services_.mainQueue),
          locale_(state->services_.locale),
          pauseOnBattery_(state->schedule.pauseOnBatteryFlag()),
          number_(state->scanNumber_),
          account_(account),
          folder_(folder) {}

    std::optional<Bounds> bounds() override {
        return ask([](AppState& state) { return Bounds{*state.limit, *state.reach}; });
    }
    std::optional<Decided> decided() override {
        return ask([](AppState& state) {
            return Decided{state.seen.skipSeen(), state.seen.keys()};
        });
    }
    std::optional<Learned> learned() override {
        return ask([](AppState& state) {
            return Learned{state.rules.combined(), state.calibration.flips()};
        });
    }
    bool setCorrespondentCount(std::int64_t count) override {
        return show([&](AppState& state) { state.correspondentCount.set(count); });
    }
    bool setStage(const std::string& words) override {
        return show([&](AppState& state) { state.stage.set(words); });
    }
    bool located(std::int64_t rows) override {
        return show([&](AppState& state) {
            state.stage.set(stages::locating);
            state.total.set(rows);
        });
    }
    bool reading(std::int64_t handled, std::int64_t rows) override {
        return setStage(stages::reading(handled, rows, locale_));
    }
    bool failUnreadable(std::int64_t readable, std::int64_t rows) override {
        return show([&](AppState& state) { state.failScanUnreadable(readable, rows); });
    }
    bool willSort(std::int64_t dropped, std::int64_t kept) override {
        return show([&](AppState& state) {
            state.skipped.set(dropped);
            state.total.set(kept);
            state.stage.set(stages::willSort(kept, dropped, locale_));
        });
    }
    bool endWithoutSorting() override {
        return show([](AppState& state) {
            // The machine stays awake until the next scan replaces the activity: deliberately so.
            state.running.set(false);
            state.stage.set({});
            state.screen.set(Screen::results);
        });
    }
    bool publish(const Progress& progress) override {
        // The scan goes on meanwhile, one publication ahead at most; what comes later comes later
        // on the queue too.
        if (published_ && !published_->wait().value_or(false)) return false;
        published_.emplace(queue_, [state = state_, number = number_, progress] {
            const auto self = state.lock();
            if (self && self->scanNumber_ == number) {
                self->done.set(progress.done);
                self->rate.set(progress.rate);
                self->eta.set(progress.eta);
                self->verdicts.set(progress.verdicts);
                self->families.clear();
            }
            return self != nullptr;
        });
        return true;
    }
    bool pausesOnBattery() override { return *pauseOnBattery_; }
    bool finish(const VerdictList& found, Date started) override {
        Findings findings(found, account_, folder_, started);
        return tell([&](AppState& state) {
            if (isPresent(state))
                state.finishScan(std::move(findings));
            else
                state.recordScan(findings);
        });
    }

  private:
    bool isPresent(const AppState& state) const { return state.scanNumber_ == number_; }

    /// Asks the session, whichever scan it shows now.
    template <class F>
    auto ask(F question) -> std::optional<std::invoke_result_t<F, AppState&>> {
        return askSession(state_, queue_, std::move(question));
    }
    /// Does it, whichever scan the session shows now; false when the session is gone.
    template <class F>
    bool tell(F deed) {
        return ask([&](AppState& state) {
                   deed(state);
                   return true;
               })
            .has_value();
    }
    /// Does it only while this scan is the present one.
    template <class F>
    bool show(F deed) {
        return tell([&](AppState& state) {
            if (isPresent(state)) deed(state);
        });
    }

    std::weak_ptr<AppState> state_;
    std::optional<Hop<bool>> published_;
    MainQueue& queue_;
    const Locale& locale_;
    const std::shared_ptr<const std::atomic<bool>> pauseOnBattery_;
    const std::uint64_t number_;
    const MailAccount account_;
    const MailFolder folder_;
};

void AppState::startScan(std::optional<MailAccount> fromAccount,
                         std::optional<MailFolder> fromFolder) {
    if (fromAccount) account.set(std::move(*fromAccount));
    if (fromFolder) folder.set(std::move(*fromFolder));
    if (!*account || !*folder) return;
    running.set(true);
    sleepAssertion_ = services_.power.keepAwake("Sorting mail");
    navigate(Screen::scanning);

    verdicts.set({});
    families.clear();
    done.set(0);
    total.set(0);
    rate.set(0);
    eta.set(std::nullopt);
    movedCount.set(0);
    moveTotal.set(0);
    moveNote.set({});
    moveError.set(std::nullopt);
    pending.set(std::nullopt);
    pastMove.set(std::nullopt);
    movedAlready.set({});
    scanError.set(std::nullopt);
    stage.set(stages::readingMailbox);

    Scan::Target target{**account, **folder, {}};
    for (const auto& each : *accounts)
        if (!each.address.empty()) target.ownAddresses.push_back(lowercased(each.address));
    ++scanNumber_;
    auto port = std::make_shared<Port>(shared_from_this(), target.account, target.folder);
    const Scan::Tools tools{services_.clock, services_.power, mail_, classifier_, readers_};
    task_ = Task::start(TaskPriority::userInitiated,
                        [tools, target = std::move(target), port](const CancelToken& token) {
                            Scan(tools, target, *port).run(token);
                        });
}

void AppState::stopScan() {
    if (task_) task_->cancel();
    running.set(false);
    sleepAssertion_.reset();
    screen.set(Screen::results);
}

void AppState::endRun() {
    running.set(false);
    stage.set({});
    sleepAssertion_.reset();
}

void AppState::failScanUnreadable(std::int64_t readable, std::int64_t rows) {
    endRun();
    scanError.set(stages::unreadable(readable, rows, services_.locale));
    screen.set(Screen::results);
}

AppState::Findings::Findings(const VerdictList& found, const MailAccount& scanned,
                             const MailFolder& source, Date start)
    : verdicts(found),
      index(std::make_shared<const VerdictIndex>(found)),
      account(scanned),
      folder(source),
      started(start) {
    const bool inJunk = source.role == MailFolder::Role::junk;
    std::vector<std::int64_t> proposed;
    proposed.reserve(found.size());
    decided.reserve(found.size());
    for (const auto& verdict : found) {
        if (!verdict.messageID) continue;
        if (proposesTick(inJunk, verdict.isJunk)) proposed.push_back(verdict.id);
        decided.emplace_back(*verdict.messageID, verdict.isJunk);
    }
    ticked = Ids(std::move(proposed));
}

void AppState::finishScan(Findings findings) {
    endRun();
    verdicts.set(findings.verdicts);
    families.clear();
    index_ = findings.index;
    indexed_ = verdicts.revision();
    approved.set(findings.ticked);
    schedule.setLastRun(services_.clock.now());
    currentRecord = recordScan(findings);
    screen.set(Screen::results);
    if (schedule.enabled() && schedule.mode() == SortMode::automatic) startMove();
}

ScanRecord AppState::recordScan(const Findings& findings) {
    const auto label = findings.account.displayLabel();
    seen.mark(findings.decided, label, findings.folder.name);

    ScanRecord record;
    record.started = findings.started;
    record.account = label;
    record.folder = findings.folder.name;
    record.scanned = static_cast<std::int64_t>(findings.verdicts.size());
    record.junk = findings.verdicts.junkCount();
    record.protectedCount = findings.verdicts.vetoedCount();
    history.add(record);
    scanFiles_.post([history = historyOwner_, found = findings.verdicts, ticked = findings.ticked,
                     started = findings.started] {
        std::vector<ScanRecord::Saved> saved;
        saved.reserve(found.size());
        for (const auto& verdict : found)
            saved.push_back({verdict.id, verdict.messageID, verdict.sender, verdict.subject,
                             std::string(rawValue(verdict.category)), verdict.isJunk,
                             verdict.vetoed, ticked.contains(verdict.id)});
        history->writeScan(saved, started);
    });
    return record;
}

/// A job that saves the ticks as they stand now, on whatever thread it runs.
std::function<void()> AppState::stamping() const {
    return [queue = scanFiles_, history = historyOwner_, considered = index().ids(),
            ticked = *approved, started = currentRecord->started]() mutable {
        queue.post([history, considered = std::move(considered), ticked = std::move(ticked),
                    started] { history->stampApproved(considered, ticked, started); });
    };
}

void AppState::persistSoon() {
    if (!currentRecord) return;
    if (persistTask_) persistTask_->cancel();
    persistTask_ =
        Task::start(TaskPriority::utility,
                    [&clock = services_.clock, stamp = stamping()](const CancelToken& token) {
                        if (clock.sleep(persistDelay, token)) stamp();
                    });
}

/// Does at once what `persistSoon` has put off.
void AppState::persistNow() {
    if (!persistTask_ || persistTask_->finished()) return;
    persistTask_->cancel();
    stamping()();
}

}  // namespace brindlet
