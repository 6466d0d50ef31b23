#include "stores/SeenTable.h"

#include <algorithm>
#include <bit>

namespace brindlet {
namespace {

constexpr std::uint64_t joined(std::uint32_t account, std::uint32_t folder) {
    return std::uint64_t{account} << 32 | folder;
}

}  // namespace

SeenTable::Place SeenTable::place(std::optional<std::string_view> account,
                                  std::optional<std::string_view> folder) {
    // Entries come in batches of one scan each, so it is mostly the same pair again.
    if (lastPlace_ < places_.size() && places_[lastPlace_].account == account &&
        places_[lastPlace_].folder == folder)
        return lastPlace_;
    const auto numbered = [this](std::optional<std::string_view> name) -> std::uint32_t {
        if (!name) return 0;
        const auto found = names_.find(*name);
        if (found != names_.end()) return found->second;
        const auto number = static_cast<std::uint32_t>(names_.size() + 1);
        names_.emplace(*name, number);
        return number;
    };
    const auto pair = joined(numbered(account), numbered(folder));
    const auto [entry, added] = placeNumbers_.emplace(pair, static_cast<Place>(places_.size()));
    if (added)
        places_.push_back(
            {std::optional<std::string>(account), std::optional<std::string>(folder)});
    return lastPlace_ = entry->second;
}

const SeenTable::PlaceInfo* SeenTable::findPlace(std::string_view account,
                                                 std::string_view folder) const {
    const auto accountName = names_.find(account);
    const auto folderName = names_.find(folder);
    if (accountName == names_.end() || folderName == names_.end()) return nullptr;
    const auto found = placeNumbers_.find(joined(accountName->second, folderName->second));
    return found == placeNumbers_.end() ? nullptr : &places_[found->second];
}

bool SeenTable::anyLacksFolder() const {
    return std::any_of(places_.begin(), places_.end(),
                       [](const PlaceInfo& place) { return !place.folder && place.entries > 0; });
}

std::size_t SeenTable::junkSize() const {
    std::int64_t junk = 0;
    for (const PlaceInfo& place : places_) junk += place.junk;
    return static_cast<std::size_t>(junk);
}

std::uint32_t SeenTable::hashed(std::string_view key) {
    const std::uint64_t hash = std::hash<std::string_view>()(key);
    return static_cast<std::uint32_t>(hash ^ hash >> 32);
}

/// The slot that holds the key, or the free one where it belongs. There must be a free slot.
std::size_t SeenTable::slotOf(std::string_view key, std::uint32_t hash) const {
    const std::size_t mask = slots_.size() - 1;
    for (std::size_t at = hash & mask;; at = (at + 1) & mask) {
        const Slot& slot = slots_[at];
        if (slot.row == 0) return at;
        if (slot.hash == hash && rows_[slot.row - 1].key == key) return at;
    }
}

const SeenTable::Row* SeenTable::find(std::string_view key) const {
    if (slots_.empty()) return nullptr;
    const Slot& slot = slots_[slotOf(key, hashed(key))];
    return slot.row == 0 ? nullptr : &rows_[slot.row - 1];
}

void SeenTable::reserve(std::size_t rows) {
    rows_.reserve(rows);
    const auto slots = std::bit_ceil(rows + rows / 2 + 16);
    if (slots > slots_.size()) rebuild(slots);
}

void SeenTable::rebuild(std::size_t slots) {
    std::vector<Slot> old(slots);
    old.swap(slots_);
    const std::size_t mask = slots - 1;
    for (const Slot& slot : old) {
        if (slot.row == 0) continue;
        std::size_t at = slot.hash & mask;
        while (slots_[at].row != 0) at = (at + 1) & mask;
        slots_[at] = slot;
    }
}

void SeenTable::count(const Row& row, std::int64_t step) {
    PlaceInfo& info = places_[row.place];
    info.entries += step;
    if (row.junk) info.junk += step;
}

void SeenTable::set(std::string_view key, bool junk, Date when, Place place) {
    if (rows_.size() + 1 > slots_.size() / 4 * 3) rebuild(slots_.empty() ? 16 : slots_.size() * 2);
    const auto hash = hashed(key);
    Slot& slot = slots_[slotOf(key, hash)];
    if (slot.row == 0) {
        rows_.push_back({keys_.add(key), when, place, junk});
        slot = {hash, static_cast<std::uint32_t>(rows_.size())};
    } else {
        Row& row = rows_[slot.row - 1];
        count(row, -1);
        row = {row.key, when, place, junk};
    }
    count(rows_[slot.row - 1], +1);
}

}  // namespace brindlet
