#pragma once

#include <cstddef>
#include <cstdint>
#include <iterator>
#include <memory>
#include <vector>

#include "classify/Verdict.h"

namespace brindlet {

/// The verdicts that one pass of a scan has found so far, in the order of their coming. One thread
/// appends; others read, through a VerdictList, only what stood there when the list was made. So a
/// scan can publish after every few results without copying what it published before.
class VerdictLog {
  public:
    VerdictLog();
    ~VerdictLog();
    VerdictLog(const VerdictLog&) = delete;
    VerdictLog& operator=(const VerdictLog&) = delete;

    void append(Verdict verdict);
    /// The latest; it stays where it is for as long as the log lives.
    const Verdict& last() const;
    std::size_t size() const { return size_; }
    std::int64_t junkCount() const { return junk_; }
    std::int64_t vetoedCount() const { return vetoed_; }

  private:
    friend class VerdictList;
    struct Chunk;
    std::unique_ptr<Chunk> first_;
    Chunk* last_;
    std::size_t size_ = 0;
    std::int64_t junk_ = 0;
    std::int64_t vetoed_ = 0;
};

/// An immutable list of verdicts that copies in no time. Made on any thread; read on one thread at
/// a time, since the list of a running pass is put in order at the first look at it.
class VerdictList {
  public:
    VerdictList() = default;
    explicit VerdictList(std::vector<Verdict> verdicts);
    /// `before`, which must be a finished list, followed by what the log holds now, by ascending
    /// id.
    VerdictList(const VerdictList& before, std::shared_ptr<const VerdictLog> log);

    std::size_t size() const { return finished_ ? finished_->size() + logged_ : logged_; }
    bool empty() const { return size() == 0; }
    const Verdict& operator[](std::size_t index) const;
    std::int64_t junkCount() const { return junk_; }
    std::int64_t vetoedCount() const { return vetoed_; }

    class Iterator {
      public:
        using iterator_category = std::forward_iterator_tag;
        using value_type = Verdict;
        using difference_type = std::ptrdiff_t;
        using pointer = const Verdict*;
        using reference = const Verdict&;

        Iterator() = default;
        Iterator(const VerdictList* list, std::size_t index) : list_(list), index_(index) {}
        reference operator*() const { return (*list_)[index_]; }
        pointer operator->() const { return &(*list_)[index_]; }
        Iterator& operator++() {
            ++index_;
            return *this;
        }
        Iterator operator++(int) {
            Iterator before = *this;
            ++index_;
            return before;
        }
        bool operator==(const Iterator& other) const { return index_ == other.index_; }

      private:
        const VerdictList* list_ = nullptr;
        std::size_t index_ = 0;
    };
    Iterator begin() const { return {this, 0}; }
    Iterator end() const { return {this, size()}; }

  private:
    std::shared_ptr<const std::vector<Verdict>> finished_;
    std::shared_ptr<const VerdictLog> log_;
    std::size_t logged_ = 0;
    std::int64_t junk_ = 0;
    std::int64_t vetoed_ = 0;
    mutable std::vector<const Verdict*> ordered_;  // of the logged ones; built when asked for
};

}  // namespace brindlet
