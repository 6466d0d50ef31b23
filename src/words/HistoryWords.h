#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "base/Date.h"
#include "stores/ScanRecord.h"
#include "words/RuleWords.h"

namespace brindlet {

class AppState;
class Locale;

/// A control that asks once more before it does something for good.
enum class Step { first, second };

/// The words around the lists of the history.
struct HistoryWords {
    std::string title = "History";
    /// How many scans there are and what they moved; empty where there is none.
    std::string count;
    /// Stands where there is no scan; empty where there is one.
    std::string nothing;

    std::string rulesTitle = "RULES YOU TAUGHT IT";

    /// Empty, both, unless there is anything to forget.
    std::string forget;
    std::string forgetNote;

    std::string binTitle = "RECENTLY DELETED";
    std::string binNote;

    friend bool operator==(const HistoryWords&, const HistoryWords&) = default;
};

/// Main thread.
HistoryWords historyWords(const AppState& state);

/// The rules that last. Their heading stands outside of the list, so the one section has none.
std::vector<RuleSection> taughtRules(const AppState& state);

/// One past scan. The texts below `chevron` show only while it is open.
struct ScanWords {
    std::string date;
    /// Where it looked.
    std::string place;
    std::string sorted;
    /// Empty when nothing was moved.
    std::string moved;
    std::string chevron;

    std::string junk;
    /// Empty unless a move was booked.
    std::string movedInto;
    /// Over the list of what was moved; empty when nothing was.
    std::string movedTitle;

    friend bool operator==(const ScanWords&, const ScanWords&) = default;
};

ScanWords scanWords(const ScanRecord& record, bool open, const Locale& locale);

/// One message that a scan had moved.
struct MovedWords {
    std::string subject;
    std::string sender;

    friend bool operator==(const MovedWords&, const MovedWords&) = default;
};

MovedWords movedWords(const ScanRecord::Moved& message);

/// One scan in the bin.
struct DeletedScanWords {
    std::string place;
    /// What it sorted and moved, and how long it can still be put back.
    std::string line;

    friend bool operator==(const DeletedScanWords&, const DeletedScanWords&) = default;
};

DeletedScanWords deletedScanWords(const ScanRecord& record, Date now, const Locale& locale);

std::string_view emptyBinLabel(Step step);
std::string_view purgeLabel(Step step);

namespace historyLabels {

inline constexpr const char* putOnScreen = "Put this scan back on screen";
inline constexpr const char* deleteScan = "Delete Scan";
inline constexpr const char* deleteSymbol = "trash";
inline constexpr const char* putBack = "Put back";
inline constexpr const char* purgeHelp =
    "Erase this scan and the verdicts it saved. Cannot be undone.";

}  // namespace historyLabels

}  // namespace brindlet
