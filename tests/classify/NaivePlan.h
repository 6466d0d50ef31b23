#pragma once

#include <vector>

#include "classify/TemplatePlan.h"

namespace brindlet {

/// What `TemplatePlan::make` must give, computed slowly with the plainest means.
TemplatePlan::Plan naivePlan(const std::vector<TemplatePlan::Message>& messages);

}  // namespace brindlet
