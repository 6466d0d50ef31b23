#include "stores/Schedule.h"

#include <algorithm>
#include <utility>

#include "base/Json.h"
#include "base/Text.h"
#include "platform/Clock.h"
#include "platform/Locale.h"
#include "platform/UserDefaults.h"

namespace brindlet {
namespace {

namespace keys {
constexpr std::string_view enabled = "auto.enabled";
constexpr std::string_view enabledAt = "auto.enabledAt";
constexpr std::string_view mode = "auto.mode";
constexpr std::string_view cadence = "auto.cadence";
constexpr std::string_view lastRun = "auto.lastRun";
constexpr std::string_view pauseOnBattery = "pauseOnBattery";
constexpr std::string_view watched = "auto.watched";
}  // namespace keys

/// Dates stand in the defaults as Unix seconds, other than in the store files.
std::optional<Date> storedDate(const UserDefaults& defaults, std::string_view key) {
    const auto seconds = defaults.number(key);
    if (!seconds || !(*seconds > 0)) return std::nullopt;
    return Date::fromUnix(*seconds);
}

void storeDate(UserDefaults& defaults, std::string_view key, std::optional<Date> date) {
    if (date)
        defaults.setNumber(key, date->unix());
    else
        defaults.remove(key);
}

template <class E>
E storedCase(const UserDefaults& defaults, std::string_view key, E otherwise) {
    return fromRaw<E>(defaults.string(key).value_or("")).value_or(otherwise);
}

WatchedMailbox readWatched(JsonReader& in) {
    std::optional<std::string> account, folder;
    in.object([&](std::string_view key) {
        if (key == "account")
            account = in.string();
        else if (key == "folder")
            folder = in.string();
    });
    if (account && folder) return {*std::move(account), *std::move(folder)};
    in.fail();
    return {};
}

std::vector<WatchedMailbox> decodedWatched(std::string json) {
    JsonReader in(std::move(json));
    std::vector<WatchedMailbox> watched;
    in.array([&] { watched.push_back(readWatched(in)); });
    if (!in.finish()) watched.clear();
    return watched;
}

std::string encodedWatched(const std::vector<WatchedMailbox>& watched) {
    JsonWriter out;
    out.beginArray();
    for (const auto& mailbox : watched) {
        out.beginObject();
        out.member("account", mailbox.account);
        out.member("folder", mailbox.folder);
        out.endObject();
    }
    out.endArray();
    return std::move(out).text();
}

}  // namespace

double cadenceSeconds(Cadence cadence) {
    switch (cadence) {
        case Cadence::hourly:
            return 3600;
        case Cadence::every6h:
            return 21600;
        case Cadence::daily:
            return 86400;
        case Cadence::weekly:
            return 604800;
    }
    return 86400;
}

std::string_view cadenceLabel(Cadence cadence) {
    switch (cadence) {
        case Cadence::hourly:
            return "Every hour";
        case Cadence::every6h:
            return "Every 6 hours";
        case Cadence::daily:
            return "Once a day";
        case Cadence::weekly:
            return "Once a week";
    }
    return "Once a day";
}

Schedule::Schedule(Services services) : services_(services) {
    const UserDefaults& defaults = services_.defaults;
    enabled_.set(defaults.boolean(keys::enabled).value_or(false));
    enabledAt_.set(storedDate(defaults, keys::enabledAt));
    mode_.set(storedCase(defaults, keys::mode, SortMode::review));
    cadence_.set(storedCase(defaults, keys::cadence, Cadence::daily));
    lastRun_.set(storedDate(defaults, keys::lastRun));
    pauseOnBattery_.set(defaults.boolean(keys::pauseOnBattery).value_or(true));
    *pauseFlag_ = *pauseOnBattery_;
    if (auto json = defaults.data(keys::watched)) watched_.set(decodedWatched(*std::move(json)));
    startCountingIfNeeded();
}

void Schedule::startCountingIfNeeded() {
    if (enabled() && !lastRun() && !enabledAt()) setEnabledAt(services_.clock.now());
}

void Schedule::setEnabled(bool enabled) {
    enabled_.set(enabled);
    services_.defaults.setBoolean(keys::enabled, enabled);
    startCountingIfNeeded();
    if (!enabled) setEnabledAt(std::nullopt);
}

void Schedule::setEnabledAt(std::optional<Date> enabledAt) {
    enabledAt_.set(enabledAt);
    storeDate(services_.defaults, keys::enabledAt, enabledAt);
}

void Schedule::setMode(SortMode mode) {
    mode_.set(mode);
    services_.defaults.setString(keys::mode, std::string(rawValue(mode)));
}

void Schedule::setCadence(Cadence cadence) {
    cadence_.set(cadence);
    services_.defaults.setString(keys::cadence, std::string(rawValue(cadence)));
}

void Schedule::setLastRun(std::optional<Date> lastRun) {
    lastRun_.set(lastRun);
    storeDate(services_.defaults, keys::lastRun, lastRun);
}

void Schedule::setPauseOnBattery(bool pause) {
    pauseOnBattery_.set(pause);
    *pauseFlag_ = pause;
    services_.defaults.setBoolean(keys::pauseOnBattery, pause);
}

void Schedule::setWatched(std::vector<WatchedMailbox> watched) {
    watched_.set(std::move(watched));
    services_.defaults.setData(keys::watched, encodedWatched(*watched_));
}

void Schedule::toggle(const std::string& account, const std::string& folder) {
    auto changed = watched();
    if (std::erase(changed, WatchedMailbox{account, folder}) == 0)
        changed.push_back({account, folder});
    setWatched(std::move(changed));
}

std::optional<Date> Schedule::nextRun() const {
    if (!enabled() || watched().empty()) return std::nullopt;
    const auto base = lastRun() ? lastRun() : enabledAt();
    if (!base) return std::nullopt;
    return *base + cadenceSeconds(cadence());
}

bool Schedule::isDue() const {
    const auto next = nextRun();
    return next && services_.clock.now() >= *next;
}

std::string Schedule::summary() const {
    if (!enabled()) return "Off";
    if (watched().empty()) return "On, but no mailbox picked";
    const auto count = std::ssize(watched());
    const auto next = nextRun();
    return services_.locale.grouped(count) + " mailbox" + (count == 1 ? "" : "es") + " · " +
           lowercased(cadenceLabel(cadence())) + " · next " +
           (next ? services_.locale.relative(*next, services_.clock.now()) : "soon");
}

}  // namespace brindlet
