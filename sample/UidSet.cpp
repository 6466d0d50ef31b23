#include "sample/UidSet.h"

#include <algorithm>

#include "base/Text.h"

namespace brindlet::sample {
namespace {

/// In place of "*": no message can have it.
constexpr std::uint32_t highest = 0;

std::optional<std::uint32_t> end(std::string_view text) {
    if (text == "*") return highest;
    if (text.find_first_not_of("0123456789") != std::string_view::npos) return std::nullopt;
    const auto number = parseInt64(text);
    if (!number || *number < 1 || *number > UINT32_MAX) return std::nullopt;
    return static_cast<std::uint32_t>(*number);
}

}  // namespace

std::optional<UidSet> UidSet::parse(std::string_view text) {
    UidSet set;
    while (true) {
        const std::size_t comma = std::min(text.find(','), text.size());
        const std::string_view piece = text.substr(0, comma);
        const std::size_t colon = piece.find(':');
        const auto first = end(piece.substr(0, colon));
        const auto last = colon == std::string_view::npos ? first : end(piece.substr(colon + 1));
        if (!first || !last) return std::nullopt;
        set.ranges_.emplace_back(*first, *last);
        if (comma == text.size()) return set;
        text.remove_prefix(comma + 1);
    }
}

std::vector<std::size_t> UidSet::in(const ImapMailbox& mailbox) const {
    const auto& all = mailbox.messages;
    std::vector<std::size_t> found;
    if (all.empty()) return found;
    const auto number = [&](std::uint32_t uid) { return uid == highest ? all.back().uid : uid; };
    const auto before = [](const ImapMailbox::Message& message, std::uint64_t uid) {
        return message.uid < uid;
    };
    for (const auto& [one, other] : ranges_) {
        const std::uint64_t from = std::min(number(one), number(other));
        const std::uint64_t past = std::uint64_t{std::max(number(one), number(other))} + 1;
        const auto begin = std::lower_bound(all.begin(), all.end(), from, before);
        const auto stop = std::lower_bound(begin, all.end(), past, before);
        for (auto each = begin; each != stop; ++each)
            found.push_back(static_cast<std::size_t>(each - all.begin()));
    }
    std::sort(found.begin(), found.end());
    found.erase(std::unique(found.begin(), found.end()), found.end());
    return found;
}

}  // namespace brindlet::sample
