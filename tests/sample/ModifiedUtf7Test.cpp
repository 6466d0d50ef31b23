#include "sample/ModifiedUtf7.h"

#include <gtest/gtest.h>

namespace brindlet::sample {
namespace {

// The first foreign row is the example of RFC 3501, section 5.1.3.
TEST(ModifiedUtf7, NamesAreWrittenInAsciiAndReadBack) {
    const struct {
        std::string_view name;
        std::string_view written;
    } rows[] = {
        {"", ""},
        {"INBOX", "INBOX"},
        {"[Gmail]/All Mail", "[Gmail]/All Mail"},
        {"~peter/mail/台北/日本語", "~peter/mail/&U,BTFw-/&ZeVnLIqe-"},
        {"Côte d'été", "C&APQ-te d'&AOk-t&AOk-"},
        {"Küche & Garten", "K&APw-che &- Garten"},
        {"&", "&-"},
        {"ü", "&APw-"},
        {"üü", "&APwA,A-"},
        {"üüü", "&APwA,AD8-"},
        {"😀", "&2D3eAA-"},
        {"a😀b", "a&2D3eAA-b"},
        {"a\tb", "a&AAk-b"},
    };
    for (const auto& row : rows) {
        EXPECT_EQ(toModifiedUtf7(row.name), row.written) << row.name;
        EXPECT_EQ(fromModifiedUtf7(row.written), row.name) << row.written;
    }
}

TEST(ModifiedUtf7, WhatNobodyWritesSoIsRefused) {
    for (const std::string_view written : {"Côte", "a&b", "&AP-", "&A-", "&APwA-", "&AP/-", "&AGE-",
                                           "&2D0-", "&3gA-", "&2D0AYQ-", "&APx-", "tab\there"})
        EXPECT_FALSE(fromModifiedUtf7(written)) << written;
}

}  // namespace
}  // namespace brindlet::sample
