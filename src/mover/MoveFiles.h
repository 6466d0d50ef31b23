#pragma once

#include <string>
#include <vector>

#include "stores/PendingMove.h"

namespace brindlet {

class Directories;

/// The three files through which a bulk move and its script talk, in the temporary folder and
/// under one fresh suffix. They are left there after every outcome.
struct MoveFiles {
    /// Chooses the paths, and writes nothing.
    explicit MoveFiles(const Directories& directories);

    /// Writes all three as the script wants to find them. Failures are not noticed here: the script
    /// then fails on its own, and says why.
    void prepare(const std::vector<PendingMove::Item>& items) const;

    /// A line "<number><tab><Message-ID>" a message.
    std::string ids;
    /// One record "<phase>|<done>|<total>", which the script writes anew every ten rows.
    std::string progress;
    /// The Message-ID of each message, a line each, as soon as it has moved.
    std::string done;
};

}  // namespace brindlet
