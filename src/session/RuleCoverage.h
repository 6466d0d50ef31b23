#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <string>
#include <unordered_map>
#include <vector>

#include "base/EnumInfo.h"
#include "classify/Category.h"
#include "session/VerdictList.h"
#include "stores/Rule.h"
#include "stores/SenderAddress.h"

namespace brindlet {

/// Which messages each of a list of rules covers: those that pass its address test, have its
/// category and hold its template. A rule that is held back covers what it would cover. One thread.
///
/// Cheap for many rules and many messages at once: senders are told apart once, each message is
/// held against the senders of the rules by hashing, categories are counted for all rules of a
/// sender together, and a subject is cut only where a template asks for it and then once.
class RuleCoverage {
  public:
    /// `positions` are those of `verdicts` to look at, ascending.
    void setVerdicts(const VerdictList& verdicts, const std::vector<std::uint32_t>& positions);
    /// Rules are spoken of by their place in this list, which is copied as far as it is needed.
    void setRules(const std::vector<Rule>& rules);

    std::int64_t count(std::size_t rule) const { return counts_[rule]; }
    /// Ascending positions.
    std::vector<std::uint32_t> covered(std::size_t rule) const;
};

}  // namespace brindlet
