#include "screens/results/SenderGroups.h"

#include <algorithm>
#include <numeric>

namespace brindlet::screens {

SenderGroups::SenderGroups(const VerdictList& verdicts, const VerdictIndex& index,
                           std::span<const std::uint32_t> positions) {
    // First numbered by appearance, then by size.
    std::unordered_map<std::uint32_t, std::uint32_t> byKey;
    std::unordered_map<std::string_view, std::uint32_t> byRawSender;
    std::vector<std::uint32_t> groupOf;
    std::vector<Group> found;
    groupOf.reserve(positions.size());
    for (const auto position : positions) {
        const auto number = index.groupOf(position);
        const auto& key = index.key(number);
        const auto next = static_cast<std::uint32_t>(found.size());
        const std::string& sender = verdicts[position].sender;
        const auto group = key.empty() ? byRawSender.try_emplace(sender, next).first->second
                                       : byKey.try_emplace(number, next).first->second;
        if (group == next) found.push_back({key.empty() ? sender : key, 0, 0});
        ++found[group].count;
        groupOf.push_back(group);
    }

    std::vector<std::uint32_t> order(found.size());
    std::iota(order.begin(), order.end(), 0U);
    std::stable_sort(order.begin(), order.end(), [&](std::uint32_t a, std::uint32_t b) {
        return found[a].count > found[b].count;
    });
    std::uint32_t first = 0;
    for (const auto group : order) {
        found[group].first = first;
        first += found[group].count;
    }
    std::vector<std::uint32_t> next(found.size());
    for (std::size_t i = 0; i < found.size(); ++i) next[i] = found[i].first;
    members_.resize(positions.size());
    for (std::size_t i = 0; i < positions.size(); ++i) members_[next[groupOf[i]]++] = positions[i];

    groups_.reserve(found.size());
    numbers_.reserve(found.size());
    for (const auto group : order) {
        numbers_.try_emplace(found[group].key, groups_.size());
        groups_.push_back(std::move(found[group]));
    }
}

std::span<const std::uint32_t> SenderGroups::members(std::size_t group) const {
    return std::span(members_).subspan(groups_[group].first, groups_[group].count);
}

std::optional<std::size_t> SenderGroups::find(const std::string& key) const {
    const auto found = numbers_.find(key);
    return found == numbers_.end() ? std::nullopt : std::optional(found->second);
}

const std::string& SenderGroups::keyOf(const VerdictList& verdicts, const VerdictIndex& index,
                                       std::uint32_t position) {
    const auto& key = index.key(index.groupOf(position));
    return key.empty() ? verdicts[position].sender : key;
}

}  // namespace brindlet::screens
