#pragma once

#include <cstdint>
#include <string>
#include <vector>

#include "doubles/ScriptedProcessRunner.h"

namespace brindlet::doubles {

/// What one run of the bulk script does.
struct Bulk {
    /// Message-IDs that leave; all that were asked for unless `some` is set.
    std::vector<std::string> landed;
    bool some = false;
    /// The number in the result; that of the landed ids when below 0.
    std::int64_t moved = -1;
    /// On standard error, with nothing on standard output.
    std::string error;
};

/// For a runner whose bulk moves do that, and whose listings are empty.
ScriptedProcessRunner::Script bulkScript(Bulk bulk);

}  // namespace brindlet::doubles
