#include "base/IdSet.h"

#include <algorithm>
#include <bit>
#include <functional>
#include <iterator>
#include <utility>

namespace brindlet {
namespace {

// Both round downwards, so that negative ids take their place like others.
constexpr std::int64_t keyOf(std::int64_t id) {
    return id >> 9;
}
constexpr unsigned placeOf(std::int64_t id) {
    return static_cast<unsigned>(id & 511);
}

constexpr std::uint64_t maskOf(unsigned place) {
    return std::uint64_t{1} << (place % 64);
}

template <class Bits>
bool isEmpty(const Bits& bits) {
    return std::all_of(bits.begin(), bits.end(), [](std::uint64_t word) { return word == 0; });
}

template <class Bits>
std::size_t count(const Bits& bits) {
    std::size_t sum = 0;
    for (const auto word : bits) sum += static_cast<std::size_t>(std::popcount(word));
    return sum;
}

template <class Bits>
Bits both(const Bits& a, const Bits& b) {
    Bits result;
    std::transform(a.begin(), a.end(), b.begin(), result.begin(), std::bit_and());
    return result;
}

}  // namespace

IdSet::IdSet(std::initializer_list<std::int64_t> ids) : IdSet(std::vector<std::int64_t>(ids)) {}

IdSet::IdSet(std::vector<std::int64_t> ids) {
    std::sort(ids.begin(), ids.end());
    for (const auto id : ids) {
        if (chunks_.empty() || chunks_.back().key != keyOf(id))
            chunks_.push_back({keyOf(id), std::make_shared<Bits>()});
        (*chunks_.back().bits)[placeOf(id) / 64] |= maskOf(placeOf(id));
    }
    recount();
}

IdSet::IdSet(const IdSet& other) : size_(other.size_) {
    chunks_.reserve(other.chunks_.size());
    for (const auto& chunk : other.chunks_) chunks_.push_back(shared(chunk));
}

IdSet::IdSet(IdSet&& other) noexcept
    : chunks_(std::move(other.chunks_)), size_(std::exchange(other.size_, 0)) {
    other.chunks_.clear();
}

IdSet& IdSet::operator=(IdSet other) noexcept {
    chunks_.swap(other.chunks_);
    std::swap(size_, other.size_);
    return *this;
}

const IdSet::Chunk& IdSet::shared(const Chunk& chunk) {
    chunk.own = false;
    return chunk;
}

IdSet::Bits& IdSet::writable(Chunk& chunk) {
    if (!chunk.own) {
        chunk.bits = std::make_shared<Bits>(*chunk.bits);
        chunk.own = true;
    }
    return *chunk.bits;
}

IdSet::Chunks::const_iterator IdSet::find(std::int64_t key) const {
    return std::lower_bound(
        chunks_.begin(), chunks_.end(), key,
        [](const Chunk& chunk, std::int64_t wanted) { return chunk.key < wanted; });
}

void IdSet::recount() {
    size_ = 0;
    for (const auto& chunk : chunks_) size_ += count(*chunk.bits);
}

bool IdSet::contains(std::int64_t id) const {
    const auto found = find(keyOf(id));
    return found != chunks_.end() && found->key == keyOf(id) &&
           ((*found->bits)[placeOf(id) / 64] & maskOf(placeOf(id))) != 0;
}

bool IdSet::insert(std::int64_t id) {
    if (contains(id)) return false;
    auto place = chunks_.begin() + (find(keyOf(id)) - chunks_.cbegin());
    if (place == chunks_.end() || place->key != keyOf(id))
        place = chunks_.insert(place, {keyOf(id), std::make_shared<Bits>()});
    writable(*place)[placeOf(id) / 64] |= maskOf(placeOf(id));
    ++size_;
    return true;
}

bool IdSet::erase(std::int64_t id) {
    if (!contains(id)) return false;
    const auto place = chunks_.begin() + (find(keyOf(id)) - chunks_.cbegin());
    auto& bits = writable(*place);
    bits[placeOf(id) / 64] &= ~maskOf(placeOf(id));
    if (isEmpty(bits)) chunks_.erase(place);
    --size_;
    return true;
}

void IdSet::insertAll(const IdSet& other) {
    Chunks merged;
    merged.reserve(chunks_.size() + other.chunks_.size());
    auto mine = chunks_.begin();
    for (const auto& theirs : other.chunks_) {
        for (; mine != chunks_.end() && mine->key < theirs.key; ++mine)
            merged.push_back(std::move(*mine));
        if (mine == chunks_.end() || mine->key != theirs.key) {
            merged.push_back(shared(theirs));
            continue;
        }
        auto& bits = writable(*mine);
        std::transform(bits.begin(), bits.end(), theirs.bits->begin(), bits.begin(), std::bit_or());
        merged.push_back(std::move(*mine++));
    }
    std::move(mine, chunks_.end(), std::back_inserter(merged));
    chunks_ = std::move(merged);
    recount();
}

void IdSet::eraseAll(const IdSet& other) {
    for (auto& chunk : chunks_) {
        const auto theirs = other.find(chunk.key);
        if (theirs == other.chunks_.end() || theirs->key != chunk.key) continue;
        const auto erased = theirs->bits;  // `other` may be this set
        auto& bits = writable(chunk);
        std::transform(bits.begin(), bits.end(), erased->begin(), bits.begin(),
                       [](std::uint64_t mine, std::uint64_t gone) { return mine & ~gone; });
    }
    std::erase_if(chunks_, [](const Chunk& chunk) { return isEmpty(*chunk.bits); });
    recount();
}

template <class Visit>
void IdSet::eachCommonKey(const IdSet& a, const IdSet& b, Visit visit) {
    auto theirs = b.chunks_.begin();
    for (const auto& mine : a.chunks_) {
        while (theirs != b.chunks_.end() && theirs->key < mine.key) ++theirs;
        if (theirs == b.chunks_.end()) return;
        if (theirs->key == mine.key) visit(mine, *theirs);
    }
}

IdSet IdSet::common(const IdSet& other) const {
    IdSet result;
    eachCommonKey(*this, other, [&](const Chunk& mine, const Chunk& theirs) {
        const auto bits = both(*mine.bits, *theirs.bits);
        if (!isEmpty(bits)) result.chunks_.push_back({mine.key, std::make_shared<Bits>(bits)});
    });
    result.recount();
    return result;
}

std::size_t IdSet::countCommon(const IdSet& other) const {
    std::size_t sum = 0;
    eachCommonKey(*this, other, [&](const Chunk& mine, const Chunk& theirs) {
        sum += count(both(*mine.bits, *theirs.bits));
    });
    return sum;
}

std::vector<std::int64_t> IdSet::difference(const IdSet& other) const {
    IdSet result;
    const auto add = [&](std::int64_t key, const Bits& mine, const Bits& theirs) {
        Bits bits;
        std::transform(mine.begin(), mine.end(), theirs.begin(), bits.begin(), std::bit_xor());
        if (!isEmpty(bits)) result.chunks_.push_back({key, std::make_shared<Bits>(bits)});
    };
    auto theirs = other.chunks_.begin();
    for (const auto& mine : chunks_) {
        for (; theirs != other.chunks_.end() && theirs->key < mine.key; ++theirs)
            add(theirs->key, {}, *theirs->bits);
        if (theirs == other.chunks_.end() || theirs->key != mine.key) {
            add(mine.key, *mine.bits, {});
            continue;
        }
        if (mine.bits != theirs->bits) add(mine.key, *mine.bits, *theirs->bits);
        ++theirs;
    }
    for (; theirs != other.chunks_.end(); ++theirs) add(theirs->key, {}, *theirs->bits);
    return {result.begin(), result.end()};
}

bool operator==(const IdSet& a, const IdSet& b) {
    return a.size_ == b.size_ && std::equal(a.chunks_.begin(), a.chunks_.end(), b.chunks_.begin(),
                                            b.chunks_.end(), [](const auto& x, const auto& y) {
                                                return x.key == y.key && *x.bits == *y.bits;
                                            });
}

IdSet::Iterator::Iterator(const IdSet* set, std::size_t chunk) : set_(set), chunk_(chunk) {
    seek();
}

std::int64_t IdSet::Iterator::operator*() const {
    return set_->chunks_[chunk_].key * chunkBits + bit_;
}

IdSet::Iterator& IdSet::Iterator::operator++() {
    ++bit_;
    seek();
    return *this;
}

IdSet::Iterator IdSet::Iterator::operator++(int) {
    Iterator before = *this;
    ++*this;
    return before;
}

/// On to the next id at or after this place, or to the end.
void IdSet::Iterator::seek() {
    for (; chunk_ < set_->chunks_.size(); ++chunk_, bit_ = 0) {
        const auto& bits = *set_->chunks_[chunk_].bits;
        for (auto word = bit_ / 64; word < bits.size(); ++word) {
            const auto left =
                word == bit_ / 64 ? bits[word] >> (bit_ % 64) << (bit_ % 64) : bits[word];
            if (left == 0) continue;
            bit_ = word * 64 + static_cast<unsigned>(std::countr_zero(left));
            return;
        }
    }
}

}  // namespace brindlet
