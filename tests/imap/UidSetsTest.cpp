#include "imap/UidSets.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <numeric>

#include "base/Text.h"

namespace brindlet {
namespace {

using Uids = std::vector<std::uint32_t>;
using Sets = std::vector<std::string>;

TEST(UidSets, SortsAndFoldsRuns) {
    const struct {
        Uids uids;
        Sets sets;
    } rows[] = {
        {{}, {}},
        {{7}, {"7"}},
        {{3, 1, 2, 7}, {"1:3,7"}},
        {{2, 1}, {"1:2"}},
        {{9, 7, 5}, {"5,7,9"}},
        {{10, 11, 13, 14, 16}, {"10:11,13:14,16"}},
        {{0, 1}, {"0:1"}},
        {{4294967294, 4294967295, 1}, {"1,4294967294:4294967295"}},
    };
    for (const auto& row : rows) EXPECT_EQ(uidSets(row.uids), row.sets);
}

TEST(UidSets, NamesAMessageOnceHoweverOftenItIsGiven) {
    EXPECT_EQ(uidSets({5, 5}), Sets{"5"});
    EXPECT_EQ(uidSets({7, 5, 6, 5, 7, 6, 9, 9}), Sets{"5:7,9"});
}

/// Pieces of four characters, so five with the comma: 180 of them make 900.
Uids fourDigits(std::size_t count) {
    Uids uids;
    for (std::size_t i = 0; i < count; ++i)
        uids.push_back(static_cast<std::uint32_t>(1000 + 2 * i));
    return uids;
}

TEST(UidSets, BeginsAnotherWhereTheLimitIsMet) {
    const auto full = uidSets(fourDigits(180));
    ASSERT_EQ(full.size(), 1u);
    EXPECT_EQ(full[0].size(), 899u);

    const auto two = uidSets(fourDigits(181));
    ASSERT_EQ(two.size(), 2u);
    EXPECT_EQ(two[0], full[0]);
    EXPECT_EQ(two[1], "1360");

    // 179 such pieces leave room for three characters and their comma, but not for five.
    auto uids = fourDigits(179);
    uids.push_back(10000);
    EXPECT_EQ(uidSets(uids), (Sets{uidSets(fourDigits(179))[0], "10000"}));
}

TEST(UidSets, LoseNothingOfAWholeMailbox) {
    Uids uids;
    for (std::uint32_t uid = 1; uid < 200'000; uid += uid % 7 ? 1u : 3u) uids.push_back(uid);
    Uids named;
    for (const auto& set : uidSets({uids.rbegin(), uids.rend()})) {
        EXPECT_LE(set.size(), 899u);
        for (const auto piece : nonEmptyPieces(set, ',')) {
            const auto ends = nonEmptyPieces(piece, ':');
            const auto first = static_cast<std::uint32_t>(*parseInt64(ends.front()));
            const auto last = static_cast<std::uint32_t>(*parseInt64(ends.back()));
            for (auto uid = first; uid <= last; ++uid) named.push_back(uid);
        }
    }
    EXPECT_EQ(named, uids);
}

TEST(UidSets, AMailboxWithoutGapsIsOnePiece) {
    Uids uids(100'000);
    std::iota(uids.begin(), uids.end(), 1U);
    EXPECT_EQ(uidSets(uids), Sets{"1:100000"});
}

}  // namespace
}  // namespace brindlet
