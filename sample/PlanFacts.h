#pragma once

#include <cstdint>
#include <string>
#include <vector>

#include "sample/MailPlan.h"
#include "sample/SampleFacts.h"

namespace brindlet::sample {

/// Where a message's file lies below the data root.
std::string messagePath(const MailPlan& plan, const PlannedMessage& message);

/// What a reader must find once the plan is carried out. `mailboxRows` holds the index row of each
/// folder of the plan, `sizes` the bytes of each message's file. `newest` is left to the caller.
SampleFacts factsOfPlan(const MailPlan& plan, const std::vector<std::int64_t>& mailboxRows,
                        const std::vector<std::int64_t>& sizes);

}  // namespace brindlet::sample
