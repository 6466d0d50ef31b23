#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

namespace brindlet {

/// Numbers texts from 0 in the order in which they are first seen. Made for millions of short ones:
/// the bytes lie in one arena, and `clear` keeps all memory and costs little, so that one table
/// serves many small families after another. Holds at most 4 GB. One thread.
class Interner {
  public:
    /// So many bytes after a text's end must be readable, whatever they hold: texts are hashed in
    /// blocks.
    static constexpr std::size_t padding = 8;

    Interner();

    void clear();
    /// The text's number; a new text gets the next.
    std::uint32_t number(std::string_view padded);
    std::size_t size() const { return entries_.size(); }
    /// Valid until the next new text.
    std::string_view text(std::uint32_t number) const;

  private:
    struct Entry {
        /// The first 8 bytes, zeros after a shorter text, which spare most looks into the arena.
        std::uint64_t head;
        std::uint32_t offset;
        std::uint32_t length;
        std::uint32_t hash;
    };
    struct Slot {
        std::uint32_t hash = 0;
        /// One more than the entry's number; 0 in an empty slot.
        std::uint32_t next = 0;
    };
    void resetSlots(std::size_t count);
    void grow();

    std::vector<Entry> entries_;
    std::string arena_;
    /// Of these the first mask_ + 1 are in use, a power of two.
    std::vector<Slot> slots_;
    std::size_t mask_ = 0;
};

}  // namespace brindlet
