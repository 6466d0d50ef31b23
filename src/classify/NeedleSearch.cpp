#include "classify/NeedleSearch.h"

#include <deque>

namespace brindlet {
namespace {

constexpr std::uint16_t start = 0;
constexpr std::uint16_t found = 1;

std::uint8_t lowered(char c) {
    return static_cast<std::uint8_t>(c >= 'A' && c <= 'Z' ? c + 32 : c);
}

}  // namespace

NeedleSearch::NeedleSearch(std::span<const std::string_view> needles) {
    for (const auto needle : needles)
        for (const char c : needle)
            if (auto& byClass = classOf_[lowered(c)]; byClass == 0)
                byClass = static_cast<std::uint8_t>(classes_++);
    for (char c = 'A'; c <= 'Z'; ++c) classOf_[static_cast<std::uint8_t>(c)] = classOf_[lowered(c)];

    // The trie of the needles, with 0 for "no child" since nothing leads back to the start.
    next_.assign(2 * classes_, 0);
    for (const auto needle : needles) {
        std::size_t state = start;
        for (std::size_t i = 0; i < needle.size() && state != found; ++i) {
            const auto edge = state * classes_ + classOf_[lowered(needle[i])];
            if (i + 1 == needle.size()) {
                next_[edge] = found;
            } else if (next_[edge] == 0) {
                next_[edge] = static_cast<std::uint16_t>(next_.size() / classes_);
                next_.resize(next_.size() + classes_, 0);
            }
            state = next_[edge];
        }
    }

    // A missing child is where the longest proper suffix would go. Suffixes are shorter, so going
    // through the states by depth finds theirs complete.
    std::vector<std::uint16_t> suffix(next_.size() / classes_, start);
    std::deque<std::uint16_t> byDepth{start};
    while (!byDepth.empty()) {
        const auto state = byDepth.front();
        byDepth.pop_front();
        for (std::size_t c = 0; c < classes_; ++c) {
            auto& target = next_[state * classes_ + c];
            const auto fallback =
                state == start ? start : next_[std::size_t{suffix[state]} * classes_ + c];
            if (fallback == found) target = found;
            if (target == found) continue;
            if (target == 0) {
                target = fallback;
            } else {
                suffix[target] = fallback;
                byDepth.push_back(target);
            }
        }
    }
    for (std::size_t c = 0; c < classes_; ++c) next_[found * classes_ + c] = found;
}

bool NeedleSearch::anyIn(std::string_view text) const {
    std::size_t state = start;
    for (const char c : text)
        state = next_[state * classes_ + classOf_[static_cast<std::uint8_t>(c)]];
    return state == found;
}

}  // namespace brindlet
