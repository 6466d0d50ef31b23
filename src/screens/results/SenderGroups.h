#pragma once

#include <cstdint>
#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <unordered_map>
#include <vector>

#include "session/VerdictIndex.h"
#include "session/VerdictList.h"

namespace brindlet::screens {

/// Messages of a list by sender: the largest group first, equals by their first message. A sender
/// without a key is a group by its raw text.
class SenderGroups {
  public:
    SenderGroups() = default;
    /// `positions` are ascending. `index` is that of `verdicts`.
    SenderGroups(const VerdictList& verdicts, const VerdictIndex& index,
                 std::span<const std::uint32_t> positions);

    std::size_t size() const { return groups_.size(); }
    const std::string& key(std::size_t group) const { return groups_[group].key; }
    /// Ascending positions.
    std::span<const std::uint32_t> members(std::size_t group) const;
    std::optional<std::size_t> find(const std::string& key) const;
    /// The key of the group that a message belongs to.
    static const std::string& keyOf(const VerdictList& verdicts, const VerdictIndex& index,
                                    std::uint32_t position);

  private:
    struct Group {
        std::string key;
        std::uint32_t first = 0;  // into members_
        std::uint32_t count = 0;
    };
    std::vector<Group> groups_;
    std::vector<std::uint32_t> members_;
    std::unordered_map<std::string, std::size_t> numbers_;
};

}  // namespace brindlet::screens
