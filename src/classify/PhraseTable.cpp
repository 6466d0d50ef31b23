#include "classify/PhraseTable.h"

#include <algorithm>
#include <numeric>
#include <utility>

namespace brindlet {

PhraseTable::PhraseTable(std::vector<std::uint32_t> words, const std::vector<std::uint32_t>& ends)
    : words_(std::move(words)), starts_(words_.size() + 1, false) {
    starts_[0] = true;
    for (const auto end : ends) starts_[end] = true;
    // Single words are what the empty phrase, which stands everywhere, is lengthened to.
    present_.occurrences.resize(words_.size());
    std::iota(present_.occurrences.begin(), present_.occurrences.end(), 0u);
    present_.firsts = {0, static_cast<std::uint32_t>(words_.size())};
    lengthen();
}

bool PhraseTable::lengthen() {
    if (length_ == longest) return false;
    longer_.begin = size();
    longer_.at.assign(words_.size(), none);
    entries_.assign(length_ > 0 || words_.empty() ? size() - begin() : std::ranges::max(words_) + 1,
                    0);
    for (std::size_t i = 0; i + 1 < present_.firsts.size(); ++i)
        extend(std::span(present_.occurrences)
                   .subspan(present_.firsts[i], present_.firsts[i + 1] - present_.firsts[i]));
    longer_.firsts.push_back(static_cast<std::uint32_t>(longer_.occurrences.size()));
    present_ = std::exchange(longer_, {});
    ++length_;
    return size() > begin();
}

/// Gathers the frequent phrases that begin with the one that stands at these places.
void PhraseTable::extend(std::span<const std::uint32_t> places) {
    // What makes the phrase at a position a word longer, numbered from 0: the phrase of the same
    // length that begins one word later. None when the subject ends before, or that one is rare.
    const auto follower = [&, length = length_, begin = begin()](std::uint32_t position) {
        if (length == 0) return words_[position];
        const auto next = starts_[position + length] ? none : present_.at[position + 1];
        return next == none ? none : next - begin;
    };
    for (const auto position : places) {
        const auto next = follower(position);
        if (next != none && entries_[next]++ == 0) followers_.push_back(next);
    }
    const auto rare = std::partition(followers_.begin(), followers_.end(),
                                     [&](std::uint32_t next) { return entries_[next] >= fewest; });
    std::for_each(rare, followers_.end(), [&](std::uint32_t next) { entries_[next] = none; });
    std::sort(followers_.begin(), rare);
    auto end = longer_.occurrences.size();
    for (auto next = followers_.begin(); next != rare; ++next) {
        longer_.firsts.push_back(static_cast<std::uint32_t>(end));
        end += std::exchange(entries_[*next], size());
        // Counted up again below, while the occurrences are filled in.
        phrases_.push_back({0, length_ + 1, 0, length_ == 0 ? none : begin() + *next});
    }
    if (rare != followers_.begin()) {
        longer_.occurrences.resize(end);
        for (const auto position : places) {
            const auto next = follower(position);
            const auto number = next == none ? none : entries_[next];
            if (number == none) continue;
            auto& phrase = phrases_[number];
            if (phrase.count == 0) phrase.position = position;
            longer_.occurrences[longer_.firsts[number - longer_.begin] + phrase.count++] = position;
            longer_.at[position] = number;
        }
    }
    for (const auto next : followers_) entries_[next] = 0;
    followers_.clear();
}

std::span<const std::uint32_t> PhraseTable::occurrences(std::uint32_t phrase) const {
    const auto first = present_.firsts[phrase - begin()];
    return std::span(present_.occurrences)
        .subspan(first, present_.firsts[phrase - begin() + 1] - first);
}

std::span<const std::uint32_t> PhraseTable::wordsOf(std::uint32_t phrase) const {
    return std::span(words_).subspan(phrases_[phrase].position, phrases_[phrase].length);
}

}  // namespace brindlet
