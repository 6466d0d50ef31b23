#include "words/HistoryWords.h"

#include <algorithm>
#include <cmath>
#include <utility>

#include "platform/Locale.h"
#include "session/AppState.h"
#include "words/Subject.h"

namespace brindlet {
namespace {

std::string placeOf(const ScanRecord& record) {
    return record.folder + " - " + record.account;
}

std::string sortedOf(const ScanRecord& record, const Locale& locale) {
    return locale.grouped(record.scanned) + " sorted";
}

std::string movedOf(const ScanRecord& record, const Locale& locale) {
    return locale.grouped(std::ssize(record.moved)) + " moved";
}

/// Whole days until the bin lets go of the record. The bin is only cleared when the program starts,
/// so one that has run for weeks may hold what has no time left; and a clock may have been set back
/// since.
std::int64_t daysLeft(const ScanRecord& record, Date now) {
    constexpr double most = History::daysInBin;
    const double age = now - record.deletedAt.value_or(now);
    return static_cast<std::int64_t>(std::clamp(std::floor(most - age / 86400), 0.0, most));
}

}  // namespace

HistoryWords historyWords(const AppState& state) {
    const auto& locale = state.services().locale;
    HistoryWords words;
    const auto scans = std::ssize(*state.history.records);
    if (scans == 0) {
        words.nothing = "Nothing sorted yet.";
    } else {
        words.count = locale.grouped(scans) + (scans == 1 ? " scan" : " scans");
        if (const auto moved = state.history.totalMoved(); moved > 0)
            words.count += " \u00b7 " + locale.grouped(moved) + " messages moved in total";
    }
    if (const auto sorted = static_cast<std::int64_t>(state.seen.size()); sorted > 0) {
        words.forget = "Forget " + locale.grouped(sorted) + " sorted messages";
        words.forgetNote = "Next scan will look at everything again";
    }
    words.binNote = "kept for " + locale.grouped(History::daysInBin) + " days, then cleared";
    return words;
}

std::vector<RuleSection> taughtRules(const AppState& state) {
    if (state.rules.all->empty()) return {};
    return {{"", "", *state.rules.all}};
}

ScanWords scanWords(const ScanRecord& record, bool open, const Locale& locale) {
    ScanWords words;
    words.date = locale.dateTime(record.started);
    words.place = placeOf(record);
    words.sorted = sortedOf(record, locale);
    if (!record.moved.empty()) words.moved = movedOf(record, locale);
    words.chevron = open ? "chevron.up" : "chevron.down";
    words.junk = locale.grouped(record.junk) + " junk of " + locale.grouped(record.scanned);
    if (record.movedTo) words.movedInto = "moved into " + *record.movedTo;
    if (!record.moved.empty())
        words.movedTitle = locale.grouped(std::ssize(record.moved)) + " MOVED";
    return words;
}

MovedWords movedWords(const ScanRecord::Moved& message) {
    return {shownSubject(message.subject), message.sender};
}

DeletedScanWords deletedScanWords(const ScanRecord& record, Date now, const Locale& locale) {
    std::string line = sortedOf(record, locale);
    if (!record.moved.empty()) line += " \u00b7 " + movedOf(record, locale);
    const auto days = daysLeft(record, now);
    line += " - " + locale.grouped(days) + (days == 1 ? " day left" : " days left");
    return {placeOf(record), std::move(line)};
}

std::string_view emptyBinLabel(Step step) {
    return step == Step::first ? "Empty" : "Really delete all?";
}

std::string_view purgeLabel(Step step) {
    return step == Step::first ? "Delete" : "Really?";
}

}  // namespace brindlet
