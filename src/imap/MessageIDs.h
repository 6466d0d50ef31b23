#pragma once

#include <cstddef>
#include <cstdint>
#include <optional>
#include <string_view>
#include <vector>

#include "base/KeyPool.h"

namespace brindlet {

/// A map from Message-ID, without angle brackets, to the message's UID in its mailbox; laid out for
/// every message of a large one: each id stands in memory once, and nothing is allocated for it by
/// itself.
class MessageIDs {
  public:
    std::size_t size() const { return entries_.size(); }
    std::optional<std::uint32_t> find(std::string_view id) const;
    /// Adds an entry or overwrites it. The id must not be empty.
    void set(std::string_view id, std::uint32_t uid);

  private:
    struct Entry {
        std::string_view id;
        std::uint32_t uid = 0;
    };
    /// A free one has the entry 0, else it is the entry's number plus one. The hash is kept so that
    /// growing and most mismatches touch no entry.
    struct Slot {
        std::uint32_t hash = 0;
        std::uint32_t entry = 0;
    };

    std::size_t slotOf(std::string_view id, std::uint32_t hash) const;
    void grow();

    KeyPool pool_;
    std::vector<Entry> entries_;
    std::vector<Slot> slots_;  // a power of two, at most three quarters full
};

}  // namespace brindlet
