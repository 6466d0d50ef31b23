#include "words/UnsupportedWords.h"

#include <utility>

#include "session/AppState.h"

namespace brindlet {

std::optional<UnsupportedWords> unsupportedWords(const AppState& state) {
    auto problem = state.classifier().availabilityProblem();
    if (problem.empty()) return std::nullopt;
    UnsupportedWords words;
    words.text = std::move(problem);
    return words;
}

}  // namespace brindlet
