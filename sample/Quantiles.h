#pragma once

#include <cstdint>

/// Distributions as tables with straight lines between their points: the same on every machine,
/// which logarithms of the C library need not be.
namespace brindlet::sample {

/// The size in bytes below which so many of 100,000 message files lie. Median 14 kB, mean 28 kB,
/// 3 % above 120 kB.
std::int64_t messageSizeQuantile(std::int64_t hundredThousandth);

/// The age in seconds below which so many of 1,000 messages lie: in folders where new mail comes
/// in, nearly half are younger than 30 days; in those where it is kept, few are.
std::int64_t recentAgeQuantile(std::int64_t permille);
std::int64_t keptAgeQuantile(std::int64_t permille);

}  // namespace brindlet::sample
