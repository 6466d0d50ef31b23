#pragma once

#include <cstdint>
#include <optional>
#include <string>

#include "classify/Category.h"

namespace brindlet {

/// One message's result. `isJunk` and `vetoed` are never both true.
struct Verdict {
    /// The message's row id.
    std::int64_t id = 0;
    /// None when the file gave none; such a message cannot be ticked or moved.
    std::optional<std::string> messageID;
    std::string sender;
    std::string subject;
    Category category = Category::cannotTell;
    /// Proposed for moving as junk.
    bool isJunk = false;
    /// Would have been junk, but protection kept it.
    bool vetoed = false;
    /// A rule or a learned flip decided, not the category's default.
    bool byRule = false;

    friend bool operator==(const Verdict&, const Verdict&) = default;
};

}  // namespace brindlet
