#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <unordered_map>
#include <vector>

#include "base/IdSet.h"
#include "session/VerdictList.h"

namespace brindlet {

/// What review looks up in a list of verdicts over and over: where an id stands, and who else has
/// the same sender. Walks the whole list once, so it is made on a background thread where that can
/// be. Positions are those of the list; an id that stands twice is found at its first place.
class VerdictIndex {
  public:
    VerdictIndex() = default;
    explicit VerdictIndex(const VerdictList& verdicts);

    std::optional<std::uint32_t> find(std::int64_t id) const;
    /// Of all verdicts.
    const IdSet& ids() const { return ids_; }

    /// Groups of one `Rules::senderKey` each, numbered by first appearance. Those without a key are
    /// one group, whose key is empty.
    std::uint32_t groupOf(std::uint32_t position) const { return groupOf_[position]; }
    const std::string& key(std::uint32_t group) const { return groups_[group].key; }
    /// Ascending positions.
    const std::vector<std::uint32_t>& members(std::uint32_t group) const {
        return groups_[group].members;
    }
    std::optional<std::uint32_t> groupWithKey(const std::string& key) const;

  private:
    struct Group {
        std::string key;
        std::vector<std::uint32_t> members;
    };
    std::uint32_t groupNamed(std::string key);
    std::unordered_map<std::int64_t, std::uint32_t> positions_;
    IdSet ids_;
    std::vector<std::uint32_t> groupOf_;
    std::vector<Group> groups_;
    std::unordered_map<std::string, std::uint32_t> groupNumbers_;
};

}  // namespace brindlet
