#pragma once

#include <functional>

namespace brindlet {

/// Looks a variable of the process's environment up: its value, or null when it is not set. The
/// programs pass `::getenv`; adapters ask while they are made and never later, since other threads
/// may run by then.
using Environment = std::function<const char*(const char* name)>;

}  // namespace brindlet
