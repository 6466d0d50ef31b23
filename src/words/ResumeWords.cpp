#include "words/ResumeWords.h"

#include <iterator>

#include "platform/Locale.h"
#include "session/AppState.h"
#include "stores/StoreFile.h"

namespace brindlet {

std::optional<ResumeWords> resumeWords(const AppState& state) {
    const auto& move = *state.interrupted.pending;
    if (!move) return std::nullopt;
    const auto& locale = state.services().locale;
    const auto left = std::ssize(move->remaining);
    ResumeWords words;
    words.line = move->folderLabel + " reached " + locale.grouped(move->done) + " of " +
                 locale.grouped(saturatingSum(move->done, left)) + " - " + locale.grouped(left) +
                 " still to go.";
    return words;
}

}  // namespace brindlet
