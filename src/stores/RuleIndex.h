#pragma once

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

    /// The rules that cover the raw sender, in list order.
    std::vector<const Rule*> covering(std::string_view sender) const;
    /// As `Rules::blanketVerdict`.
    std::optional<Rule::Verdict> blanketVerdict(std::string_view sender) const;
    /// As `Rules::match`, over what `covering` gave for the message's sender.
    static std::optional<Rule::Verdict> match(const std::vector<const Rule*>& covering,
                                              std::string_view category, std::string_view subject);

  private:
    std::vector<Rule> rules_;
    std::unordered_map<std::string, std::vector<std::uint32_t>> bySender_;
};

}  // namespace brindlet
