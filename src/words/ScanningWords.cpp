#include "words/ScanningWords.h"

#include "session/AppState.h"
#include "session/ScanStages.h"
#include "words/Decimal.h"

namespace brindlet {
namespace {

constexpr double shownAsSeconds = 90;
constexpr double shownAsMinutes = 5400;

std::string placeOf(const AppState& state) {
    std::string place;
    if (*state.account) place = (*state.account)->displayLabel();
    if (*state.folder) {
        if (!place.empty()) place += " \u00b7 ";
        place += (*state.folder)->name;
    }
    return place;
}

std::vector<Stat> statsOf(const AppState& state) {
    const auto& locale = state.services().locale;
    std::vector<Stat> stats;
    if (*state.rate > 0) stats.push_back({oneDecimal(*state.rate) + "/s", "speed"});
    if (const auto left = remainingWords(*state.eta, locale)) stats.push_back({*left, "remaining"});
    if (*state.skipped > 0) stats.push_back({locale.grouped(*state.skipped), "skipped"});
    if (const auto vetoed = state.verdicts->vetoedCount(); vetoed > 0)
        stats.push_back({locale.grouped(vetoed), "protected"});
    if (*state.running)
        stats.push_back({locale.grouped(state.verdicts->junkCount()), "junk so far"});
    return stats;
}

}  // namespace

std::optional<std::string> remainingWords(std::optional<double> seconds, const Locale& locale) {
    if (!seconds || !(*seconds > 1)) return std::nullopt;
    if (*seconds < shownAsSeconds) return locale.grouped(static_cast<std::int64_t>(*seconds)) + "s";
    if (*seconds < shownAsMinutes)
        return locale.grouped(static_cast<std::int64_t>(*seconds / 60)) + " min";
    return oneDecimal(*seconds / 3600) + " hr";
}

ScanningWords scanningWords(const AppState& state) {
    const auto& locale = state.services().locale;
    ScanningWords words;
    words.share = state.progress();
    // From the whole numbers: 0.29 * 100 would be cut to 28.
    words.percent = locale.grouped(*state.total < 1 ? 0 : *state.done * 100 / *state.total) + "%";
    words.count = locale.grouped(*state.done) + " / " + locale.grouped(*state.total);
    words.stage = *state.stage;
    words.place = placeOf(state);
    words.stats = statsOf(state);
    words.pausedOnBattery = *state.running && *state.stage == stages::pausedOnBattery;
    words.keepsScanning = !state.schedule.pauseOnBattery();
    return words;
}

}  // namespace brindlet
