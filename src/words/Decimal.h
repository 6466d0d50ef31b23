#pragma once

#include <string>

namespace brindlet {

/// The number with exactly one decimal, a point before it and no grouping, whatever the process's
/// locale.
std::string oneDecimal(double value);

}  // namespace brindlet
