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

void RowFilter::reset(VerdictList verdicts, std::vector<std::uint32_t> positions) {
    verdicts_ = std::move(verdicts);
    positions_ = std::move(positions);
    folded_ = {};
    ends_ = {};
    needle_.clear();
    matches_.resize(positions_.size());
    std::iota(matches_.begin(), matches_.end(), 0U);
}

const std::vector<std::uint32_t>& RowFilter::matches(std::string_view text) {
    auto needle = caseFolded(text);
    if (needle == needle_) return matches_;
    // What holds a longer text holds every part of it.
    const bool narrower = needle.find(needle_) != std::string::npos;
    needle_ = std::move(needle);
    if (!narrower) {
        matches_.resize(positions_.size());
        std::iota(matches_.begin(), matches_.end(), 0U);
    }
    if (needle_.empty()) return matches_;
    if (ends_.empty()) foldTexts();
    std::erase_if(matches_, [&](std::uint32_t index) {
        return foldedText(index).find(needle_) == std::string_view::npos;
    });
    return matches_;
}

void RowFilter::foldTexts() {
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
