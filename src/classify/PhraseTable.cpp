#include "classify/PhraseTable.h"

#include <utility>

namespace brindlet {
namespace {

/// Numbers pairs of numbers from 0 in the order in which they are first seen.
class PairNumbers {
  public:
    explicit PairNumbers(std::size_t atMost) {
        std::size_t slots = 16;
        while (slots < 2 * atMost) slots *= 2;
        slots_.resize(slots);
    }

    std::uint32_t number(std::uint32_t left, std::uint32_t right) {
        const auto pair = std::uint64_t{left} << 32 | right;
        const auto hash = pair * 0x9E3779B97F4A7C15u;
        const auto mask = slots_.size() - 1;
        auto i = (hash ^ hash >> 32) & mask;
        while (slots_[i].number != PhraseTable::none && slots_[i].pair != pair) i = (i + 1) & mask;
        if (slots_[i].number == PhraseTable::none) slots_[i] = {pair, size_++};
        return slots_[i].number;
    }
    std::uint32_t size() const { return size_; }

  private:
    struct Slot {
        std::uint64_t pair = 0;
        std::uint32_t number = PhraseTable::none;
    };
    std::vector<Slot> slots_;
    std::uint32_t size_ = 0;
};

constexpr std::uint32_t fewest = 3;

}  // namespace

PhraseTable::PhraseTable(std::vector<std::uint32_t> words, std::vector<std::uint32_t> ends)
    : words_(std::move(words)), ends_(std::move(ends)), starts_(words_.size() + 1, false) {
    starts_[0] = true;
    for (const auto end : ends_) starts_[end] = true;
    for (std::size_t length = 2; length <= longest; ++length) {
        const auto before = phrases_.size();
        addLength(length);
        if (phrases_.size() == before) break;
    }
}

void PhraseTable::addLength(std::size_t length) {
    const auto& shorter = length == 2 ? words_ : at_.back();
    std::vector<std::uint32_t> candidateAt(words_.size(), none);
    PairNumbers candidates(words_.size());
    std::vector<std::uint32_t> counts;
    for (std::size_t i = 0; i + length <= words_.size(); ++i) {
        // Two words make a phrase unless a subject starts between them; longer phrases inherit
        // this.
        if (length == 2 ? starts_[i + 1] : shorter[i] == none || shorter[i + 1] == none) continue;
        const auto candidate = candidates.number(shorter[i], shorter[i + 1]);
        if (candidate == counts.size()) counts.push_back(0);
        ++counts[candidate];
        candidateAt[i] = candidate;
    }

    std::vector<std::uint32_t> phraseOf(counts.size(), none);
    auto end = static_cast<std::uint32_t>(occurrences_.size());
    for (std::size_t candidate = 0; candidate < counts.size(); ++candidate) {
        if (counts[candidate] < fewest) continue;
        phraseOf[candidate] = static_cast<std::uint32_t>(phrases_.size());
        // Counted up again below, while the occurrences are filled in.
        phrases_.push_back({static_cast<std::uint32_t>(length), 0, 0, end});
        end += counts[candidate];
    }
    occurrences_.resize(end);
    for (std::size_t i = 0; i < words_.size(); ++i) {
        if (candidateAt[i] == none) continue;
        const auto number = phraseOf[candidateAt[i]];
        candidateAt[i] = number;
        if (number == none) continue;
        auto& phrase = phrases_[number];
        occurrences_[phrase.first + phrase.count++] = static_cast<std::uint32_t>(i);
        if (starts_[i + length]) ++phrase.atEnd;
    }
    at_.push_back(std::move(candidateAt));
}

std::uint32_t PhraseTable::at(std::size_t position, std::size_t length) const {
    return length - 2 < at_.size() ? at_[length - 2][position] : none;
}

std::span<const std::uint32_t> PhraseTable::wordsOf(std::uint32_t phrase) const {
    const auto& [length, count, atEnd, first] = phrases_[phrase];
    return std::span(words_).subspan(occurrences_[first], length);
}

std::span<const std::uint32_t> PhraseTable::occurrences(std::uint32_t phrase) const {
    return std::span(occurrences_).subspan(phrases_[phrase].first, phrases_[phrase].count);
}

std::map<std::int64_t, std::uint32_t> PhraseTable::wordsBefore(std::uint32_t phrase) const {
    std::map<std::int64_t, std::uint32_t> before;
    for (const auto position : occurrences(phrase))
        ++before[starts_[position] ? -1 : std::int64_t{words_[position - 1]}];
    return before;
}

}  // namespace brindlet
