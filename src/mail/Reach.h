#pragma once

#include <cstdint>

#include "base/Date.h"
#include "base/EnumInfo.h"

namespace brindlet {

/// How far back a scan looks. A month is always 30 days and a year 365; no calendar takes part.
enum class Reach { week, month, threeMonths, year, everything };

template <>
struct EnumInfo<Reach> {
    static constexpr std::array<std::pair<Reach, std::string_view>, 5> all{{
        {Reach::week, "week"},
        {Reach::month, "month"},
        {Reach::threeMonths, "threeMonths"},
        {Reach::year, "year"},
        {Reach::everything, "everything"},
    }};
};

/// Seconds since 1970, fraction cut off, before which a scan does not look; 0 for `everything`,
/// which means no date filter.
std::int64_t reachCutoff(Reach reach, Date now);

}  // namespace brindlet
