#include <algorithm>

#include "platform/Clock.h"
#include "platform/MainQueue.h"
#include "session/AppState.h"
#include "session/AskSession.h"
#include "session/Watched.h"

namespace brindlet {
namespace {

constexpr double timerInterval = 300;
constexpr double accountPoll = 0.08;

}  // namespace

/// One automatic run: blocking code that runs straight down, on a thread of its own, and hops to
/// the main one for every step. Between two steps the person may have done anything. It unwinds
/// when the session is gone.
class AppState::AutomaticRun {
  public:
    explicit AutomaticRun(const std::shared_ptr<AppState>& state)
        : state_(state), queue_(state->services_.mainQueue), clock_(state->services_.clock) {}

    void run(const CancelToken& token) const {
        if (!loadAccounts(token)) return;
        const auto picked = ask([](AppState& state) { return state.schedule.watched(); });
        if (!picked) return;
        for (const auto& mailbox : *picked) {
            const auto turn = scan(mailbox);
            if (!turn) return;
            if (!turn->begun) continue;
            if (token.cancelled()) break;
            const auto move = ask([&](AppState& state) { return moveFound(state, *turn); });
            if (!move) return;
            if (*move) (*move)->wait();
        }
        (void)ask([](AppState& state) {
            state.schedule.setLastRun(state.services_.clock.now());
            state.automaticRunning_.set(false);
            return true;
        });
    }

  private:
    /// What has to be waited for at one mailbox, and by what the run knows its own scan again.
    /// Neither begun nor awaited is a mailbox passed over.
    struct Turn {
        std::optional<Task> awaited;
        bool begun = false;
        std::uint64_t scan = 0;
        std::uint64_t moves = 0;
    };

    template <class F>
    auto ask(F question) const -> std::optional<std::invoke_result_t<F, AppState&>> {
        return askSession(state_, queue_, std::move(question));
    }

    /// False when the session is gone.
    bool loadAccounts(const CancelToken& token) const {
        const auto missing = ask([](AppState& state) {
            const bool none = state.accounts->empty();
            if (none) state.loadAccounts(false);
            return none;
        });
        if (!missing || !*missing) return missing.has_value();
        while (true) {
            const auto loading = ask([](AppState& state) { return *state.loadingAccounts; });
            if (!loading) return false;
            if (!*loading || !clock_.sleep(accountPoll, token)) return true;
        }
    }

    /// Returns when the mailbox has been scanned or passed over; none when the session is gone.
    std::optional<Turn> scan(const WatchedMailbox& mailbox) const {
        while (true) {
            auto turn = ask([&](AppState& state) { return takeTurn(state, mailbox); });
            if (turn && turn->awaited) turn->awaited->wait();
            if (!turn || turn->begun || !turn->awaited) return turn;
        }
    }

    /// Begins the mailbox's scan if the way is clear, and otherwise tells what to wait for first.
    static Turn takeTurn(AppState& state, const WatchedMailbox& mailbox) {
        Turn turn;
        // A scan or a move that the person began meanwhile is neither replaced nor disturbed.
        if (*state.running) turn.awaited = state.task_;
        if (*state.moving) turn.awaited = state.moveTask_;
        if (turn.awaited) return turn;
        const auto& picked = state.schedule.watched();
        if (std::find(picked.begin(), picked.end(), mailbox) == picked.end()) return turn;
        const auto found = findWatched(*state.accounts, mailbox);
        if (!found) return turn;
        turn.moves = state.movesBegun_;
        state.startScan(found->account, found->folder);
        turn.awaited = state.task_;
        turn.begun = true;
        turn.scan = state.scanNumber_;
        return turn;
    }

    /// Moves what the turn's scan has found, unless the scan's end did, and tells what to wait for.
    /// When the person has begun another scan since, the ticks are not this one's any more.
    static std::optional<Task> moveFound(AppState& state, const Turn& turn) {
        if (state.schedule.mode() != SortMode::automatic || state.scanNumber_ != turn.scan)
            return std::nullopt;
        if (state.movesBegun_ == turn.moves && !state.approved->empty()) state.startMove();
        return *state.moving ? state.moveTask_ : std::nullopt;
    }

    std::weak_ptr<AppState> state_;
    MainQueue& queue_;
    Clock& clock_;
};

void AppState::startTimer() {
    if (timer_) timer_->cancel();
    timer_ = Task::start(
        TaskPriority::utility, [weak = weak_from_this(), &clock = services_.clock,
                                &queue = services_.mainQueue](const CancelToken& token) {
            const auto fire = [&token](AppState& state) {
                // It may have been replaced while this was on its way.
                if (!token.cancelled()) state.timerTick();
                return true;
            };
            while (clock.sleep(timerInterval, token) && askSession(weak, queue, fire)) {
            }
        });
}

void AppState::timerTick() {
    if (schedule.isDue() && !*running && !*moving) runDue();
}

void AppState::runDue() {
    if (*running || *moving || *automaticRunning_ || schedule.watched().empty()) return;
    automaticRunning_.set(true);
    automaticTask_ = Task::start(
        TaskPriority::utility,
        [run = AutomaticRun(shared_from_this())](const CancelToken& token) { run.run(token); });
}

}  // namespace brindlet
