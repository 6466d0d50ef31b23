#include <gtest/gtest.h>

#include "session/AutomaticFixture.h"

namespace brindlet {
namespace {

using Boxes = std::vector<std::string>;

class AutomaticTimer : public AutomaticTest {};

TEST_F(AutomaticTimer, LooksEvery300Seconds) {
    watch("A", 1);
    startTimer();
    for (int looks = 1; looks < 12; ++looks) {
        pass();
        EXPECT_FALSE(state->automaticRunning()) << looks;
    }
    pass();
    EXPECT_TRUE(state->automaticRunning()) << "an hour after it was turned on";
    finishRun();
    EXPECT_EQ(scanned(), Boxes{"A"});
    EXPECT_EQ(state->schedule.lastRun(), world.clock.now());
}

TEST_F(AutomaticTimer, StartedAgainTakesThePlaceOfTheFirst) {
    watch("A", 1);
    startTimer();
    startTimer();
    for (int looks = 0; looks < 20; ++looks) pass();
    EXPECT_EQ(timerSleeps(), 22) << "of the two only one has looked and gone back to sleep";
}

TEST_F(AutomaticTimer, RunsOnceAWholeIntervalLater) {
    const struct {
        Cadence cadence;
        double seconds;
    } rows[] = {{Cadence::hourly, hour},
                {Cadence::every6h, 6 * hour},
                {Cadence::daily, 24 * hour},
                {Cadence::weekly, 7 * 24 * hour}};
    watch("A", 1);
    startTimer();
    std::size_t runs = 0;
    for (const auto& row : rows) {
        SCOPED_TRACE(rawValue(row.cadence));
        state->schedule.setCadence(row.cadence);
        state->schedule.setLastRun(world.clock.now());
        state->seen.clear();
        pass(row.seconds - 1);
        EXPECT_FALSE(state->automaticRunning());
        pass();
        ASSERT_TRUE(state->automaticRunning());
        finishRun();
        pass();
        EXPECT_FALSE(state->automaticRunning());
        EXPECT_EQ(scanned().size(), ++runs);
    }
}

TEST_F(AutomaticTimer, AfterADaysSleepOneRunHappensAtTheNextLook) {
    watch("A", 1);
    startTimer();
    world.clock.advance(100);
    pass(24 * hour);
    ASSERT_TRUE(state->automaticRunning());
    finishRun();
    for (int looks = 0; looks < 11; ++looks) {
        pass();
        EXPECT_FALSE(state->automaticRunning()) << "what was missed is not made up for";
    }
    EXPECT_EQ(scanned(), Boxes{"A"});
}

TEST_F(AutomaticTimer, AScanAtADueTimePutsTheRunOffByAWholeInterval) {
    const auto box = watch("A", 1);
    startTimer();
    pass(hour - 300);
    world.model.block();
    state->startScan(owner(), box);
    ASSERT_TRUE(pumpUntil([&] { return world.model.calls().size() == 1; }));
    pass();
    pass();
    EXPECT_FALSE(state->automaticRunning());
    world.model.release();
    finishTask();
    const auto ended = world.clock.now();
    EXPECT_EQ(state->schedule.lastRun(), ended) << "a scan by hand counts as a run";
    for (int looks = 1; looks < 12; ++looks) {
        pass();
        EXPECT_FALSE(state->automaticRunning()) << looks;
    }
    pass();
    EXPECT_TRUE(state->automaticRunning());
    EXPECT_EQ(world.clock.now() - ended, hour);
    finishRun();
}

TEST_F(AutomaticTimer, AScanThatSortedNothingPutsNoRunOff) {
    const auto box = addBox("A", 0);
    state->startScan(owner(), box);
    finishTask();
    EXPECT_EQ(state->schedule.lastRun(), std::nullopt) << "an empty one";
    mailbox = box.id;
    addUnreadable("shop@x.example", "Sale");
    state->startScan(owner(), box);
    finishTask();
    EXPECT_TRUE(state->scanError->has_value());
    EXPECT_EQ(state->schedule.lastRun(), std::nullopt) << "one that could not be read";
    addJunk(box, 1);
    state->startScan(owner(), box);
    finishTask();
    EXPECT_EQ(state->schedule.lastRun(), world.clock.now());
}

TEST_F(AutomaticTimer, AMoveAtADueTimePutsTheRunOffToTheNextLook) {
    const auto box = watch("A", 1);
    state->startScan(owner(), box);
    finishTask();
    startTimer();
    world.processes.block();
    state->startMove();
    pass(hour);
    EXPECT_TRUE(*state->moving);
    EXPECT_FALSE(state->automaticRunning());
    world.processes.release();
    finishMove();
    pass();
    EXPECT_TRUE(state->automaticRunning());
    finishRun();
}

TEST_F(AutomaticTimer, ARunPausedOnBatteryIsOneRunHoweverLongItLasts) {
    watch("A", 6);
    world.power.battery.set(true);
    startTimer();
    pass(hour);
    ASSERT_TRUE(state->automaticRunning());
    ASSERT_TRUE(pumpUntil([&] { return state->stage->starts_with("Paused - on battery."); }));
    for (int looks = 0; looks < 24; ++looks) pass();
    EXPECT_TRUE(state->automaticRunning()) << "for two hours";
    EXPECT_TRUE(scanned().empty());
    world.power.battery.set(false);
    ASSERT_TRUE(pumpUntil([&] {
        world.clock.advance(3);
        return !state->automaticRunning();
    }));
    finishRun();
    EXPECT_EQ(scanned(), Boxes{"A"});
    EXPECT_FALSE(state->schedule.isDue()) << "it counts from its end";
}

TEST_F(AutomaticTimer, RunsNothingWithNothingPickedOrTheScheduleOff) {
    addBox("A", 1);
    startTimer();
    pass(2 * hour);
    EXPECT_FALSE(state->automaticTask()) << "nothing is picked";
    state->schedule.toggle(owner().id, "A");
    state->schedule.setEnabled(false);
    pass(2 * hour);
    EXPECT_FALSE(state->automaticTask());
    EXPECT_TRUE(scanned().empty());
}

// What the timer finds is what stands at that moment.
TEST_F(AutomaticTimer, NeedsNoNewStartForNewSettings) {
    watch("A", 1);
    state->schedule.setCadence(Cadence::weekly);
    startTimer();
    pass(2 * hour);
    EXPECT_FALSE(state->automaticRunning());
    state->schedule.setCadence(Cadence::hourly);
    pass();
    EXPECT_TRUE(state->automaticRunning());
    finishRun();
}

/// One day of a machine, five minutes at a time: mail comes every half an hour.
class AutomaticDay : public AutomaticTest {
  protected:
    /// From the first minute of one hour of the day to that of another.
    void live(int from, int to) {
        for (int look = from * 12; look < to * 12; ++look) {
            if (look % 6 == 0) {
                addJunk(inbox_, 1);
                addJunk(lists_, 1);
            }
            pass();
            if (state->automaticRunning()) {
                ++runs_;
                finishRun();
            }
        }
    }
    /// The lid is shut; the mail of those hours comes when it opens.
    void sleep(int from, int to) {
        pass((to - from) * hour);
        if (state->automaticRunning()) {
            ++runs_;
            finishRun();
        }
    }
    std::int64_t filed() const { return state->history.totalMoved(); }

