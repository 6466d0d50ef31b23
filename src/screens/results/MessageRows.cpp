#include "screens/results/MessageRows.h"

#include <algorithm>
#include <utility>

namespace brindlet::screens {
namespace {

/// Where a position stands in an ascending list.
std::optional<std::size_t> indexOf(std::span<const std::uint32_t> list, std::uint32_t position) {
    const auto found = std::lower_bound(list.begin(), list.end(), position);
    if (found == list.end() || *found != position) return std::nullopt;
    return static_cast<std::size_t>(found - list.begin());
}

}  // namespace

void MessageRows::list(std::vector<std::uint32_t> positions, std::size_t firstProtected,
                       bool heading) {
    const auto split = positions.begin() + static_cast<std::ptrdiff_t>(firstProtected);
    kept_.assign(split, positions.end());
    positions.erase(split, positions.end());
    plain_ = std::move(positions);
    senders_ = {};
    open_.reset();
    heading_ = heading && !kept_.empty();
}

void MessageRows::group(SenderGroups senders, std::vector<std::uint32_t> kept, bool heading) {
    plain_.clear();
    senders_ = std::move(senders);
    kept_ = std::move(kept);
    open_.reset();
    heading_ = heading && !kept_.empty();
}

std::size_t MessageRows::size() const {
    return upper() + (heading_ ? 1 : 0) + kept_.size();
}

MessageRows::Row MessageRows::at(std::size_t row) const {
    if (row < plain_.size()) return {Kind::message, plain_[row], false};
    if (row < upper()) {
        const auto below = open_ ? *open_ + 1 : upper();
        if (row < below) return {Kind::sender, static_cast<std::uint32_t>(row), false};
        if (row - below < openCount())
            return {Kind::message, senders_.members(*open_)[row - below], true};
        return {Kind::sender, static_cast<std::uint32_t>(row - openCount()), false};
    }
    row -= upper();
    if (heading_ && row-- == 0) return {Kind::heading, 0, false};
    return {Kind::message, kept_[row], false};
}

std::size_t MessageRows::rowOfSender(std::size_t sender) const {
    return open_ && sender > *open_ ? sender + openCount() : sender;
}

std::optional<std::size_t> MessageRows::rowOfMessage(std::uint32_t position) const {
    if (const auto index = indexOf(plain_, position)) return index;
    if (const auto index = indexOf(kept_, position)) return upper() + (heading_ ? 1 : 0) + *index;
    if (!open_) return std::nullopt;
    const auto index = indexOf(senders_.members(*open_), position);
    return index ? std::optional(*open_ + 1 + *index) : std::nullopt;
}

}  // namespace brindlet::screens
