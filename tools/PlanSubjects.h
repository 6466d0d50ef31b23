#pragma once

#include <string>
#include <string_view>

namespace brindlet::tools {

/// What the planner, the miner and the veto make of mail given as lines of a sender, a TAB and a
/// subject: one JSON object. Every line counts, a line without a TAB as a sender with an empty
/// subject; bytes that are not UTF-8 are repaired.
std::string planSubjects(std::string_view lines);

}  // namespace brindlet::tools
