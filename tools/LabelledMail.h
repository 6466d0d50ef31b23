#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "classify/Category.h"

namespace brindlet::tools {

/// A message whose category people have agreed on.
struct LabelledMail {
    /// As the file has it; without one the number of its line.
    std::string id;
    std::string sender;
    std::string subject;
    std::string body;
    Category category = Category::cannotTell;
    /// Two categories would do, so no answer to it counts.
    bool ambiguous = false;
};

/// Reads a JSON object a line with the texts "from", "subject", "body" and "category", perhaps "id"
/// and the flag "ambiguous"; other keys are passed over, and so are empty lines. For the first line
/// that is damaged none, with a finished sentence about it in `problem`.
std::optional<std::vector<LabelledMail>> parseLabelledMail(std::string_view lines,
                                                           std::string& problem);

}  // namespace brindlet::tools
