#pragma once

#include <cstddef>
#include <cstdint>
#include <map>
#include <span>
#include <vector>

namespace brindlet {

/// The phrases - runs of 2 to 12 words - that occur at least three times in some subjects, repeats
/// within one subject included. Words come as numbers. Immutable.
///
/// Phrases are found length by length: one can be frequent only if both of its parts that are a
/// word shorter are, and those two tell it apart from every other. So rare words, which most
/// phrases hold, fall out at once.
class PhraseTable {
  public:
    static constexpr std::size_t longest = 12;
    /// In place of a phrase's number: there is none.
    static constexpr std::uint32_t none = UINT32_MAX;

    struct Phrase {
        std::uint32_t length = 0;
        std::uint32_t count = 0;
        /// How many of the occurrences end their subject.
        std::uint32_t atEnd = 0;
        /// Where its occurrences start in `occurrences_`.
        std::uint32_t first = 0;
    };

    /// `words` holds the subjects' words one subject after another, `ends` where each ends in it.
    PhraseTable(std::vector<std::uint32_t> words, std::vector<std::uint32_t> ends);

    std::size_t size() const { return phrases_.size(); }
    const Phrase& operator[](std::uint32_t phrase) const { return phrases_[phrase]; }
    /// The number of the frequent phrase of so many words at a position in `words`; none when there
    /// is no frequent one, or the subject ends before.
    std::uint32_t at(std::size_t position, std::size_t length) const;
    std::span<const std::uint32_t> wordsOf(std::uint32_t phrase) const;
    /// Where the phrase stands, as positions in `words`, ascending.
    std::span<const std::uint32_t> occurrences(std::uint32_t phrase) const;
    /// How often each word stands before the phrase; -1 stands for the subject's start.
    std::map<std::int64_t, std::uint32_t> wordsBefore(std::uint32_t phrase) const;

  private:
    void addLength(std::size_t length);

    std::vector<std::uint32_t> words_;
    std::vector<std::uint32_t> ends_;
    /// Whether a subject starts at, or ends before, a position.
    std::vector<bool> starts_;
    /// The phrases at each position, for lengths from 2.
    std::vector<std::vector<std::uint32_t>> at_;
    std::vector<Phrase> phrases_;
    std::vector<std::uint32_t> occurrences_;
};

}  // namespace brindlet
