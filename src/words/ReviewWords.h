#pragma once

#include <string>
#include <vector>

namespace brindlet {

/// What stands at a category or a sender that was opened and left; both empty when it never was.
struct ReviewWords {
    std::string text;
    /// Only at the last one, which a click leads to.
    std::string help;

    friend bool operator==(const ReviewWords&, const ReviewWords&) = default;
};

/// `reviewed` has the latest last.
ReviewWords reviewWords(const std::vector<std::string>& reviewed, const std::string& group);

}  // namespace brindlet
