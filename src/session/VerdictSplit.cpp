#include "session/VerdictSplit.h"

#include <utility>

namespace brindlet {

VerdictSplit::VerdictSplit(const VerdictList& verdicts,
                           const std::unordered_set<std::string>& movedAlready) {
    std::array<std::vector<std::int64_t>, allCases<Category>().size()> ids;
    std::vector<std::int64_t> withMessageID;
    std::vector<std::int64_t> gone;
    remaining.reserve(verdicts.size());
    withMessageID.reserve(verdicts.size());
    std::uint32_t position = 0;
    for (const auto& verdict : verdicts) {
        const auto here = position++;
        if (verdict.messageID) withMessageID.push_back(verdict.id);
        if (verdict.messageID && movedAlready.contains(*verdict.messageID)) {
            moved.push_back(here);
            gone.push_back(verdict.id);
            continue;
        }
        remaining.push_back(here);
        ++(verdict.isJunk ? junk : kept);
        ids[static_cast<std::size_t>(verdict.category)].push_back(verdict.id);
    }
    movable = IdSet(std::move(withMessageID));
    movedIds = IdSet(std::move(gone));
    for (std::size_t i = 0; i < ids.size(); ++i) byCategory_[i] = IdSet(std::move(ids[i]));
}

}  // namespace brindlet
