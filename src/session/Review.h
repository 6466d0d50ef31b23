#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <vector>

#include "base/IdSet.h"
#include "classify/Category.h"
#include "classify/Classifier.h"
#include "stores/Rule.h"

namespace brindlet {

/// The offer to treat like messages as one was just treated. All but `kin` and `kinWhat` are fixed
/// when it is made.
struct PendingRule {
    /// The key of the corrected message's sender, and the same for showing.
    std::string sender;
    std::string display;
    Category category = Category::cannotTell;
    /// The learned rule would say junk.
    bool toJunk = false;
    /// The corrected message, by row id.
    std::int64_t sourceID = 0;
    /// The corrected message's subject template; may be empty.
    Classifier::Words templateWords;
    /// Others of its sender and category with the same template.
    std::vector<std::int64_t> members;
    /// All others of its sender and category that are still in the state it left.
    std::vector<std::int64_t> everything;
    /// The state that it went to.
    bool wantApproved = false;
    /// These and what the search for like messages found; empty until it has ended.
    std::vector<std::int64_t> kin;
    /// What `kin` is about.
    std::string kinWhat;

    friend bool operator==(const PendingRule&, const PendingRule&) = default;
};

/// Which of an offer's lists is taken.
enum class SweepChoice { members, kin, everything };

/// What one undo can undo.
struct Sweep {
    /// The words of the undo bar.
    std::string what;
    std::vector<std::int64_t> ids;
    /// Those of `ids` that were ticked before.
    IdSet wereApproved;
    /// The rule that this action added.
    std::optional<Rule> learned;

    friend bool operator==(const Sweep&, const Sweep&) = default;
};

}  // namespace brindlet
