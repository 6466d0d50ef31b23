#include "session/Eta.h"

#include <cmath>

namespace brindlet {

std::optional<std::string> etaWords(bool running, std::int64_t done, std::int64_t total,
                                    double rate, const Locale& locale) {
    if (!running || done < 21 || !(rate > 0.05) || done >= total) return std::nullopt;
    const double left = static_cast<double>(total - done) / rate;
    if (left < 90) return "about a minute left";
    const auto minutes = static_cast<std::int64_t>(std::round(left / 60));
    if (minutes <= 59) return "about " + locale.grouped(minutes) + " minutes left";
    const auto hours = minutes / 60;
    const auto rest = minutes % 60;
    if (rest != 0) return "about " + locale.grouped(hours) + "h " + locale.grouped(rest) + "m left";
    return "about " + locale.grouped(hours) + (minutes >= 120 ? " hours left" : " hour left");
}

}  // namespace brindlet
