#pragma once

#include <cstddef>
#include <cstdint>
#include <deque>
#include <span>
#include <vector>

namespace brindlet {

/// The phrases - runs of words - that occur at least three times in some subjects, repeats within
/// one subject included. Words come as numbers from 0. One thread.
///
/// Phrases are found length by length: one can be frequent only if both of its parts that are a
/// word shorter are, and those two tell it apart from every other. So rare words, which most
/// phrases hold, fall out at once; and where phrases stand is kept for one length alone, so that
/// the table stays small.
class PhraseTable {
  public:
    static constexpr std::uint32_t fewest = 3;
    static constexpr std::uint32_t longest = 12;
    /// In place of a phrase's number: there is none.
    static constexpr std::uint32_t none = UINT32_MAX;

    struct Phrase {
        /// Where it stands for the first time.
        std::uint32_t position = 0;
        std::uint32_t length = 0;
        std::uint32_t count = 0;
        /// The phrase that is left without the first word; none for a single word.
        std::uint32_t rest = none;
    };

    /// `words` holds the subjects' words one subject after another, `ends` where each ends in it.
    /// The table begins with the single words.
    PhraseTable(std::vector<std::uint32_t> words, const std::vector<std::uint32_t>& ends);

    /// Goes on to the phrases that are one word longer; false when there are none, or none so long
    /// are wanted. Shorter ones keep their numbers.
    bool lengthen();

    /// The phrases of the present length have the numbers from `begin` up to `size`, in the order
    /// of their words' numbers.
    std::uint32_t begin() const { return present_.begin; }
    std::uint32_t size() const { return static_cast<std::uint32_t>(phrases_.size()); }
    std::uint32_t length() const { return length_; }
    /// The phrase of the present length at a position in `words`; none when there is no frequent
    /// one, or the subject ends before.
    std::uint32_t at(std::size_t position) const { return present_.at[position]; }
    /// Where a phrase of the present length stands, as positions in `words`, ascending.
    std::span<const std::uint32_t> occurrences(std::uint32_t phrase) const;

    /// Of any length so far.
    const Phrase& operator[](std::uint32_t phrase) const { return phrases_[phrase]; }
    std::span<const std::uint32_t> wordsOf(std::uint32_t phrase) const;

    std::uint32_t word(std::size_t position) const { return words_[position]; }
    /// Whether a subject starts at, or ends before, a position.
    bool startsAt(std::size_t position) const { return starts_[position]; }

  private:
    /// Where the phrases of one length stand.
    struct Level {
        std::uint32_t begin = 0;
        std::vector<std::uint32_t> at;
        /// One phrase after another, with where those of each begin and the last end.
        std::vector<std::uint32_t> occurrences;
        std::vector<std::uint32_t> firsts;
    };

    void extend(std::span<const std::uint32_t> places);

    std::vector<std::uint32_t> words_;
    std::vector<bool> starts_;
    /// In blocks: a vector would hold them all twice while it grows.
    std::deque<Phrase> phrases_;
    std::uint32_t length_ = 0;
    Level present_;
    Level longer_;
    /// By follower: how often it follows the phrase at hand, then the number of the two together.
    /// Zeros between one phrase and the next.
    std::vector<std::uint32_t> entries_;
    /// Which followers the phrase at hand has.
    std::vector<std::uint32_t> followers_;
};

}  // namespace brindlet
