#include "words/CalibrationWords.h"

#include "platform/Locale.h"
#include "stores/StoreFile.h"
#include "words/RuleWords.h"

namespace brindlet {

CalibrationWords calibrationWords(const Locale& locale, const Calibration::Row& row) {
    const bool keep = row.verdict == Rule::Verdict::keep;
    const auto& tally = row.tally;
    const auto total = locale.grouped(saturatingSum(tally.toKeep, tally.toJunk));
    CalibrationWords words;
    words.category = row.category;
    words.badge = verdictMark(row.verdict);
    words.label = displayName(row.category);
    words.line = keep ? "You rescued " + locale.grouped(tally.toKeep) + " of " + total +
                            " - Brindlet stopped calling these junk"
                      : "You binned " + locale.grouped(tally.toJunk) + " of " + total +
                            " - Brindlet now treats these as junk";
    return words;
}

}  // namespace brindlet