    const MailFolder inbox_ = watch("INBOX", 0, MailFolder::Role::inbox);
    const MailFolder lists_ = watch("Lists", 0);
    int runs_ = 0;
};

TEST_F(AutomaticDay, ForReviewFindsAndMovesNothing) {
    startTimer();
    live(0, 24);
    EXPECT_EQ(runs_, 24) << "one an hour";
    EXPECT_EQ(scanned().size(), 48u) << "of two mailboxes each";
    EXPECT_EQ(filed(), 0);
    EXPECT_EQ(moves(), 0u);
    std::int64_t found = 0;
    for (const auto& record : *state->history.records) found += record.junk;
    EXPECT_EQ(found, 96) << "each message once";
}

TEST_F(AutomaticDay, MovesEverythingItFindsWhenTold) {
    setMode(SortMode::automatic);
    startTimer();
    live(0, 24);
    EXPECT_EQ(runs_, 24);
    EXPECT_EQ(moves(), 48u);
    EXPECT_EQ(filed(), 96);
    EXPECT_FALSE(*state->interrupted.pending);
}

TEST_F(AutomaticDay, GoesOnThroughSleepAndAMailboxThatVanishes) {
    setMode(SortMode::automatic);
    startTimer();
    live(0, 8);
    EXPECT_EQ(runs_, 8);
    sleep(8, 17);
    EXPECT_EQ(runs_, 9) << "nine hours missed, one run made";
    EXPECT_EQ(scanned().size(), 16u) << "which found nothing new";
    state->accounts.mutate([](auto& accounts) { accounts.front().folders.pop_back(); });
    live(17, 24);
    EXPECT_EQ(runs_, 16);
    EXPECT_EQ(scanned().size(), 23u) << "the inbox alone";
    EXPECT_EQ(filed(), 46);
    state->schedule.setEnabled(false);
    live(0, 2);
    EXPECT_EQ(runs_, 16);
}

}  // namespace
}  // namespace brindlet
