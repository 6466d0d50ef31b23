#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <initializer_list>
#include <iterator>
#include <memory>
#include <vector>

namespace brindlet {

/// A set of 64-bit ids that copies in next to no time, however many it holds: bitmaps of 512
/// neighbours each, shared between copies until one of them writes. Made for row ids, which lie
/// close together; many that lie far apart cost memory, and time when inserted one by one. A copy
/// may go to another thread; one object, copying from it included, belongs to one thread at a time.
class IdSet {
  public:
    IdSet() = default;
    IdSet(std::initializer_list<std::int64_t> ids);
    /// In any order, repeats allowed. Quicker than inserting one by one.
    explicit IdSet(std::vector<std::int64_t> ids);
    IdSet(const IdSet& other);
    IdSet(IdSet&& other) noexcept;
    IdSet& operator=(IdSet other) noexcept;
    ~IdSet() = default;

    /// True when it was not there before.
    bool insert(std::int64_t id);
    /// True when it was there.
    bool erase(std::int64_t id);
    bool contains(std::int64_t id) const;
    std::size_t size() const { return size_; }
    bool empty() const { return size_ == 0; }
    void insertAll(const IdSet& other);
    void eraseAll(const IdSet& other);
    /// The ids that both hold, and how many these are.
    IdSet common(const IdSet& other) const;
    std::size_t countCommon(const IdSet& other) const;
    /// The ids that only one of both holds, in ascending order. Takes no time for what the two
    /// still share.
    std::vector<std::int64_t> difference(const IdSet& other) const;

    friend bool operator==(const IdSet& a, const IdSet& b);

    /// In ascending order.
    class Iterator {
      public:
        using iterator_category = std::forward_iterator_tag;
        using value_type = std::int64_t;
        using difference_type = std::ptrdiff_t;
        using pointer = const std::int64_t*;
        using reference = std::int64_t;

        Iterator() = default;
        std::int64_t operator*() const;
        Iterator& operator++();
        Iterator operator++(int);
        bool operator==(const Iterator& other) const = default;

      private:
        friend class IdSet;
        Iterator(const IdSet* set, std::size_t chunk);
        void seek();
        const IdSet* set_ = nullptr;
        std::size_t chunk_ = 0;
        unsigned bit_ = 0;
    };
    Iterator begin() const { return {this, 0}; }
    Iterator end() const { return {this, chunks_.size()}; }

  private:
    static constexpr unsigned chunkBits = 512;
    using Bits = std::array<std::uint64_t, chunkBits / 64>;
    struct Chunk {
        /// The ids' upper bits.
        std::int64_t key = 0;
        std::shared_ptr<Bits> bits;
        /// No copy has ever shared the bits. Asking the pointer how many owners it has would not
        /// do: one that has just gone on another thread may still have been reading.
        mutable bool own = true;
    };
    using Chunks = std::vector<Chunk>;
    /// Where the chunk of the key stands, or would stand.
    Chunks::const_iterator find(std::int64_t key) const;
    static Bits& writable(Chunk& chunk);
    /// A chunk of another set, to be shared with it.
    static const Chunk& shared(const Chunk& chunk);
    /// Calls visit(a, b) for each key that both sets have.
    template <class Visit>
    static void eachCommonKey(const IdSet& a, const IdSet& b, Visit visit);
    void recount();

    Chunks chunks_;  // by ascending key; none is empty
    std::size_t size_ = 0;
};

}  // namespace brindlet
