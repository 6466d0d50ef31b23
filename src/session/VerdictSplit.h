#pragma once

#include <array>
#include <cstdint>
#include <string>
#include <unordered_set>
#include <vector>

#include "base/IdSet.h"
#include "session/VerdictList.h"

namespace brindlet {

/// The results of a scan, parted into what is still in the folder and what was moved out of it by
/// its Message-ID. A message without one cannot have been moved. Positions are those of the list,
/// in its order.
struct VerdictSplit {
    VerdictSplit() = default;
    VerdictSplit(const VerdictList& verdicts, const std::unordered_set<std::string>& movedAlready);

    std::vector<std::uint32_t> remaining;
    std::vector<std::uint32_t> moved;
    IdSet movedIds;
    /// Among the remaining.
    std::int64_t junk = 0;
    std::int64_t kept = 0;
    /// Of all, moved or not: those with a Message-ID.
    IdSet movable;
    const IdSet& remainingOf(Category category) const {
        return byCategory_[static_cast<std::size_t>(category)];
    }

  private:
    std::array<IdSet, allCases<Category>().size()> byCategory_;
};

}  // namespace brindlet
