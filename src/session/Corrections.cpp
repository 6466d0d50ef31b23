#include "session/Corrections.h"

#include <algorithm>
#include <set>

namespace brindlet {

bool proposesTick(bool inJunk, bool isJunk) {
    return isJunk != inJunk;
}

Rule::Verdict saidBy(bool inJunk, bool nowTicked) {
    return nowTicked == inJunk ? Rule::Verdict::keep : Rule::Verdict::junk;
}

bool corrects(bool inJunk, bool nowTicked, bool isJunk) {
    return nowTicked != proposesTick(inJunk, isJunk);
}

std::vector<std::uint32_t> othersLike(std::uint32_t position, const VerdictList& verdicts,
                                      const VerdictIndex& index, const IdSet& approved,
                                      bool ticked) {
    const Category category = verdicts[position].category;
    std::vector<std::uint32_t> others;
    for (const auto other : index.members(index.groupOf(position))) {
        const Verdict& verdict = verdicts[other];
        if (other != position && verdict.messageID && verdict.category == category &&
            approved.contains(verdict.id) == ticked)
            others.push_back(other);
    }
    return others;
}

std::vector<std::uint32_t> firstOfEachCategory(const std::vector<std::uint32_t>& positions,
                                               const VerdictList& verdicts) {
    auto ordered = positions;
    std::sort(ordered.begin(), ordered.end());
    std::set<Category> met;
    std::erase_if(ordered, [&](std::uint32_t position) {
        return !met.insert(verdicts[position].category).second;
    });
    return ordered;
}

}  // namespace brindlet
