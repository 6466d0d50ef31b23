#include "words/ListWords.h"

#include <gtest/gtest.h>

#include "doubles/Doubles.h"

namespace brindlet {
namespace {

TEST(ListWords, OneMatchIsWordedInTheSingular) {
    const doubles::FixedLocale locale;
    EXPECT_EQ(matchLine(0, locale), "0 matches");
    EXPECT_EQ(matchLine(1, locale), "1 match");
    EXPECT_EQ(matchLine(2, locale), "2 matches");
    EXPECT_EQ(matchLine(1234, locale), "1,234 matches");
}

TEST(ListWords, ALongListSaysHowLong) {
    const doubles::FixedLocale locale;
    EXPECT_EQ(messagesScrollLine(15'097, locale), "15,097 messages · scroll to see them all");
    EXPECT_EQ(sendersScrollLine(1234, locale), "1,234 senders · scroll to see them all");
}

}  // namespace
}  // namespace brindlet
