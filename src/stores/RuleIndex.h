#pragma once

#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <unordered_map>
#include <vector>

#include "stores/Rule.h"

namespace brindlet {

/// A scan's frozen copy of the rules, found by sender without walking them all: a hash map from a
/// rule's sender to its numbers, probed with a message's address, its domain and each parent
/// domain. Gives what the linear walk over the same list would. Immutable; any thread.
class RuleIndex {
  public:
    explicit RuleIndex(std::vector<Rule> rules);

    /// The rules that cover a message's sender, in list order. They live as long as the index.
    using Covering = std::vector<const Rule*>;
    Covering covering(std::string_view sender) const;

    /// As `Rules::blanketVerdict`.
    std::optional<Rule::Verdict> blanketVerdict(std::string_view sender) const;
    /// The choice that `Rules::blanketVerdict` and `Rules::match` make among the rules that cover
    /// the sender.
    static std::optional<Rule::Verdict> blanketVerdict(const Covering& covering);
    static std::optional<Rule::Verdict> match(const Covering& covering, std::string_view category,
                                              std::string_view subject);

  private:
    struct Hash {
        using is_transparent = void;
        std::size_t operator()(std::string_view text) const {
            return std::hash<std::string_view>()(text);
        }
    };
    std::vector<Rule> rules_;
    std::unordered_map<std::string, std::vector<std::uint32_t>, Hash, std::equal_to<>> bySender_;
    std::size_t longestSender_ = 0;
};

}  // namespace brindlet
