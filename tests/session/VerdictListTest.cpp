#include "session/VerdictList.h"

#include <gtest/gtest.h>

namespace brindlet {
namespace {

Verdict verdict(std::int64_t id, bool isJunk = false, bool vetoed = false) {
    Verdict verdict;
    verdict.id = id;
    verdict.subject = "subject " + std::to_string(id);
    verdict.isJunk = isJunk;
    verdict.vetoed = vetoed;
    return verdict;
}

std::vector<std::int64_t> ids(const VerdictList& list) {
    std::vector<std::int64_t> ids;
    for (const auto& each : list) ids.push_back(each.id);
    return ids;
}

TEST(VerdictList, FinishedListKeepsItsOrder) {
    const VerdictList list({verdict(7), verdict(3, true), verdict(5, false, true)});
    EXPECT_EQ(ids(list), (std::vector<std::int64_t>{7, 3, 5}));
    EXPECT_EQ(list.junkCount(), 1);
    EXPECT_EQ(list.vetoedCount(), 1);
}

TEST(VerdictList, EmptyListHasNothing) {
    const VerdictList list;
    EXPECT_TRUE(list.empty());
    EXPECT_EQ(ids(list), std::vector<std::int64_t>{});
}

TEST(VerdictList, LoggedOnesFollowByAscendingId) {
    const VerdictList before({verdict(90), verdict(10, true)});
    const auto log = std::make_shared<VerdictLog>();
    for (const auto id : {50, 20, 70}) log->append(verdict(id, id == 20));
    const VerdictList list(before, log);
    EXPECT_EQ(ids(list), (std::vector<std::int64_t>{90, 10, 20, 50, 70}));
    EXPECT_EQ(list.junkCount(), 2);
}

TEST(VerdictList, StaysAsItWasWhileTheLogGrows) {
    const auto log = std::make_shared<VerdictLog>();
    std::vector<VerdictList> published;
    for (std::int64_t i = 0; i < 1000; ++i) {
        log->append(verdict(1000 - i));
        published.emplace_back(VerdictList(), log);
    }
    for (const std::size_t count : {1u, 255u, 256u, 257u, 512u, 513u, 1000u}) {
        const auto& list = published[count - 1];
        ASSERT_EQ(list.size(), count);
        for (std::size_t i = 0; i < count; ++i)
            ASSERT_EQ(list[i].id, static_cast<std::int64_t>(1001 - count + i)) << count;
    }
}

TEST(VerdictList, LatestOfTheLogStaysWhereItIs) {
    VerdictLog log;
    log.append(verdict(1));
    const Verdict* first = &log.last();
    for (std::int64_t i = 2; i < 2000; ++i) log.append(verdict(i));
    EXPECT_EQ(first->id, 1);
    EXPECT_EQ(log.last().id, 1999);
}

}  // namespace
}  // namespace brindlet
