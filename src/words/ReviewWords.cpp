#include "words/ReviewWords.h"

#include <algorithm>

namespace brindlet {

ReviewWords reviewWords(const std::vector<std::string>& reviewed, const std::string& group) {
    if (std::find(reviewed.begin(), reviewed.end(), group) == reviewed.end()) return {};
    if (reviewed.back() != group) return {"Reviewed", {}};
    return {"Last reviewed", "Last reviewed - click to jump there"};
}

}  // namespace brindlet
