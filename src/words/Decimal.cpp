#include "words/Decimal.h"

#include <charconv>

namespace brindlet {

std::string oneDecimal(double value) {
    char buffer[400];  // the longest fixed double has 309 digits before the point
    const auto [end, error] =
        std::to_chars(buffer, buffer + sizeof buffer, value, std::chars_format::fixed, 1);
    return std::string(buffer, error == std::errc{} ? end : buffer);
}

}  // namespace brindlet
