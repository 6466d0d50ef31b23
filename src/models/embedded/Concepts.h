#pragma once

#include <cstddef>
#include <cstdint>
#include <string_view>
#include <vector>

#include "models/embedded/Hash.h"

namespace brindlet {

/// Knowledge of words: which phrases, of one to four tokens, speak of the same thing, whatever the
/// language. A model that has learned what one word of a group means then knows what the others
/// mean. Immutable after construction.
class Concepts {
  public:
    Concepts();

    /// The number of groups; groups are numbered from 0.
    std::size_t count() const;

    /// Calls `found(group)` for each occurrence of a phrase in the tokens.
    template <class F>
    void each(const std::vector<std::string_view>& tokens, F&& found) const {
        for (std::size_t i = 0; i < tokens.size(); ++i) {
            const std::string_view word = tokens[i];
            std::uint64_t key = hashStart;
            for (std::size_t n = 0; n < word.size(); ++n) {
                key = hashed(key, word.substr(n, 1));
                if (n + 1 >= shortestBeginning) tell(hashed(key, "*"), found);
            }
            key = hashed(key, " ");
            tell(key, found);
            for (std::size_t n = 1; n < longestPhrase && i + n < tokens.size(); ++n) {
                key = extended(key, tokens[i + n]);
                tell(key, found);
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
    void tell(std::uint64_t key, F&& found) const {
        const Place& place = table_[placeOf(key)];
        if (place.group != none) found(std::size_t{place.group});
    }
    void add(std::uint64_t key, std::size_t group);

    /// By the hash of a phrase. Two phrases of one hash would share a group, which costs nothing
    /// worth guarding against.
    std::vector<Place> table_ = std::vector<Place>(places);
};

}  // namespace brindlet
