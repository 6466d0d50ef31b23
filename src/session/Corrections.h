#pragma once

#include <cstdint>
#include <vector>

#include "base/IdSet.h"
#include "session/VerdictIndex.h"
#include "session/VerdictList.h"
#include "stores/Rule.h"

/// What ticks say. In a junk folder a tick says that a message is real mail and should come out;
/// anywhere else, that it is junk and should go. Pure; any thread.
namespace brindlet {

/// Whether a message is ticked before the person has said anything.
bool proposesTick(bool inJunk, bool isJunk);

/// What the person says of a message by ticking or unticking it.
Rule::Verdict saidBy(bool inJunk, bool nowTicked);

/// True when that is the opposite of what the classifier said.
bool corrects(bool inJunk, bool nowTicked, bool isJunk);

/// The other messages of the same sender and category that stand as `ticked` says, those without a
/// Message-ID left out. Those moved already count among the unticked.
std::vector<std::uint32_t> othersLike(std::uint32_t position, const VerdictList& verdicts,
                                      const VerdictIndex& index, const IdSet& approved,
                                      bool ticked);

/// Of each category among the positions the one that comes first in the list, in that order.
std::vector<std::uint32_t> firstOfEachCategory(const std::vector<std::uint32_t>& positions,
                                               const VerdictList& verdicts);

}  // namespace brindlet
