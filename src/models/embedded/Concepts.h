#pragma once

#include <cstddef>
#include <cstdint>
#include <string_view>
#include <unordered_map>
#include <vector>

#include "models/embedded/Hash.h"

namespace brindlet {

/// Knowledge of words: which phrases, of one to three tokens, speak of the same thing. A model that
/// has learned what one word of a group means then knows what the others mean. Immutable after
/// construction.
class Concepts {
  public:
    Concepts();

    /// The number of groups; groups are numbered from 0.
    std::size_t count() const;

    /// Calls `found(group)` for each occurrence of a phrase in the tokens.
    template <class F>
    void each(const std::vector<std::string_view>& tokens, F&& found) const {
        for (std::size_t i = 0; i < tokens.size(); ++i) {
            std::uint64_t key = hashStart;
            for (std::size_t n = 0; n < longestPhrase && i + n < tokens.size(); ++n) {
                key = extended(key, tokens[i + n]);
                const auto group = groups_.find(key);
                if (group != groups_.end()) found(group->second);
            }
        }
    }

  private:
    static constexpr std::size_t longestPhrase = 3;
    static std::uint64_t extended(std::uint64_t key, std::string_view token) {
        return hashed(hashed(key, token), " ");
    }

    /// By the hash of a phrase. Two phrases of one hash would share a group, which costs nothing
    /// worth guarding against.
    std::unordered_map<std::uint64_t, std::size_t> groups_;
};

}  // namespace brindlet
