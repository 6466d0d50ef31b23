#include "screens/RowChanges.h"

#include <algorithm>
#include <unordered_set>

namespace brindlet::screens {
namespace {

using Keys = std::vector<std::uint64_t>;

/// The runs between `first` and `end` of those that pass.
template <class Test>
std::vector<RowRun> runsWhere(std::size_t first, std::size_t end, Test&& test) {
    std::vector<RowRun> runs;
    for (std::size_t i = first; i < end; ++i) {
        if (!test(i)) continue;
        if (!runs.empty() && runs.back().first + runs.back().count == i)
            ++runs.back().count;
        else
            runs.push_back({i, 1});
    }
    return runs;
}

}  // namespace

RowSteps rowSteps(const Keys& before, const Keys& after) {
    std::size_t head = 0;
    const auto shorter = std::min(before.size(), after.size());
    while (head < shorter && before[head] == after[head]) ++head;
    std::size_t tail = 0;
    while (tail < shorter - head &&
           before[before.size() - 1 - tail] == after[after.size() - 1 - tail])
        ++tail;
    const auto beforeEnd = before.size() - tail;
    const auto afterEnd = after.size() - tail;

    const auto part = [&](const Keys& keys, std::size_t end) {
        return std::unordered_set<std::uint64_t>(keys.begin() + static_cast<std::ptrdiff_t>(head),
                                                 keys.begin() + static_cast<std::ptrdiff_t>(end));
    };
    const auto old = part(before, beforeEnd);
    const auto fresh = part(after, afterEnd);
    Keys staying, wanted;
    for (auto i = head; i < beforeEnd; ++i)
        if (fresh.count(before[i]) > 0) staying.push_back(before[i]);
    for (auto i = head; i < afterEnd; ++i)
        if (old.count(after[i]) > 0) wanted.push_back(after[i]);
    const bool ordered = staying == wanted;

    RowSteps steps;
    steps.removals = runsWhere(
        head, beforeEnd, [&](std::size_t i) { return !ordered || fresh.count(before[i]) == 0; });
    // From the end, so that none moves another.
    std::reverse(steps.removals.begin(), steps.removals.end());
    steps.insertions = runsWhere(
        head, afterEnd, [&](std::size_t i) { return !ordered || old.count(after[i]) == 0; });
    return steps;
}

}  // namespace brindlet::screens
