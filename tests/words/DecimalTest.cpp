#include "words/Decimal.h"

#include <gtest/gtest.h>

namespace brindlet {
namespace {

TEST(OneDecimal, RoundsAndDoesNotGroup) {
    const struct {
        double value;
        const char* text;
    } rows[] = {
        {0, "0.0"},      {0.04, "0.0"}, {0.06, "0.1"},
        {41.66, "41.7"}, {1.5, "1.5"},  {1234.56, "1234.6"},
    };
    for (const auto& row : rows) EXPECT_EQ(oneDecimal(row.value), row.text);
}

}  // namespace
}  // namespace brindlet
