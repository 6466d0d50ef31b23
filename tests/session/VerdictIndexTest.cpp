#include "session/VerdictIndex.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <map>
#include <random>

#include "stores/Rules.h"

namespace brindlet {
namespace {

using Positions = std::vector<std::uint32_t>;

Verdict from(std::int64_t id, const std::string& sender) {
    Verdict verdict;
    verdict.id = id;
    verdict.sender = sender;
    return verdict;
}

TEST(VerdictIndex, OfNothingFindsNothing) {
    for (const auto& index : {VerdictIndex(), VerdictIndex(VerdictList())}) {
        EXPECT_EQ(index.find(0), std::nullopt);
        EXPECT_TRUE(index.ids().empty());
        EXPECT_EQ(index.groupWithKey(""), std::nullopt);
    }
}

TEST(VerdictIndex, FindsAnIdAtItsFirstPlace) {
    const VerdictIndex index(
        VerdictList({from(7, "a@x.example"), from(-2, "b@x.example"), from(7, "c@x.example")}));
    EXPECT_EQ(index.find(7), 0u);
    EXPECT_EQ(index.find(-2), 1u);
    EXPECT_EQ(index.find(8), std::nullopt);
    EXPECT_EQ(index.ids(), (IdSet{-2, 7}));
}

TEST(VerdictIndex, GroupsByTheKeyOfTheSender) {
    const VerdictIndex index(VerdictList({
        from(1, "Bob <news1@x.example>"),  // a numbered address stands for its domain
        from(2, "ann@x.example"),
        from(3, "Somebody else <news2@X.example>"),
        from(4, "ANN@x.example"),
        from(5, "x.example"),
    }));
    EXPECT_EQ(index.groupOf(0), 0u);
    EXPECT_EQ(index.key(0), "x.example");
    EXPECT_EQ(index.members(0), (Positions{0, 2, 4}));
    EXPECT_EQ(index.groupWithKey("ann@x.example"), 1u);
    EXPECT_EQ(index.members(1), (Positions{1, 3}));
}

TEST(VerdictIndex, SendersWithoutAKeyAreOneGroup) {
    const VerdictIndex index(
        VerdictList({from(1, "Shop Team"), from(2, "a@x.example"), from(3, ""), from(4, "@")}));
    const auto group = index.groupWithKey("");
    ASSERT_EQ(group, 0u);
    EXPECT_EQ(index.key(*group), "");
    EXPECT_EQ(index.members(*group), (Positions{0, 2, 3}));
}

TEST(VerdictIndex, AgreesWithLookingAtEach) {
    std::mt19937 random(1);
    const char* const senders[] = {"Ann <ann@x.example>", "ann@x.example", "n1@x.example",
                                   "n2@x.example",        "No address",    "B <b@gmail.com>"};
    for (int round = 0; round < 200; ++round) {
        std::vector<Verdict> list(random() % 40);
        for (auto& verdict : list)
            verdict = from(static_cast<std::int64_t>(random() % 60) - 20,
                           senders[random() % std::size(senders)]);
        const VerdictIndex index{VerdictList(list)};
        std::map<std::string, Positions> byKey;
        IdSet ids;
        for (std::uint32_t i = 0; i < list.size(); ++i) {
            byKey[Rules::senderKey(list[i].sender)].push_back(i);
            ids.insert(list[i].id);
            const auto first = std::find_if(list.begin(), list.end(), [&](const Verdict& other) {
                return other.id == list[i].id;
            });
            EXPECT_EQ(index.find(list[i].id), first - list.begin());
            EXPECT_EQ(index.key(index.groupOf(i)), Rules::senderKey(list[i].sender));
        }
        EXPECT_EQ(index.ids(), ids);
        for (const auto& [key, positions] : byKey) {
            const auto group = index.groupWithKey(key);
            ASSERT_TRUE(group) << key;
            EXPECT_EQ(index.members(*group), positions) << key;
        }
    }
}

}  // namespace
}  // namespace brindlet
