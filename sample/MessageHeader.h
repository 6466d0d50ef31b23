#pragma once

#include <cstddef>
#include <string>

#include "sample/MailPlan.h"
#include "sample/Random.h"

namespace brindlet::sample {

/// Appends the header fields of a message but those of its content, in the manifold forms in which
/// servers and programs write them: fewer for a message that is meant to be small. No empty line
/// follows.
void appendHeader(std::string& out, const PlannedMessage& message, Random& random,
                  std::size_t targetSize);

/// "Tue, 4 Mar 2025 09:15:02 +0100".
std::string headerDate(std::int64_t moment, int zoneHours);

}  // namespace brindlet::sample
