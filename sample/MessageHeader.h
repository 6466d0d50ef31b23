#pragma once

#include <cstddef>
#include <cstdint>
#include <string>

#include "sample/MailPlan.h"
#include "sample/Random.h"

namespace brindlet::sample {

/// Appends the header fields of a message but those of its content, in the manifold forms in which
/// servers and programs write them: fewer for a message that is meant to be small. No empty line
/// follows.
void appendHeader(std::string& out, const PlannedMessage& message, Random& random,
                  std::size_t targetSize);

/// A Message-ID without its brackets, in one of the forms that programs make.
std::string makeMessageId(const Person& sender, std::int64_t dateSent, Random& random);

/// "Tue, 4 Mar 2025 09:15:02 +0100".
std::string headerDate(std::int64_t moment, int zoneHours);

}  // namespace brindlet::sample
