#include "classify/Interner.h"

#include <algorithm>
#include <bit>
#include <cstring>

namespace brindlet {
namespace {

static_assert(std::endian::native == std::endian::little, "the head's mask keeps its first bytes");

constexpr std::size_t fewestSlots = 256;

std::uint64_t block(const char* at) {
    std::uint64_t bytes;
    std::memcpy(&bytes, at, sizeof bytes);
    return bytes;
}

std::uint64_t headOf(std::string_view padded) {
    const auto bytes = block(padded.data());
    if (padded.size() >= 8) return bytes;
    return bytes & ((std::uint64_t{1} << 8 * padded.size()) - 1);
}

std::uint64_t mixed(std::uint64_t value) {
    value *= 0x9E3779B97F4A7C15u;
    return value ^ value >> 32;
}

std::uint32_t hashOf(std::uint64_t head, std::string_view text) {
    std::uint64_t hash = mixed(head + text.size());
    if (text.size() > 8) {
        for (std::size_t i = 8; i + 8 < text.size(); i += 8)
            hash = mixed(hash ^ block(text.data() + i));
        // The last 8 bytes, some of them perhaps for the second time.
        hash = mixed(hash ^ block(text.data() + text.size() - 8));
    }
    return static_cast<std::uint32_t>(hash);
}

}  // namespace

Interner::Interner() {
    resetSlots(fewestSlots);
}

void Interner::resetSlots(std::size_t count) {
    mask_ = count - 1;
    if (slots_.size() < count) slots_.resize(count);
    std::fill_n(slots_.begin(), count, Slot{});
}

void Interner::clear() {
    entries_.clear();
    arena_.clear();
    resetSlots(fewestSlots);
}

void Interner::grow() {
    resetSlots(2 * (mask_ + 1));
    for (std::uint32_t number = 0; number < entries_.size(); ++number) {
        std::size_t i = entries_[number].hash & mask_;
        while (slots_[i].next != 0) i = (i + 1) & mask_;
        slots_[i] = {entries_[number].hash, number + 1};
    }
}

std::uint32_t Interner::number(std::string_view padded) {
    const auto head = headOf(padded);
    const auto hash = hashOf(head, padded);
    std::size_t i = hash & mask_;
    for (; slots_[i].next != 0; i = (i + 1) & mask_) {
        if (slots_[i].hash != hash) continue;
        const auto& entry = entries_[slots_[i].next - 1];
        if (entry.head == head && entry.length == padded.size() &&
            (padded.size() <= 8 || std::memcmp(arena_.data() + entry.offset + 8, padded.data() + 8,
                                               padded.size() - 8) == 0))
            return slots_[i].next - 1;
    }
    const auto number = static_cast<std::uint32_t>(entries_.size());
    entries_.push_back({head, static_cast<std::uint32_t>(arena_.size()),
                        static_cast<std::uint32_t>(padded.size()), hash});
    arena_.append(padded);
    slots_[i] = {hash, number + 1};
    if (2 * entries_.size() > mask_) grow();
    return number;
}

std::string_view Interner::text(std::uint32_t number) const {
    const auto& entry = entries_[number];
    return std::string_view(arena_).substr(entry.offset, entry.length);
}

}  // namespace brindlet
