#pragma once

#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <unordered_map>
#include <vector>

#include "base/Date.h"
#include "base/KeyPool.h"

namespace brindlet {

/// A hash map from Message-ID to what was decided, laid out for a million of them: keys stand in a
/// pool, account and folder in a table of the pairs that occur, and each pair carries its counts.
/// Entries are never taken out one by one. Reading is safe from any thread while nobody changes it.
/// A copy shares the keys with the original and costs about 45 bytes an entry.
class SeenTable {
  public:
    /// Numbers a pair of account and folder; either may be missing.
    using Place = std::uint32_t;
    struct PlaceInfo {
        std::optional<std::string> account;
        std::optional<std::string> folder;
        std::int64_t entries = 0;
        std::int64_t junk = 0;
    };
    struct Row {
        /// Points into the key pool.
        std::string_view key;
        Date when;
        Place place = 0;
        bool junk = false;
    };

    Place place(std::optional<std::string_view> account, std::optional<std::string_view> folder);
    const std::vector<PlaceInfo>& places() const { return places_; }
    const PlaceInfo* findPlace(std::string_view account, std::string_view folder) const;
    bool anyLacksFolder() const;
    std::size_t junkSize() const;

    /// In the order in which the keys came; an overwritten entry keeps its place.
    const std::vector<Row>& rows() const { return rows_; }
    /// None when there is no such entry; otherwise valid until the next change.
    const Row* find(std::string_view key) const;

    void reserve(std::size_t rows);
    /// Adds an entry or overwrites it. The key must not be empty.
    void set(std::string_view key, bool junk, Date when, Place place);

  private:
    /// One step of an open-addressing table; a `row` of 0 is a free slot, else the row's number
    /// plus one. The hash is kept so that growing and most mismatches touch no key.
    struct Slot {
        std::uint32_t hash = 0;
        std::uint32_t row = 0;
    };

    static std::uint32_t hashed(std::string_view key);
    std::size_t slotOf(std::string_view key, std::uint32_t hash) const;
    void rebuild(std::size_t slots);
    void count(const Row& row, std::int64_t step);
    KeyPool keys_;
    std::vector<Row> rows_;
    std::vector<Slot> slots_;  // a power of two, at most three quarters full

    struct TextHash {
        using is_transparent = void;
        std::size_t operator()(std::string_view text) const {
            return std::hash<std::string_view>()(text);
        }
    };
    /// Numbers the names of accounts and folders that occur, from 1; 0 stands for a missing one.
    std::unordered_map<std::string, std::uint32_t, TextHash, std::equal_to<>> names_;
    /// By the account's number in the upper half and the folder's in the lower.
    std::unordered_map<std::uint64_t, Place> placeNumbers_;
    std::vector<PlaceInfo> places_;
    Place lastPlace_ = 0;
};

}  // namespace brindlet
