#include "screens/RowChanges.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <random>

namespace brindlet::screens {
namespace {

using Keys = std::vector<std::uint64_t>;
using Runs = std::vector<RowRun>;

std::ptrdiff_t offset(std::size_t index) {
    return static_cast<std::ptrdiff_t>(index);
}

/// As a model follows the steps.
Keys follow(Keys rows, const RowSteps& steps, const Keys& after) {
    for (const auto& [first, count] : steps.removals)
        rows.erase(rows.begin() + offset(first), rows.begin() + offset(first + count));
    for (const auto& [first, count] : steps.insertions)
        rows.insert(rows.begin() + offset(first), after.begin() + offset(first),
                    after.begin() + offset(first + count));
    return rows;
}

TEST(RowSteps, TouchOnlyWhatDiffers) {
    const struct {
        Keys before;
        Keys after;
        Runs removals;
        Runs insertions;
    } rows[] = {
        {{}, {}, {}, {}},
        {{}, {1, 2}, {}, {{0, 2}}},
        {{1, 2}, {}, {{0, 2}}, {}},
        {{1, 2, 3}, {1, 2, 3}, {}, {}},
        {{1, 3}, {1, 2, 3}, {}, {{1, 1}}},
        {{1, 2, 3}, {1, 3}, {{1, 1}}, {}},
        {{1, 2, 3, 4, 5, 6}, {1, 3, 6}, {{3, 2}, {1, 1}}, {}},
        {{1, 3, 6}, {1, 2, 3, 4, 5, 6}, {}, {{1, 1}, {3, 2}}},
        {{1, 2, 3, 4}, {1, 9, 3, 8, 4}, {{1, 1}}, {{1, 1}, {3, 1}}},
        // What changed places is taken out and put back.
        {{1, 2, 3, 4}, {1, 3, 2, 4}, {{1, 2}}, {{1, 2}}},
    };
    for (const auto& row : rows) {
        SCOPED_TRACE(::testing::PrintToString(row.before) + " to " +
                     ::testing::PrintToString(row.after));
        const auto steps = rowSteps(row.before, row.after);
        EXPECT_EQ(steps.removals, row.removals);
        EXPECT_EQ(steps.insertions, row.insertions);
        EXPECT_EQ(follow(row.before, steps, row.after), row.after);
    }
}

TEST(RowSteps, LeadFromAnyListToAnyOther) {
    std::mt19937 random(11);
    for (int round = 0; round < 2'000; ++round) {
        const auto some = [&] {
            Keys keys = {0, 1, 2, 3, 4, 5, 6, 7, 8, 9};
            if (random() % 4 == 0) std::shuffle(keys.begin(), keys.end(), random);
            std::erase_if(keys, [&](auto) { return random() % 3 == 0; });
            return keys;
        };
        const auto before = some();
        const auto after = some();
        ASSERT_EQ(follow(before, rowSteps(before, after), after), after)
            << ::testing::PrintToString(before);
    }
}

}  // namespace
}  // namespace brindlet::screens
