#include <gtest/gtest.h>

#include "base/Files.h"
#include "session/MoveFixture.h"

namespace brindlet {
namespace {

/// Scans whose end moves what they propose.
class AutomaticMove : public MoveTest {
  protected:
    AutomaticMove() {
        state->schedule.setEnabled(true);
        state->schedule.setMode(SortMode::automatic);
        answerBySubject({{"Sale", "advertisingOrPromotion"}});
    }
    void start(const MailFolder& folder) {
        MailAccount from = account();
        from.address = "ann@x.example";
        from.folders = {folder};
        state->startScan(from, folder);
    }
    /// How often the mail program was asked to move something.
    std::size_t moves() const { return world.processes.launches().size(); }
    std::string askedToMove() const { return files::read(lastArguments().at(3)).value_or(""); }
};

TEST_F(AutomaticMove, TakesWhatTheScanProposes) {
    add("shop@x.example", "Sale of the week");
    add("bob@y.example", "Lunch on Tuesday?");
    start(inbox());
    finishTask();
    finishMove();
    EXPECT_EQ(moves(), 1u);
    EXPECT_EQ(*state->moveNote, "Moved 1 into Brindlet Junk");
    EXPECT_TRUE(askedToMove().ends_with("\tm1@example")) << askedToMove();
    EXPECT_EQ(askedToMove().find('\n'), std::string::npos) << "nothing else";
}

TEST_F(AutomaticMove, ComesNeitherForReviewNorWithTheScheduleOff) {
    add("shop@x.example", "Sale of the week");
    state->schedule.setMode(SortMode::review);
    start(inbox());
    finishTask();
    state->schedule.setMode(SortMode::automatic);
    state->schedule.setEnabled(false);
    state->seen.clear();
    start(inbox());
    finishTask();
    EXPECT_EQ(moves(), 0u);
    EXPECT_FALSE(*state->moving);
    EXPECT_EQ(state->approved->size(), 1u);
}

TEST_F(AutomaticMove, WithNothingProposedMovesNothing) {
    add("bob@y.example", "Lunch on Tuesday?");
    start(inbox());
    finishTask();
    EXPECT_EQ(moves(), 0u);
    EXPECT_FALSE(*state->interrupted.pending);
}

// Stopped with its calls of the model still out, and replaced by a scan of another mailbox.
TEST_F(AutomaticMove, IsThePresentScansAlone) {
    for (int i = 0; i < 6; ++i) add("shop" + std::to_string(i) + "@x.example", "Sale");
    const auto first = inbox();
    mailbox = home.addMailbox("Archive");
    MailFolder second = inbox();
    second.name = "Archive";
    second.role = MailFolder::Role::archive;
    for (int i = 0; i < 6; ++i) add("other" + std::to_string(i) + "@y.example", "Sale");

    world.model.block();
    start(first);
    ASSERT_TRUE(world.mainQueue.pumpUntil([&] { return world.model.calls().size() == 4; }));
    state->stopScan();
    const Task stopped = *state->scanTask();
    world.clock.advance(10);
    start(second);
    ASSERT_TRUE(world.mainQueue.pumpUntil([&] { return world.model.calls().size() == 8; }));
    world.model.release();
    ASSERT_TRUE(world.mainQueue.pumpUntil([&] { return stopped.finished(); }));
    finishTask();
    finishMove();

    EXPECT_EQ(state->history.records->size(), 2u);
    EXPECT_EQ(state->currentRecord->folder, "Archive");
    EXPECT_EQ(moves(), 1u);
    EXPECT_EQ(lastArguments().at(2), "Archive");
    for (int i = 1; i <= 6; ++i)
        EXPECT_EQ(askedToMove().find("\tm" + std::to_string(i) + "@"), std::string::npos)
            << askedToMove();
    EXPECT_NE(askedToMove().find("\tm7@"), std::string::npos) << askedToMove();
}

}  // namespace
}  // namespace brindlet
