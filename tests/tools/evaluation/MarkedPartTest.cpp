#include "MarkedPart.h"

#include <gtest/gtest.h>

namespace brindlet::tools {
namespace {

TEST(MarkedPart, IsReplacedBetweenItsLines) {
    EXPECT_EQ(withMarkedPart("a\n<!-- x -->\nold\n<!-- /x -->\nb\n", "x", "new\n"),
              "a\n<!-- x -->\nnew\n<!-- /x -->\nb\n");
    EXPECT_EQ(withMarkedPart("<!-- x -->\n<!-- /x -->", "x", "new\n"),
              "<!-- x -->\nnew\n<!-- /x -->");
}

TEST(MarkedPart, NeedsBothLinesInThisOrder) {
    for (const auto* page : {"", "<!-- x -->\n", "<!-- /x -->\n<!-- x -->\n", "<!-- y -->\n"})
        EXPECT_EQ(withMarkedPart(page, "x", "new\n"), std::nullopt) << page;
}

}  // namespace
}  // namespace brindlet::tools
