#pragma once

#include <string>
#include <vector>

namespace brindlet {

/// What `Classifier::mineTemplates` must give, computed with plain maps over all phrases.
std::vector<std::vector<std::string>> naiveTemplates(const std::vector<std::string>& subjects);

}  // namespace brindlet
