#include "words/UndoWords.h"

#include "platform/Locale.h"
#include "session/AppState.h"

namespace brindlet {

std::optional<UndoWords> undoWords(const AppState& state) {
    const auto& sweep = *state.lastSweep;
    if (!sweep) return std::nullopt;
    UndoWords words;
    words.text = sweep->what;
    words.help = "Put those " +
                 state.services().locale.grouped(static_cast<std::int64_t>(sweep->ids.size())) +
                 " messages back exactly as they were";
    return words;
}

}  // namespace brindlet
