#pragma once

#include <cstddef>
#include <cstdint>
#include <utility>
#include <vector>

namespace brindlet::screens {

/// Takes `fresh` over `rows`, both of one length, and tells which rows differ, in ascending order.
template <class T>
std::vector<int> adoptChanged(std::vector<T>& rows, std::vector<T> fresh) {
    std::vector<int> changed;
    for (std::size_t i = 0; i < rows.size(); ++i)
        if (!(rows[i] == fresh[i])) changed.push_back(static_cast<int>(i));
    rows = std::move(fresh);
    return changed;
}

/// Rows that stand together.
struct RowRun {
    std::size_t first = 0;
    std::size_t count = 0;

    friend bool operator==(const RowRun&, const RowRun&) = default;
};

/// How one list becomes another: first the removals in their order, each counted in the list as it
/// then is, then the insertions in theirs. Rows that both lists have stay, so that a view keeps its
/// place.
struct RowSteps {
    std::vector<RowRun> removals;
    std::vector<RowRun> insertions;
};

/// Rows are told apart by keys, of which none comes twice in a list. What both lists have but not
/// in the same order is taken out and put back.
RowSteps rowSteps(const std::vector<std::uint64_t>& before,
                  const std::vector<std::uint64_t>& after);

}  // namespace brindlet::screens
