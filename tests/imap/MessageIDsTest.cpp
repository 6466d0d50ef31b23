#include "imap/MessageIDs.h"

#include <gtest/gtest.h>

#include <string>

namespace brindlet {
namespace {

TEST(MessageIDs, FindsWhatWasSetAndNothingElse) {
    MessageIDs ids;
    EXPECT_EQ(ids.find("a@x"), std::nullopt);
    ids.set("a@x", 7);
    ids.set("b@x", 0);
    EXPECT_EQ(ids.find("a@x"), 7u);
    EXPECT_EQ(ids.find("b@x"), 0u);
    EXPECT_EQ(ids.find("A@x"), std::nullopt);
    EXPECT_EQ(ids.find(""), std::nullopt);
    EXPECT_EQ(ids.size(), 2u);
}

TEST(MessageIDs, ALaterEntryReplaces) {
    MessageIDs ids;
    ids.set("a@x", 7);
    ids.set("a@x", 9);
    EXPECT_EQ(ids.find("a@x"), 9u);
    EXPECT_EQ(ids.size(), 1u);
}

TEST(MessageIDs, KeepsAllThroughItsGrowthAndAMove) {
    MessageIDs grown;
    for (std::uint32_t i = 0; i < 10'000; ++i) {
        std::string id = std::to_string(i) + "@x";  // its own copy, gone when it is looked for
        grown.set(id, i);
    }
    const MessageIDs ids = std::move(grown);
    EXPECT_EQ(ids.size(), 10'000u);
    for (std::uint32_t i = 0; i < 10'000; ++i)
        ASSERT_EQ(ids.find(std::to_string(i) + "@x"), i) << i;
    EXPECT_EQ(ids.find("10000@x"), std::nullopt);
}

}  // namespace
}  // namespace brindlet
