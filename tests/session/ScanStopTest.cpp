#include <gtest/gtest.h>

#include <atomic>

#include "session/SessionFixture.h"

namespace brindlet {
namespace {

class ScanStop : public SessionTest {
  protected:
    /// Presses Stop in the very turn of the main thread in which the condition first holds, before
    /// the scan can go on.
    void stopWhen(std::function<bool()> condition) {
        stopWatch = state->subscribe([this, condition = std::move(condition)] {
            if (stopped || !condition()) return;
            stopped = true;
            state->stopScan();
        });
    }
    Subscription stopWatch;
    bool stopped = false;
};

// Odd but so: stopping within the first half of the reading ends in the words for lost access.
TEST_F(ScanStop, DuringTheFirstHalfOfReadingSaysThatTooFewWereRead) {
    addMany(600);
    open();
    // The next change after the correspondents are counted is the first run's stage.
    stopWhen([this] { return state->correspondentCount.revision() == 1; });
    state->startScan(account(), inbox());
    finishTask();
    EXPECT_TRUE(stopped);
    ASSERT_TRUE(state->scanError->has_value());
    EXPECT_EQ((*state->scanError)->rfind("Brindlet could only read 256 of 600", 0), 0u)
        << **state->scanError;
    EXPECT_TRUE(state->history.records->empty());
    EXPECT_TRUE(world.model.calls().empty());
}

TEST_F(ScanStop, LeavesTheStageUntilTheTaskNotices) {
    addMany(3);
    open();
    state->startScan(account(), inbox());
    state->stopScan();
    EXPECT_FALSE(*state->running);
    EXPECT_EQ(*state->screen, AppState::Screen::results);
    EXPECT_EQ(*state->stage, "Reading your mailbox");
    EXPECT_EQ(world.power.running(), 0);
}

TEST_F(ScanStop, BeforeAnythingWasReadSaysThatNothingCouldBe) {
    addMany(3);
    open();
    state->startScan(account(), inbox());
    state->stopScan();
    finishTask();
    EXPECT_EQ(state->scanError->value().rfind("Brindlet could only read 0 of 3", 0), 0u);
}

TEST_F(ScanStop, BeforeSortingEndsWithoutARecord) {
    addMany(3);
    open();
    stopWhen([this] { return state->correspondentCount.revision() == 1; });
    state->startScan(account(), inbox());
    finishTask();
    EXPECT_TRUE(stopped);
    EXPECT_EQ(state->scanError.get(), std::nullopt);
    EXPECT_TRUE(state->history.records->empty());
    EXPECT_EQ(state->seen.size(), 0u);
    EXPECT_TRUE(world.model.calls().empty());
    EXPECT_EQ(*state->screen, AppState::Screen::results);
}

TEST_F(ScanStop, DuringSortingRecordsWhatWasFinished) {
    addMany(40);
    open();
    state->startScan(account(), inbox());
    ASSERT_TRUE(world.mainQueue.pumpUntil([&] { return *state->done >= 8; }));
    state->stopScan();
    finishTask();
    ASSERT_EQ(state->history.records->size(), 1u);
    const auto& record = state->history.records->front();
    EXPECT_GE(record.scanned, 8);
    EXPECT_LT(record.scanned, 40);
    EXPECT_EQ(record.scanned, static_cast<std::int64_t>(state->verdicts->size()));
    EXPECT_EQ(state->seen.size(), state->verdicts->size());
    EXPECT_EQ(world.power.running(), 0);
}

// Three calls never answer; the scan ends all the same, and nothing touches what is gone.
TEST_F(ScanStop, AbandonsCallsThatNeverAnswer) {
    addMany(10);
    open();
    const auto gate = std::make_shared<doubles::ScriptedModel>();  // outlives the abandoned calls
    gate->block();
    const auto calls = std::make_shared<std::atomic<int>>(0);  // and so does this
    world.model.setScript([calls, gate](const auto&) -> std::optional<LanguageModel::Answer> {
        if ((*calls)++ == 0) return LanguageModel::Answer{{"category", "newsletterOrDigest"}};
        return gate->respond({}, {}, {}, {});
    });
    world.model.block();
    state->startScan(account(), inbox());
    ASSERT_TRUE(world.mainQueue.pumpUntil([&] { return world.model.calls().size() == 4; }));
    state->stopScan();
    world.model.release();
    finishTask();
    ASSERT_EQ(state->history.records->size(), 1u);
    EXPECT_EQ(state->history.records->front().scanned, 1);
    EXPECT_EQ(state->history.records->front().junk, 1);
    EXPECT_FALSE(*state->running);
    gate->release();
}

TEST_F(ScanStop, EndsAPauseAtOnce) {
    addMany(8);
    open();
    world.power.battery.set(true);
    state->startScan(account(), inbox());
    ASSERT_TRUE(world.mainQueue.pumpUntil([&] { return world.clock.sleeps().size() == 1; }));
    state->stopScan();
    finishTask();
    EXPECT_EQ(state->history.records->size(), 1u);
    EXPECT_EQ(world.clock.sleeps().size(), 1u) << "the clock never moved";
}

// Both records stand, and the newer scan's screen is untouched by the older one's end.
TEST_F(ScanStop, ReplacedScanStillRecordsButShowsNothing) {
    addMany(12);
    open();
    world.model.block();
    state->startScan(account(), inbox());
    ASSERT_TRUE(world.mainQueue.pumpUntil([&] { return world.model.calls().size() == 4; }));
    state->stopScan();
    const Task first = *state->scanTask();
    world.clock.advance(10);
    state->startScan(account(), inbox());
    ASSERT_TRUE(world.mainQueue.pumpUntil([&] { return world.model.calls().size() == 8; }));
    const auto started = world.clock.now();
    world.model.release();
    ASSERT_TRUE(world.mainQueue.pumpUntil([&] { return first.finished(); }));
    finishTask();
    ASSERT_EQ(state->history.records->size(), 2u);
    EXPECT_EQ(state->currentRecord->started, started);
    EXPECT_EQ(state->verdicts->size(), 12u);
    EXPECT_EQ(state->history.records->front().started, started);
}

TEST_F(ScanStop, SessionThatEndsMidwayUnwindsTheScan) {
    addMany(12);
    open();
    world.model.block();
    state->startScan(account(), inbox());
    ASSERT_TRUE(world.mainQueue.pumpUntil([&] { return world.model.calls().size() == 4; }));
    const Task task = *state->scanTask();
    state.reset();
    world.model.release();
    ASSERT_TRUE(world.mainQueue.pumpUntil([&] { return task.finished(); }));
}

TEST_F(ScanStop, LoopThatHasEndedUnwindsTheScan) {
    addMany(12);
    open();
    world.model.block();
    state->startScan(account(), inbox());
    ASSERT_TRUE(world.mainQueue.pumpUntil([&] { return world.model.calls().size() == 4; }));
    const Task task = *state->scanTask();
    world.mainQueue.end();
    world.model.release();
    task.wait();
    EXPECT_TRUE(state->history.records->empty());
}

TEST_F(ScanStop, AtEveryMomentLeavesAWholeSession) {
    addMany(20);
    open();
    for (int jobs = 0; jobs < 40; ++jobs) {
        SCOPED_TRACE(jobs);
        state->seen.clear();
        state->startScan(account(), inbox());
        const Task task = *state->scanTask();
        for (int ran = 0; ran < jobs && !task.finished();) ran += world.mainQueue.tryOne();
        state->stopScan();
        finishTask();
        EXPECT_FALSE(*state->running);
        EXPECT_EQ(*state->screen, AppState::Screen::results);
    }
}

TEST_F(ScanStop, PersistingABurstCostsOneWrite) {
    addMany(2);
    scan();
    state->approved.set({});
    state->persistSoon();
    state->approved.set({verdictOf((*state->verdicts)[0].id)->id});
    state->persistSoon();
    world.clock.waitForSleeps(2);
    world.clock.advance(0.6);
    const auto started = state->currentRecord->started;
    const auto stamped = [&] {
        state->drainWrites();
        const auto saved = state->history.readScan(started);
        return saved && (*saved)[0].approved == true && (*saved)[1].approved == false;
    };
    EXPECT_TRUE(world.mainQueue.pumpUntil(stamped));
    EXPECT_EQ(world.clock.sleeps(), (std::vector<double>{0.6, 0.6}));
}

TEST_F(ScanStop, PersistingWithoutARecordDoesNothing) {
    open();
    state->persistSoon();
    EXPECT_TRUE(world.clock.sleeps().empty());
}

}  // namespace
}  // namespace brindlet
