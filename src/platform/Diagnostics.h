#pragma once

#include <string>

#include "base/Cancel.h"

namespace brindlet {

/// How a program that has gone wrong is understood later. Any thread.
class Diagnostics {
  public:
    virtual ~Diagnostics() = default;
    /// Writes to the file what every thread of this process does, over some three seconds, and
    /// blocks for as long. Taken from outside the process, so that it depends on none of its
    /// threads or locks. Whatever fails leaves no file; a cancelled token ends it early, with what
    /// there is by then.
    virtual void sample(const std::string& path, const CancelToken& token) = 0;
    /// One line in the system's log.
    virtual void log(const std::string& line) = 0;
};

}  // namespace brindlet
