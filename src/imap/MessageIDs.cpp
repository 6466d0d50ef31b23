#include "imap/MessageIDs.h"

#include <functional>
#include <utility>

namespace brindlet {
namespace {

std::uint32_t hashed(std::string_view id) {
    const std::uint64_t hash = std::hash<std::string_view>()(id);
    return static_cast<std::uint32_t>(hash ^ hash >> 32);
}

}  // namespace

/// The slot that holds the id, or the free one where it belongs. There must be a free slot.
std::size_t MessageIDs::slotOf(std::string_view id, std::uint32_t hash) const {
    const std::size_t mask = slots_.size() - 1;
    for (std::size_t at = hash & mask;; at = (at + 1) & mask) {
        const Slot& slot = slots_[at];
        if (slot.entry == 0) return at;
        if (slot.hash == hash && entries_[slot.entry - 1].id == id) return at;
    }
}

std::optional<std::uint32_t> MessageIDs::find(std::string_view id) const {
    if (slots_.empty()) return std::nullopt;
    const Slot& slot = slots_[slotOf(id, hashed(id))];
    return slot.entry == 0 ? std::nullopt : std::optional(entries_[slot.entry - 1].uid);
}

void MessageIDs::grow() {
    const auto slots = slots_.empty() ? 16 : 2 * slots_.size();
    const auto old = std::exchange(slots_, std::vector<Slot>(slots));
    for (const Slot& slot : old) {
        if (slot.entry == 0) continue;
        std::size_t at = slot.hash & (slots - 1);
        while (slots_[at].entry != 0) at = (at + 1) & (slots - 1);
        slots_[at] = slot;
    }
}

void MessageIDs::set(std::string_view id, std::uint32_t uid) {
    if (entries_.size() + 1 > slots_.size() / 4 * 3) grow();
    const std::uint32_t hash = hashed(id);
    Slot& slot = slots_[slotOf(id, hash)];
    if (slot.entry == 0) {
        entries_.push_back({pool_.add(id), uid});
        slot = {hash, static_cast<std::uint32_t>(entries_.size())};
    } else {
        entries_[slot.entry - 1].uid = uid;
    }
}

}  // namespace brindlet
