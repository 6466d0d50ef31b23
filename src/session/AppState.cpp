#include "session/AppState.h"

#include "platform/Desktop.h"
#include "platform/LanguageModel.h"
#include "platform/Locale.h"
#include "platform/UserDefaults.h"
#include "session/Eta.h"

namespace brindlet {
namespace {

constexpr std::int64_t defaultLimit = 500;
constexpr const char* limitKey = "scan.limit";
constexpr const char* reachKey = "scan.reach";

Reach storedReach(const UserDefaults& defaults) {
    const auto word = defaults.string(reachKey);
    return word ? fromRaw<Reach>(*word).value_or(Reach::month) : Reach::month;
}

}  // namespace

std::shared_ptr<AppState> AppState::make(Services services, int readers, SeenAhead* ahead) {
    std::shared_ptr<AppState> state(new AppState(services, readers, ahead));
    state->observeStores();
    return state;
}

// The members load the stores in the order of their declaration, which is the order they need.
AppState::AppState(Services services, int readers, SeenAhead* ahead)
    : limit(*this, services.defaults.integer(limitKey).value_or(defaultLimit)),
      reach(*this, storedReach(services.defaults)),
      scheduleOwner_(std::make_shared<Schedule>(services)),
      destinationsOwner_(std::make_shared<Destinations>(services)),
      calibrationOwner_(std::make_shared<Calibration>(services)),
      interruptedOwner_(std::make_shared<Interrupted>(services)),
      rulesOwner_(std::make_shared<Rules>(services)),
      historyOwner_(std::make_shared<History>(services)),
      seenOwner_(std::make_shared<Seen>(services, ahead)),
      schedule(*scheduleOwner_),
      destinations(*destinationsOwner_),
      calibration(*calibrationOwner_),
      interrupted(*interruptedOwner_),
      rules(*rulesOwner_),
      history(*historyOwner_),
      seen(*seenOwner_),
      services_(services),
      readers_(readers),
      mail_(std::make_shared<const MailStore>(services)),
      classifier_(std::make_shared<const Classifier>(services.model)),
      mover_(std::make_shared<Mover>(services)),
      gmail_(std::make_shared<Gmail>(services.keys, services.tls)) {
    seen.attribute(history);
}

void AppState::observeStores() {
    const auto forward = [weak = weak_from_this()] {
        if (const auto self = weak.lock()) self->willChange();
    };
    childObservers_.push_back(rules.subscribe(forward));
    childObservers_.push_back(history.subscribe(forward));
    childObservers_.push_back(seen.subscribe(forward));
    childObservers_.push_back(schedule.subscribe(forward));
    childObservers_.push_back(destinations.subscribe(forward));
    childObservers_.push_back(calibration.subscribe(forward));
    childObservers_.push_back(interrupted.subscribe(forward));
}

bool AppState::canReadIndex() const {
    return mail_->canReadIndex();
}

void AppState::pressOn() {
    if (!canReadIndex()) {
        navigate(Screen::permission);
        return;
    }
    loadAccounts(false);
    navigate(Screen::pick);
}

void AppState::navigate(Screen to) {
    if (to != *screen) navStack_.push_back(*screen);
    screen.set(to);
}

void AppState::goBack() {
    if (navStack_.empty()) return;
    const auto back = navStack_.back();
    navStack_.pop_back();
    screen.set(back);
}

void AppState::setLimit(std::int64_t most) {
    limit.set(most);
    services_.defaults.setInteger(limitKey, most);
}

void AppState::saveReach() {
    services_.defaults.setString(reachKey, std::string(rawValue(*reach)));
}

std::optional<std::string> AppState::etaText() const {
    return etaWords(*running, *done, *total, *rate, services_.locale);
}

double AppState::progress() const {
    return *total < 1 ? 0 : static_cast<double>(*done) / static_cast<double>(*total);
}

bool AppState::isJunkFolder() const {
    return *folder && (*folder)->role == MailFolder::Role::junk;
}

std::int64_t AppState::decidedInFolder() const {
    if (!*account || !*folder) return 0;
    const auto label = (*account)->displayLabel();
    const auto& name = (*folder)->name;
    return isJunkFolder() ? seen.junkCount(label, name) : seen.count(label, name);
}

const VerdictIndex& AppState::index() const {
    if (indexed_ != verdicts.revision()) {
        index_ = std::make_shared<const VerdictIndex>(*verdicts);
        indexed_ = verdicts.revision();
    }
    return *index_;
}

const VerdictSplit& AppState::split() const {
    const std::pair now(verdicts.revision(), movedAlready.revision());
    if (splitOf_ != now) {
        split_ = VerdictSplit(*verdicts, *movedAlready);
        splitOf_ = now;
    }
    return split_;
}

const std::vector<std::uint32_t>& AppState::remainingVerdicts() const {
    return split().remaining;
}

const std::vector<std::uint32_t>& AppState::movedVerdicts() const {
    return split().moved;
}

std::int64_t AppState::remainingJunk() const {
    return split().junk;
}

std::int64_t AppState::remainingKept() const {
    return split().kept;
}

std::int64_t AppState::tickedCount(Category category) const {
    return static_cast<std::int64_t>(approved->countCommon(split().remainingOf(category)));
}

std::int64_t AppState::movableCount() const {
    return static_cast<std::int64_t>(approved->countCommon(split().movable));
}

std::int64_t AppState::putBackCount() const {
    return static_cast<std::int64_t>(putBack->countCommon(split().movedIds));
}

bool AppState::resultsEmpty() const {
    return !*scanError && remainingVerdicts().empty() && movedVerdicts().empty() && !*moving;
}

void AppState::drainWrites() {
    scanFiles_.drain();
}

}  // namespace brindlet
