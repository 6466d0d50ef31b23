#include "screens/results/MessageRows.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <random>

#include "classify/Verdict.h"

namespace brindlet::testing {
namespace {

using screens::MessageRows;
using screens::SenderGroups;

/// Sixty messages of at most eight senders, some of whom have no address.
VerdictList randomList(std::mt19937& random) {
    std::vector<Verdict> verdicts(60);
    for (std::size_t i = 0; i < verdicts.size(); ++i) {
        const auto sender = std::to_string(random() % 6);
        verdicts[i].id = static_cast<std::int64_t>(i);
        verdicts[i].sender = random() % 3 == 0 ? "Team " + sender : "ann@" + sender + ".example";
    }
    return VerdictList(std::move(verdicts));
}

std::vector<std::uint32_t> someOf(std::uint32_t begin, std::uint32_t end, std::mt19937& random) {
    std::vector<std::uint32_t> chosen;
    for (auto position = begin; position < end; ++position)
        if (random() % 2 == 0) chosen.push_back(position);
    return chosen;
}

TEST(MessageRows, EachRowIsFoundWhereItStands) {
    for (unsigned seed = 0; seed < 200; ++seed) {
        SCOPED_TRACE(seed);
        std::mt19937 random(seed);
        const auto verdicts = randomList(random);
        const VerdictIndex index(verdicts);
        const auto open = someOf(0, 40, random);
        const auto kept = someOf(40, 60, random);
        const bool heading = random() % 2 == 0;
        const bool grouped = random() % 2 == 0;

        MessageRows rows;
        std::size_t expected = open.size();
        if (grouped) {
            rows.group(SenderGroups(verdicts, index, open), kept, heading);
            expected = rows.senders().size();
            if (expected > 0 && random() % 4 > 0) {
                rows.open(random() % expected);
                expected += rows.senders().members(*rows.openSender()).size();
            }
        } else {
            auto all = open;
            all.insert(all.end(), kept.begin(), kept.end());
            rows.list(all, open.size(), heading);
        }
        ASSERT_EQ(rows.size(), expected + kept.size() + (heading && !kept.empty() ? 1 : 0));

        for (std::size_t i = 0; i < rows.size(); ++i) {
            const auto row = rows.at(i);
            if (row.kind == MessageRows::Kind::message)
                EXPECT_EQ(rows.rowOfMessage(row.at), i);
            else if (row.kind == MessageRows::Kind::sender)
                EXPECT_EQ(rows.rowOfSender(row.at), i);
            else
                EXPECT_EQ(i, expected) << "the heading stands before what was kept";
        }
        EXPECT_FALSE(rows.rowOfMessage(1000));
    }
}

TEST(MessageRows, AMessageBelowAClosedSenderHasNoRow) {
    std::vector<Verdict> verdicts(1);
    verdicts[0].sender = "ann@a.example";
    const VerdictList list(verdicts);
    MessageRows rows;
    rows.group(SenderGroups(list, VerdictIndex(list), std::vector<std::uint32_t>{0}), {}, true);
    EXPECT_FALSE(rows.rowOfMessage(0));
    rows.open(0);
    EXPECT_EQ(rows.rowOfMessage(0), 1U);
    EXPECT_TRUE(rows.at(1).indented);
}

TEST(SenderGroups, HoldEachMessageOnceLargestGroupFirst) {
    for (unsigned seed = 0; seed < 200; ++seed) {
        SCOPED_TRACE(seed);
        std::mt19937 random(seed);
        const auto verdicts = randomList(random);
        const VerdictIndex index(verdicts);
        const auto positions = someOf(0, 60, random);
        const SenderGroups groups(verdicts, index, positions);

        std::vector<std::uint32_t> met;
        for (std::size_t group = 0; group < groups.size(); ++group) {
            const auto members = groups.members(group);
            for (const auto position : members) {
                EXPECT_EQ(groups.key(group), SenderGroups::keyOf(verdicts, index, position));
                met.push_back(position);
            }
            EXPECT_TRUE(std::is_sorted(members.begin(), members.end()));
            EXPECT_EQ(groups.find(groups.key(group)), group);
            if (group == 0) continue;
            const auto before = groups.members(group - 1);
            EXPECT_TRUE(before.size() > members.size() ||
                        (before.size() == members.size() && before[0] < members[0]));
        }
        std::sort(met.begin(), met.end());
        EXPECT_EQ(met, positions);
        EXPECT_FALSE(groups.find("nobody"));
    }
}

}  // namespace
}  // namespace brindlet::testing
