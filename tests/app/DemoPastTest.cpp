#include "app/demo/DemoPast.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <set>

#include "app/demo/DemoMail.h"
#include "doubles/Doubles.h"
#include "stores/Calibration.h"
#include "stores/History.h"
#include "stores/Interrupted.h"
#include "stores/Rules.h"
#include "stores/Schedule.h"
#include "stores/Seen.h"

namespace brindlet::demo {
namespace {

class DemoPastTest : public testing::Test {
  protected:
    DemoPastTest() : mail_(makeDemoMail(world_.directories.home(), 2'000)) {
        EXPECT_EQ(mail_.problem, "");
        world_.clock.set(Date::fromUnix(static_cast<double>(mail_.facts.newest)));
        givePast(world_.services(), mail_.facts);
    }

    /// Where a message lies now, by its Message-ID: all folders that list it.
    std::set<std::string> foldersWith(const std::string& messageID) const {
        std::set<std::string> found;
        std::map<std::int64_t, std::string> ids;
        for (const auto& message : mail_.facts.messages)
            if (message.messageId) ids[message.id] = *message.messageId;
        for (const auto& account : mail_.facts.accounts)
            for (const auto& folder : account.folders)
                for (const auto row : folder.messages)
                    if (ids[row] == messageID) found.insert(folder.name);
        return found;
    }

    doubles::World world_;
    DemoMail mail_;
};

TEST_F(DemoPastTest, WhatScansHaveMovedLiesWhereTheySay) {
    const History history(world_.services());
    ASSERT_GT(history.totalMoved(), 10);
    for (const auto& record : *history.records)
        for (const auto& moved : record.moved)
            EXPECT_TRUE(foldersWith(moved.messageID).contains(record.movedTo.value_or("")))
                << record.folder << ' ' << moved.subject;
}

TEST_F(DemoPastTest, TheRestOfTheInterruptedMoveIsStillInItsFolder) {
    const Interrupted interrupted(world_.services());
    ASSERT_TRUE(*interrupted.pending);
    const auto& move = **interrupted.pending;
    EXPECT_GT(move.done, 0);
    ASSERT_GT(move.remaining.size(), 20u);
    for (const auto& item : move.remaining)
        EXPECT_TRUE(foldersWith(item.messageID).contains(move.source)) << item.messageID;
}

TEST_F(DemoPastTest, OneScanHasLostItsFileAndOneInTheBinHasADayLeft) {
    const History history(world_.services());
    EXPECT_EQ(
        std::ranges::count_if(*history.records,
                              [&](const auto& each) { return !history.hasScan(each.started); }),
        1);
    ASSERT_EQ(history.deleted->size(), 2u);
    EXPECT_TRUE(std::ranges::any_of(*history.deleted, [&](const auto& each) {
        const double left = 30 - (world_.clock.now() - *each.deletedAt) / 86'400;
        return left >= 1 && left < 2;
    }));
}

TEST_F(DemoPastTest, ThereAreRulesOfEveryKindAndFlipsBothWays) {
    const Rules rules(world_.services());
    EXPECT_EQ(rules.held().size(), 1u);
    EXPECT_GE(rules.live().size(), 3u);
    EXPECT_GE(rules.session->size(), 3u);
    std::set<Rule::Verdict> verdicts;
    for (const auto& row : Calibration(world_.services()).rows()) verdicts.insert(row.verdict);
    EXPECT_EQ(verdicts.size(), 2u);
}

TEST_F(DemoPastTest, TheScheduleIsOnButNotDueAndWatchesOneMailboxThatIsGone) {
    const Schedule schedule(world_.services());
    EXPECT_TRUE(schedule.enabled());
    EXPECT_FALSE(schedule.isDue());
    const auto stands = [&](const WatchedMailbox& watched) {
        return std::ranges::any_of(mail_.facts.accounts, [&](const auto& account) {
            return account.id == watched.account &&
                   std::ranges::any_of(account.folders, [&](const auto& folder) {
                       return folder.name == watched.folder;
                   });
        });
    };
    EXPECT_EQ(schedule.watched().size(), 3u);
    EXPECT_EQ(std::ranges::count_if(schedule.watched(), stands), 2);
}

TEST_F(DemoPastTest, WhatWasMovedCountsAsSortedWhereItLies) {
    const History history(world_.services());
    const Seen seen(world_.services());
    for (const auto& record : *history.records)
        for (const auto& moved : record.moved) {
            const auto entry = seen.find(moved.messageID);
            ASSERT_TRUE(entry) << moved.subject;
            EXPECT_TRUE(entry->junk);
            EXPECT_EQ(entry->folder, record.movedTo);
        }
}

}  // namespace
}  // namespace brindlet::demo
