#pragma once

#include <cstdint>
#include <string>

#include "base/Date.h"

namespace brindlet {

/// How numbers, dates and spans of time are written for this person. Any thread.
class Locale {
  public:
    virtual ~Locale() = default;
    /// With the locale's digit grouping: "1,234".
    virtual std::string grouped(std::int64_t number) const = 0;
    /// Full numeric words by the largest unit that is not zero, cut and not rounded: "in 5 hours",
    /// "2 days ago".
    virtual std::string relative(Date date, Date now) const = 0;
    /// The day and the time of day as the person's clock shows them: "Nov 14, 2023, 10:13 PM".
    virtual std::string dateTime(Date date) const = 0;
};

}  // namespace brindlet
