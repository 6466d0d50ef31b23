#pragma once

#include <cstdint>
#include <optional>
#include <string>

#include "platform/Locale.h"

namespace brindlet {

/// The words for a scan's time left: none before there is something to go by. Minutes are rounded
/// to the nearest, half away from zero.
std::optional<std::string> etaWords(bool running, std::int64_t done, std::int64_t total,
                                    double rate, const Locale& locale);

}  // namespace brindlet
