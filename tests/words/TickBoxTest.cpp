#include "words/TickBox.h"

#include <gtest/gtest.h>

namespace brindlet {
namespace {

TEST(TickBox, ShowsAllSomeNoneAndNothingToTick) {
    const struct {
        TickCount count;
        const char* symbol;
        bool wouldTick;
        bool some;
    } rows[] = {
        {{0, 0}, "minus.square.dashed", false, false},   {{0, 1}, "square", true, false},
        {{1, 1}, "checkmark.square.fill", false, false}, {{0, 5}, "square", true, false},
        {{1, 5}, "minus.square.fill", true, true},       {{4, 5}, "minus.square.fill", true, true},
        {{5, 5}, "checkmark.square.fill", false, false},
    };
    for (const auto& row : rows) {
        SCOPED_TRACE(testing::Message() << row.count.ticked << " of " << row.count.tickable);
        EXPECT_EQ(tickSymbol(row.count), row.symbol);
        EXPECT_EQ(row.count.wouldTick(), row.wouldTick);
        EXPECT_EQ(row.count.some(), row.some);
    }
}

}  // namespace
}  // namespace brindlet
