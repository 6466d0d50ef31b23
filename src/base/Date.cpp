#include "base/Date.h"

#include <charconv>

namespace brindlet {

std::string shortestDecimal(double value) {
    char buffer[400];  // the longest fixed double has 309 digits before the point
    const auto [end, error] =
        std::to_chars(buffer, buffer + sizeof buffer, value, std::chars_format::fixed);
    std::string text(buffer, error == std::errc{} ? end : buffer);
    if (text.find('.') == std::string::npos) text += ".0";
    return text;
}

}  // namespace brindlet
