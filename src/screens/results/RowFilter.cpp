#include "screens/results/RowFilter.h"

#include <numeric>
#include <utility>

#include "base/Text.h"

namespace brindlet::screens {
namespace {

/// Stands between a sender and a subject, so that nothing is found across the two: no UTF-8 text
/// has this byte.
constexpr char divider = '\xFF';

}  // namespace

RowFilter::RowFilter() : steps_(1) {}

void RowFilter::reset(VerdictList verdicts, std::vector<std::uint32_t> positions) {
    verdicts_ = std::move(verdicts);
    positions_ = std::move(positions);
    folded_ = {};
    ends_ = {};
    steps_.assign(1, {});
    auto& all = steps_.front().matches;
    all.resize(positions_.size());
    std::iota(all.begin(), all.end(), 0U);
}

const std::vector<std::uint32_t>& RowFilter::matches(std::string_view text) {
    auto needle = caseFolded(text);
    // What holds a longer text holds every part of it.
    while (needle.find(steps_.back().needle) == std::string::npos) steps_.pop_back();
    if (needle == steps_.back().needle) return steps_.back().matches;
    if (ends_.empty()) foldTexts();

    std::vector<std::uint32_t> left;
    for (const auto index : steps_.back().matches)
        if (foldedText(index).find(needle) != std::string_view::npos) left.push_back(index);
    steps_.push_back({std::move(needle), std::move(left)});
    return steps_.back().matches;
}

void RowFilter::foldTexts() {
    std::size_t bytes = 0;
    for (const auto position : positions_)
        bytes += verdicts_[position].sender.size() + 1 + verdicts_[position].subject.size();
    folded_.reserve(bytes);
    ends_.reserve(positions_.size());
    for (const auto position : positions_) {
        const auto& verdict = verdicts_[position];
        appendCaseFolded(verdict.sender, folded_);
        folded_ += divider;
        appendCaseFolded(verdict.subject, folded_);
        ends_.push_back(folded_.size());
    }
}

std::string_view RowFilter::foldedText(std::uint32_t index) const {
    const auto begin = index == 0 ? 0 : ends_[index - 1];
    return std::string_view(folded_).substr(begin, ends_[index] - begin);
}

}  // namespace brindlet::screens
