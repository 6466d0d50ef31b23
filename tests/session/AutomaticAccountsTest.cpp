#include <gtest/gtest.h>

#include "session/AutomaticFixture.h"

namespace brindlet {
namespace {

using Boxes = std::vector<std::string>;

/// A run in a session that has not asked for the accounts yet.
class AutomaticAccounts : public AutomaticTest {
  protected:
    AutomaticAccounts() {
        watch("A", 1);
        other_ = addBox("Other", 6);
        ann_ = owner();
        world.clock.advance(hour);
        state->accounts.set({});
    }
    /// From now on the mail program takes its time to tell its accounts.
    void holdTheLoad() { world.processes.block(); }
    void awaitPolls(int count) {
        ASSERT_TRUE(pumpUntil([&] { return std::ssize(world.clock.sleeps()) >= count; }));
    }
    void releaseTheLoad() {
        world.processes.release();
        ASSERT_TRUE(pumpUntil([&] { return !*state->loadingAccounts; }));
    }
    /// Lets the run come to its end, through any polls that are left.
    void finishWaitingRun() {
        ASSERT_TRUE(pumpUntil([&] {
            world.clock.advance(0.08);
            return !state->automaticRunning();
        }));
        finishRun();
    }
    /// Whether this is still the latest run.
    bool isLatest(const Task& run) const {
        run.cancel();
        return state->automaticTask()->cancelled();
    }

    MailFolder other_;
    MailAccount ann_;
};

TEST_F(AutomaticAccounts, AreLoadedFirst) {
    holdTheLoad();
    state->runDue();
    awaitPolls(1);
    EXPECT_TRUE(*state->loadingAccounts);
    EXPECT_FALSE(*state->running);
    world.clock.advance(0.08);
    awaitPolls(2);
    EXPECT_EQ(world.clock.sleeps(), (std::vector<double>{0.08, 0.08}));
    releaseTheLoad();
    finishWaitingRun();
    EXPECT_EQ(scanned(), Boxes{"A"});
}

TEST_F(AutomaticAccounts, AskedForAreNotAskedForAgain) {
    holdTheLoad();
    state->loadAccounts(true);
    world.processes.waitForLaunches(1);
    state->runDue();
    awaitPolls(1);
    releaseTheLoad();
    finishWaitingRun();
    EXPECT_EQ(scanned(), Boxes{"A"});
    EXPECT_EQ(moves(), 2u) << "the two listings of one load";
}

TEST_F(AutomaticAccounts, ThatComeSlowlyGiveOneRunHoweverOftenItIsPressed) {
    holdTheLoad();
    state->runDue();
    EXPECT_TRUE(state->automaticRunning()) << "at once";
    const Task run = *state->automaticTask();
    state->runDue();
    awaitPolls(1);
    EXPECT_FALSE(*state->running);
    EXPECT_FALSE(*state->moving);
    state->runDue();
    releaseTheLoad();
    finishWaitingRun();
    EXPECT_TRUE(isLatest(run));
    EXPECT_EQ(scanned(), Boxes{"A"});
}

TEST_F(AutomaticAccounts, ThatComeSlowlyGiveOneRunWhenTheTimerLooksMeanwhile) {
    startTimer();
    holdTheLoad();
    state->runDue();
    ASSERT_TRUE(pumpUntil([&] { return world.clock.sleeps().size() >= 2; }));
    ASSERT_TRUE(state->schedule.isDue());
    const Task run = *state->automaticTask();
    pass();
    pass();
    releaseTheLoad();
    finishWaitingRun();
    EXPECT_TRUE(isLatest(run));
    EXPECT_EQ(scanned(), Boxes{"A"});
}

TEST_F(AutomaticAccounts, AWaitThatIsCancelledEndsWithoutThem) {
    holdTheLoad();
    state->runDue();
    awaitPolls(1);
    state->automaticTask()->cancel();
    finishRun();
    EXPECT_TRUE(*state->loadingAccounts);
    EXPECT_TRUE(scanned().empty());
    EXPECT_EQ(state->schedule.lastRun(), world.clock.now()) << "a run all the same";
    releaseTheLoad();
}

TEST_F(AutomaticAccounts, AScanBegunByHandMeanwhileIsWaitedForAndNotReplaced) {
    holdTheLoad();
    state->runDue();
    awaitPolls(1);
    world.model.block();
    state->startScan(ann_, other_);
    ASSERT_TRUE(pumpUntil([&] { return world.model.calls().size() == 4; }));
    releaseTheLoad();
    world.clock.advance(0.08);
    // The run sees that the accounts are there, what is picked, and that it is not its turn.
    runJobs(3);
    EXPECT_EQ((*state->folder)->name, "Other");
    world.model.release();
    finishRun();
    EXPECT_EQ(scanned(), (Boxes{"Other", "A"}));
    EXPECT_EQ(state->history.records->back().scanned, 6);
}

TEST_F(AutomaticAccounts, ThatCannotBeReadMakeARunOfNothing) {
    state->accounts.set({});
    state->schedule.setWatched({{"elsewhere", "INBOX"}});
    state->runDue();
    finishWaitingRun();
    EXPECT_TRUE(scanned().empty());
    EXPECT_TRUE(state->schedule.lastRun().has_value());
}

TEST_F(AutomaticAccounts, TheWaitUnwindsWithTheSession) {
    holdTheLoad();
    state->runDue();
    awaitPolls(1);
    const Task run = *state->automaticTask();
    state.reset();
    world.clock.advance(0.08);
    EXPECT_TRUE(pumpUntil([&] { return run.finished(); }));
}

}  // namespace
}  // namespace brindlet
