#pragma once

#include <cstddef>
#include <cstdint>
#include <span>
#include <string_view>
#include <vector>

#include "models/embedded/Hash.h"

namespace brindlet {

/// Knowledge of words: which phrases, of one to four tokens, speak of the same thing, whatever the
/// language. A model that has learned what one word of a group means then knows what the others
/// mean. Immutable after construction.
class Concepts {
  public:
    /// Each entry of the table is a group: phrases parted by "|", their words by one blank. A
    /// single word that ends in "*" stands for all words that begin so. No more than 255 entries.
    explicit Concepts(std::span<const std::string_view> table);

    /// The number of groups; groups are numbered from 0.
    std::size_t count() const { return count_; }

    /// Calls `found(group, first, words)` for each occurrence of a phrase in the tokens: the first
    /// of them, and how many.
    template <class F>
    void each(const std::vector<std::string_view>& tokens, F&& found) const {
        for (std::size_t i = 0; i < tokens.size(); ++i) {
            const std::string_view word = tokens[i];
            std::uint64_t key = hashStart;
            for (std::size_t n = 0; n < word.size(); ++n) {
                key = hashed(key, word.substr(n, 1));
                if (n + 1 >= shortestBeginning) tell(hashed(key, "*"), i, 1, found);
            }
            key = hashed(key, " ");
            tell(key, i, 1, found);
            for (std::size_t n = 1; n < longestPhrase && i + n < tokens.size(); ++n) {
                key = extended(key, tokens[i + n]);
                tell(key, i, n + 1, found);
            }
        }
    }

  private:
    static constexpr std::size_t longestPhrase = 4;
    static constexpr std::size_t shortestBeginning = 3;
    static constexpr std::size_t places = std::size_t{1} << 13;
    static constexpr std::uint8_t none = 0xFF;

    struct Place {
        std::uint64_t key = 0;
        std::uint8_t group = none;
    };

    static std::uint64_t extended(std::uint64_t key, std::string_view token) {
        return hashed(hashed(key, token), " ");
    }
    /// Where the key stands, or the free place where it would.
    std::size_t placeOf(std::uint64_t key) const {
        std::size_t place = (key ^ key >> 29) % places;
        while (table_[place].group != none && table_[place].key != key)
            place = (place + 1) % places;
        return place;
    }
    template <class F>
    void tell(std::uint64_t key, std::size_t first, std::size_t words, F&& found) const {
        const Place& place = table_[placeOf(key)];
        if (place.group != none) found(std::size_t{place.group}, first, words);
    }
    void add(std::uint64_t key, std::size_t group);

    /// By the hash of a phrase. Two phrases of one hash would share a group, which costs nothing
    /// worth guarding against.
    std::vector<Place> table_ = std::vector<Place>(places);
    std::size_t count_;
};

}  // namespace brindlet
