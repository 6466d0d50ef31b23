#include "session/VerdictIndex.h"

#include <string_view>

#include "stores/Rules.h"

namespace brindlet {

VerdictIndex::VerdictIndex(const VerdictList& verdicts) {
    std::vector<std::int64_t> ids;
    ids.reserve(verdicts.size());
    positions_.reserve(verdicts.size());
    groupOf_.reserve(verdicts.size());
    // A sender writes many messages: its key is worked out once.
    std::unordered_map<std::string_view, std::uint32_t> bySender;
    for (std::uint32_t position = 0; position < verdicts.size(); ++position) {
        const Verdict& verdict = verdicts[position];
        ids.push_back(verdict.id);
        positions_.emplace(verdict.id, position);
        const auto [known, isNew] = bySender.emplace(verdict.sender, 0);
        if (isNew) known->second = groupNamed(Rules::senderKey(verdict.sender));
        groupOf_.push_back(known->second);
        groups_[known->second].members.push_back(position);
    }
    ids_ = IdSet(std::move(ids));
}

std::uint32_t VerdictIndex::groupNamed(std::string key) {
    const auto next = static_cast<std::uint32_t>(groups_.size());
    const auto [known, isNew] = groupNumbers_.emplace(std::move(key), next);
    if (isNew) groups_.push_back({known->first, {}});
    return known->second;
}

std::optional<std::uint32_t> VerdictIndex::find(std::int64_t id) const {
    const auto found = positions_.find(id);
    return found == positions_.end() ? std::nullopt : std::optional(found->second);
}

std::optional<std::uint32_t> VerdictIndex::groupWithKey(const std::string& key) const {
    const auto found = groupNumbers_.find(key);
    return found == groupNumbers_.end() ? std::nullopt : std::optional(found->second);
}

}  // namespace brindlet
