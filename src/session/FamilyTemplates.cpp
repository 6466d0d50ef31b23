#include "session/FamilyTemplates.h"

#include <utility>
#include <vector>

namespace brindlet {

FamilyTemplates mineFamily(const std::string& key, const VerdictList& verdicts,
                           const VerdictIndex& index) {
    const auto group = index.groupWithKey(key);
    if (!group) return {};
    const auto& members = index.members(*group);
    std::vector<std::string> subjects;
    subjects.reserve(members.size());
    for (const auto position : members) subjects.push_back(verdicts[position].subject);
    auto mined = Classifier::mineTemplates(subjects);
    FamilyTemplates family;
    family.reserve(members.size());
    for (std::size_t i = 0; i < members.size(); ++i)
        family.emplace(verdicts[members[i]].id, std::move(mined[i]));
    return family;
}

const Classifier::Words& templateOf(std::int64_t id, const FamilyTemplates& family) {
    static const Classifier::Words none;
    const auto found = family.find(id);
    return found == family.end() ? none : found->second;
}

}  // namespace brindlet
