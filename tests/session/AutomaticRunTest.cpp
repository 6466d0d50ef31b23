#include <gtest/gtest.h>

#include "session/AutomaticFixture.h"

namespace brindlet {
namespace {

using Boxes = std::vector<std::string>;
using Screen = AppState::Screen;

class AutomaticRun : public AutomaticTest {
  protected:
    /// Starts a run and lets it come to the model, whose answers wait for `release`.
    void runToTheModel(std::size_t calls) {
        world.model.block();
        state->runDue();
        awaitCalls(calls);
    }
    void awaitCalls(std::size_t calls) {
        ASSERT_TRUE(pumpUntil([&] { return world.model.calls().size() == calls; }));
    }
};

TEST_F(AutomaticRun, ScansWhatIsPickedInTheOrderOfPicking) {
    addBox("Z", 1);
    addBox("Other", 1);
    addBox("A", 2);
    for (const char* name : {"Z", "A"}) state->schedule.toggle(owner().id, name);
    world.clock.advance(77);
    runNow();
    EXPECT_EQ(scanned(), (Boxes{"Z", "A"}));
    EXPECT_EQ(state->schedule.lastRun(), world.clock.now());
    EXPECT_EQ(world.defaults.number("auto.lastRun"), world.clock.now().unix());
    EXPECT_EQ(*state->screen, Screen::results);
    EXPECT_EQ((*state->folder)->name, "A") << "the last one's findings stay on show";
    EXPECT_EQ(state->verdicts->size(), 2u);
}

TEST_F(AutomaticRun, ShowsItsScansLikeAnyOther) {
    watch("A", 1);
    watch("B", 1);
    state->navigate(Screen::rules);
    runToTheModel(1);
    EXPECT_EQ(*state->screen, Screen::scanning);
    EXPECT_TRUE(*state->running);
    world.model.release();
    finishRun();
    state->goBack();
    EXPECT_EQ(*state->screen, Screen::results) << "which the second scan has left";
    state->goBack();
    EXPECT_EQ(*state->screen, Screen::rules);
}

TEST_F(AutomaticRun, PassesOverWhatIsGoneWithoutAWord) {
    state->schedule.toggle("no such account", "A");
    state->schedule.toggle(owner().id, "Deleted");
    watch("A", 1);
    runNow();
    EXPECT_EQ(scanned(), Boxes{"A"});
    EXPECT_EQ(state->scanError.get(), std::nullopt);
    EXPECT_EQ(state->moveError.get(), std::nullopt);
    EXPECT_EQ(state->schedule.watched().size(), 3u) << "and forgets nothing";
}

TEST_F(AutomaticRun, WithAllGoneStillWaitsAWholeIntervalForTheNext) {
    addBox("A", 1);
    state->schedule.toggle(owner().id, "Deleted");
    world.clock.advance(hour);
    EXPECT_TRUE(state->schedule.isDue());
    runNow();
    EXPECT_EQ(*state->screen, Screen::welcome);
    EXPECT_EQ(state->schedule.lastRun(), world.clock.now());
    EXPECT_FALSE(state->schedule.isDue());
}

TEST_F(AutomaticRun, WithNothingNewIsARunAllTheSame) {
    watch("A", 1);
    runNow();
    world.clock.advance(hour);
    runNow();
    EXPECT_EQ(scanned(), Boxes{"A"}) << "no second record";
    EXPECT_EQ(state->schedule.lastRun(), world.clock.now());
}

TEST_F(AutomaticRun, PassesOverWhatIsPickedNoMoreWhenItsTurnComes) {
    watch("A", 1);
    watch("B", 1);
    watch("C", 1);
    runToTheModel(1);
    state->schedule.toggle(owner().id, "B");
    state->schedule.toggle(owner().id, "Late");
    addBox("Late", 1);
    world.model.release();
    finishRun();
    EXPECT_EQ(scanned(), (Boxes{"A", "C"})) << "and what was picked since waits for the next run";
}

TEST_F(AutomaticRun, ForReviewMovesNothingHoweverMuchIsTicked) {
    watch("A", 5);
    runNow();
    EXPECT_EQ(state->approved->size(), 5u);
    EXPECT_EQ(moves(), 0u);
    EXPECT_FALSE(*state->interrupted.pending);
}

TEST_F(AutomaticRun, IsNotBegunTwiceNorBesideAScanOrAMove) {
    watch("A", 1);
    state->seen.setSkipSeen(false);  // a second run would find the same again
    runToTheModel(1);
    EXPECT_TRUE(state->automaticRunning());
    state->runDue();
    world.model.release();
    finishRun();
    world.mainQueue.pump();
    EXPECT_EQ(scanned(), Boxes{"A"});

    state->running.set(true);
    state->runDue();
    EXPECT_FALSE(state->automaticRunning());
    state->running.set(false);
    state->moving.set(true);
    state->runDue();
    EXPECT_FALSE(state->automaticRunning());
    state->moving.set(false);
    state->schedule.setWatched({});
    state->runDue();
    EXPECT_FALSE(state->automaticRunning());
}

// Its switch is that of the timer, not of the button.
TEST_F(AutomaticRun, ByHandNeedsNoScheduleThatIsOn) {
    watch("A", 1);
    state->schedule.setEnabled(false);
    runNow();
    EXPECT_EQ(scanned(), Boxes{"A"});
}

// Stopping

TEST_F(AutomaticRun, StopEndsOneMailboxsScanAndTheRunGoesOn) {
    watch("A", 6);
    watch("B", 1);
    runToTheModel(4);
    state->stopScan();
    EXPECT_FALSE(*state->running);
    EXPECT_TRUE(state->automaticRunning());
    world.model.release();
    finishRun();
    EXPECT_EQ(scanned(), (Boxes{"A", "B"}));
    EXPECT_LT(state->history.records->back().scanned, 6);
    EXPECT_EQ((*state->folder)->name, "B");
}

TEST_F(AutomaticRun, CancelledGoesNoFurtherAndStillCounts) {
    watch("A", 1);
    watch("B", 1);
    runToTheModel(1);
    state->automaticTask()->cancel();
    world.clock.advance(5);
    world.model.release();
    finishRun();
    EXPECT_EQ(scanned(), Boxes{"A"}) << "the scan itself was not cancelled";
    EXPECT_EQ(state->schedule.lastRun(), world.clock.now());
}

TEST_F(AutomaticRun, UnwindsWithTheSession) {
    watch("A", 6);
    runToTheModel(4);
    const Task run = *state->automaticTask();
    state.reset();
    world.model.release();
    EXPECT_TRUE(pumpUntil([&] { return run.finished(); }));
}

TEST_F(AutomaticRun, UnwindsWithTheLoop) {
    watch("A", 6);
    runToTheModel(4);
    world.mainQueue.end();
    world.model.release();
    state->automaticTask()->wait();
    EXPECT_TRUE(scanned().empty());
}

TEST_F(AutomaticRun, AfterTheSafetyStopGoesOnWithTheNext) {
    const auto bad = watch("A", 0);
    mailbox = bad.id;
    addUnreadable("shop@x.example", "Sale");
    addUnreadable("shop@y.example", "Sale");
    setMode(SortMode::automatic);
    // Ticks that an earlier scan left.
    state->approved.set({1, 2, 3});
    runNow();
    ASSERT_TRUE(state->scanError->has_value());
    EXPECT_EQ(moves(), 0u) << "there is nothing that the ticks would mean";
    EXPECT_EQ(state->approved->size(), 3u);

    watch("B", 1);
    state->approved.set({});
    runNow();
    EXPECT_EQ(scanned(), Boxes{"B"});
    EXPECT_EQ(state->scanError.get(), std::nullopt);
    EXPECT_EQ(moves(), 1u);
}

// Power

TEST_F(AutomaticRun, BeginsOnBatteryAndPausesAtItsFirstSorting) {
    watch("A", 6);
    world.power.battery.set(true);
    state->runDue();
    ASSERT_TRUE(pumpUntil([&] { return world.clock.sleeps() == std::vector<double>{3}; }));
    EXPECT_TRUE(state->stage->starts_with("Paused - on battery."));
    EXPECT_TRUE(state->automaticRunning());
    world.power.battery.set(false);
    world.clock.advance(3);
    finishRun();
    EXPECT_EQ(scanned(), Boxes{"A"});
    EXPECT_EQ(state->history.records->front().scanned, 6);
}

TEST_F(AutomaticRun, OnBatteryDoesNotPauseWhereThatIsOff) {
    watch("A", 6);
    world.power.battery.set(true);
    state->schedule.setPauseOnBattery(false);
    runNow();
    EXPECT_EQ(scanned(), Boxes{"A"});
    EXPECT_TRUE(world.clock.sleeps().empty());
}

// The person at the same time

TEST_F(AutomaticRun, WaitsForAMoveThatThePersonHasBegun) {
    watch("A", 2);
    watch("B", 1);
    runToTheModel(2);
    world.processes.block();
    state->stopScan();
    world.model.release();
    ASSERT_TRUE(pumpUntil([&] { return state->currentRecord.has_value(); }));
    state->startMove();
    ASSERT_TRUE(*state->moving);
    world.processes.waitForLaunches(1);
    // The run asks whether there is something to move, and then for its turn.
    runJobs(2);
    EXPECT_FALSE(*state->running);
    EXPECT_EQ((*state->folder)->name, "A");
    world.processes.release();
    finishMove();
    finishRun();
    EXPECT_EQ(scanned(), (Boxes{"A", "B"}));
}

TEST_F(AutomaticRun, DoesNotMoveWhatAnotherScanThanItsOwnShows) {
    watch("A", 6);
    const auto other = addBox("Other", 6);
    setMode(SortMode::automatic);
    runToTheModel(4);
    state->stopScan();
    state->startScan(owner(), other);
    awaitCalls(8);
    // Half a result, and ticks left by whatever was on show before.
    addVerdict("shop@x.example", "Sale");
    state->verdicts.set(VerdictList(list));
    state->approved.set({list[0].id});
    state->schedule.setEnabled(false);
    world.model.release();
    finishRun();
    finishTask();
    EXPECT_FALSE(state->moveTask());
}

}  // namespace
}  // namespace brindlet
