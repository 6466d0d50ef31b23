#pragma once

#include <cstdint>
#include <string>
#include <unordered_map>

#include "classify/Classifier.h"
#include "session/VerdictIndex.h"
#include "session/VerdictList.h"

namespace brindlet {

/// Subject templates of one sender's messages, by row id. A message that is not there has none.
using FamilyTemplates = std::unordered_map<std::int64_t, Classifier::Words>;

/// Mines the subjects of all messages whose sender has the key, in the order of the list.
FamilyTemplates mineFamily(const std::string& key, const VerdictList& verdicts,
                           const VerdictIndex& index);

const Classifier::Words& templateOf(std::int64_t id, const FamilyTemplates& family);

}  // namespace brindlet
