#include "session/VerdictList.h"

#include <algorithm>
#include <array>
#include <utility>

namespace brindlet {

struct VerdictLog::Chunk {
    static constexpr std::size_t capacity = 256;
    std::array<Verdict, capacity> verdicts;
    std::unique_ptr<Chunk> next;
};

VerdictLog::VerdictLog() : first_(std::make_unique<Chunk>()), last_(first_.get()) {}

VerdictLog::~VerdictLog() {
    // One by one: a chain that ends itself would recurse once a chunk.
    while (first_) first_ = std::move(first_->next);
}

void VerdictLog::append(Verdict verdict) {
    const auto place = size_ % Chunk::capacity;
    if (place == 0 && size_ > 0) {
        last_->next = std::make_unique<Chunk>();
        last_ = last_->next.get();
    }
    junk_ += verdict.isJunk;
    vetoed_ += verdict.vetoed;
    last_->verdicts[place] = std::move(verdict);
    ++size_;
}

const Verdict& VerdictLog::last() const {
    return last_->verdicts[(size_ - 1) % Chunk::capacity];
}

VerdictList::VerdictList(std::vector<Verdict> verdicts) {
    for (const auto& verdict : verdicts) {
        junk_ += verdict.isJunk;
        vetoed_ += verdict.vetoed;
    }
    finished_ = std::make_shared<const std::vector<Verdict>>(std::move(verdicts));
}

VerdictList::VerdictList(const VerdictList& before, std::shared_ptr<const VerdictLog> log)
    : finished_(before.finished_),
      log_(std::move(log)),
      logged_(log_->size()),
      junk_(before.junk_ + log_->junkCount()),
      vetoed_(before.vetoed_ + log_->vetoedCount()) {}

const Verdict& VerdictList::operator[](std::size_t index) const {
    const std::size_t before = finished_ ? finished_->size() : 0;
    if (index < before) return (*finished_)[index];
    if (ordered_.empty()) {
        ordered_.reserve(logged_);
        const VerdictLog::Chunk* chunk = log_->first_.get();
        for (std::size_t i = 0; i < logged_; ++i) {
            const auto place = i % VerdictLog::Chunk::capacity;
            if (place == 0 && i > 0) chunk = chunk->next.get();
            ordered_.push_back(&chunk->verdicts[place]);
        }
        std::sort(ordered_.begin(), ordered_.end(),
                  [](const Verdict* a, const Verdict* b) { return a->id < b->id; });
    }
    return *ordered_[index - before];
}

}  // namespace brindlet
