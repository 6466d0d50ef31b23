#include "session/MoveFixture.h"

namespace brindlet {
namespace {

class ResumeTest : public MoveTest {
  protected:
    PendingMove leave(std::vector<PendingMove::Item> items) {
        PendingMove move;
        move.account = "ann@x.example";
        move.source = "INBOX";
        move.folderLabel = "INBOX";
        move.destination = "Brindlet Junk";
        move.remaining = std::move(items);
        move.started = world.clock.now();
        state->interrupted.begin(move);
        return move;
    }
    std::int64_t left() const {
        return *state->interrupted.pending ? std::ssize((*state->interrupted.pending)->remaining)
                                           : -1;
    }
};

TEST_F(ResumeTest, WithoutASavedMoveThereIsNothingToDo) {
    showAds(1);
    state->resumeMove();
    EXPECT_FALSE(*state->moving);
    EXPECT_EQ(*state->moveError, std::nullopt);
}

TEST_F(ResumeTest, TheRestMovesAndTheSavedMoveEnds) {
    showAds(2);
    leave({{1, "1@example"}, {2, "2@example"}});
    state->resumeMove();
    EXPECT_EQ(*state->moveStage, "Picking up where it stopped");
    EXPECT_EQ(*state->moveTotal, 2);
    EXPECT_EQ(*state->screen, AppState::Screen::results);
    finishMove();
    EXPECT_EQ(*state->moveNote, "Finished - 2 more moved");
    EXPECT_EQ(left(), -1);
    EXPECT_EQ(remainingIds(), Numbers{});
    EXPECT_TRUE(state->approved->empty());
    EXPECT_EQ(seenEntry("2@example")->folder, "Brindlet Junk");
    EXPECT_EQ(state->history.records->front().moved.size(), 2u);
}

TEST_F(ResumeTest, WhatIsNotFoundStaysToDoHoweverOftenItIsTried) {
    showAds(2);
    leave({{1, "1@example"}, {2, "2@example"}});
    script(landing({"1@example"}));
    state->resumeMove();
    finishMove();
    EXPECT_EQ(*state->moveNote, "Moved 1, 1 still to go");
    script(landing({}));
    state->resumeMove();
    finishMove();
    EXPECT_EQ(*state->moveNote, "Moved 0, 1 still to go");
    EXPECT_EQ(left(), 1);
}

TEST_F(ResumeTest, AnErrorLeavesTheRestToDo) {
    showAds(2);
    leave({{1, "1@example"}, {2, "2@example"}});
    auto part = landing({"1@example"});
    part.error = "Mail is busy";
    script(part);
    state->resumeMove();
    finishMove();
    EXPECT_EQ(*state->moveError, "Mail is busy");
    EXPECT_EQ(*state->moveNote, "");
    EXPECT_EQ(left(), 1);
    EXPECT_NE(seenEntry("1@example"), nullptr) << "a resume books what moved all the same";
}

TEST_F(ResumeTest, AnErrorAfterTheLastOneEndsTheSavedMove) {
    showAds(1);
    leave({{1, "1@example"}});
    auto all = landing({"1@example"});
    all.error = "Mail is busy";
    script(all);
    state->resumeMove();
    finishMove();
    EXPECT_EQ(*state->moveError, "Mail is busy");
    EXPECT_EQ(left(), -1);
}

TEST_F(ResumeTest, AnAccountThatIsGoneIsTold) {
    showAds(1);
    leave({{1, "1@example"}});
    selectAccount("bob@x.example", {inbox()});
    state->resumeMove();
    EXPECT_EQ(*state->moveError, "Can't find ann@x.example in Mail any more.");
    EXPECT_FALSE(*state->moving);
    EXPECT_EQ(left(), 1);
}

TEST_F(ResumeTest, WithMailClosedNothingIsTouched) {
    showAds(1);
    leave({{1, "1@example"}});
    world.runningApps.running.set({});
    state->resumeMove();
    EXPECT_EQ(*state->moveError, "Mail isn't open. Open Mail, then try again.");
    EXPECT_FALSE(*state->moving);
    EXPECT_EQ(left(), 1);
    world.runningApps.running.set({"com.apple.mail"});
}

TEST_F(ResumeTest, WithoutAccountsOnePressStartsOneLoad) {
    leave({{1, "1@example"}});
    state->resumeMove();
    EXPECT_TRUE(*state->loadingAccounts);
    ASSERT_TRUE(world.mainQueue.pumpUntil([this] { return !*state->loadingAccounts; }));
    EXPECT_FALSE(state->retryResumeOnLoad);
    EXPECT_EQ(*state->moveError, "Can't find ann@x.example in Mail any more.");
    EXPECT_FALSE(*state->loadingAccounts) << "no second load";
}

TEST_F(ResumeTest, WithNothingOnScreenTheScanIsPutBackFirst) {
    showAds(2);
    leave({{1, "1@example"}});
    state->verdicts.set({});
    state->resumeMove();
    EXPECT_EQ(state->verdicts->size(), 2u);
    finishMove();
    EXPECT_EQ(remainingIds(), Numbers{2});
    EXPECT_EQ(*state->pastMove, (AppState::PastMove{"INBOX", "Brindlet Junk"}));
}

TEST_F(ResumeTest, OverAnotherScanOnlyTheIdsAreKnown) {
    addVerdict("x@x.example", "Other").messageID = "other@example";
    showRecorded();
    selectAccount("ann@x.example", {inbox()});
    leave({{71, "71@example"}});
    state->resumeMove();
    finishMove();
    EXPECT_EQ(*state->moveNote, "Finished - 1 more moved");
    EXPECT_TRUE(seenEntry("71@example")->junk);
    EXPECT_TRUE(state->history.records->front().moved.empty());
    EXPECT_EQ(*state->pastMove, std::nullopt) << "nothing of the scan on show has moved";
}

TEST_F(ResumeTest, ForgottenMeanwhileItEndsAsFinished) {
    showAds(1);
    leave({{1, "1@example"}});
    world.processes.block();
    state->resumeMove();
    state->interrupted.clear();
    world.processes.release();
    finishMove();
    EXPECT_EQ(*state->moveNote, "Finished - 1 more moved");
    EXPECT_EQ(left(), -1);
}

class PutBackTest : public MoveTest {
  protected:
    void moveAll(int count) {
        showAds(count);
        state->startMove();
        finishMove();
    }
};

TEST_F(PutBackTest, ReturnsWhatWasChosenByTheSameWay) {
    moveAll(3);
    state->putBack.set({2});
    state->putBackMoved();
    EXPECT_EQ(*state->moveStage, "Putting them back");
    EXPECT_EQ(*state->moveTotal, 1);
    EXPECT_FALSE(*state->interrupted.pending) << "a put-back is never resumed";
    finishMove();
    EXPECT_EQ(lastArguments()[1], "INBOX");
    EXPECT_EQ(lastArguments()[2], "Brindlet Junk");
    EXPECT_EQ(*state->moveNote, "Put 1 back in INBOX");
    EXPECT_EQ(remainingIds(), Numbers{2});
    EXPECT_TRUE(state->putBack->empty());
    EXPECT_FALSE(ticked(2));
    EXPECT_FALSE(seenEntry("2@example")->junk);
    EXPECT_EQ(seenEntry("2@example")->folder, "INBOX");
    settle();
}

TEST_F(PutBackTest, OnlyMovedMessagesAreChosenAndCounted) {
    showAds(3);
    script(landing({"1@example", "2@example"}));
    state->startMove();
    finishMove();
    for (const std::int64_t id : {1, 2, 3, 77}) state->togglePutBack(id);
    EXPECT_EQ(*state->putBack, (AppState::Ids{1, 2})) << "3 is still there, 77 never was";
    EXPECT_EQ(state->putBackCount(), 2);
    state->togglePutBack(1);
    EXPECT_EQ(*state->putBack, AppState::Ids{2});
    state->putBack.set({2, 3, 77});
    EXPECT_EQ(state->putBackCount(), 1) << "what an earlier scan left there";
}

TEST_F(PutBackTest, AnErrorKeepsWhatDidNotReturn) {
    moveAll(2);
    auto part = landing({"1@example"});
    part.error = "Mail is busy";
    script(part);
    state->putBack.set({1, 2});
    state->putBackMoved();
    finishMove();
    EXPECT_EQ(*state->moveError, "Mail is busy");
    EXPECT_EQ(*state->putBack, AppState::Ids{2});
    EXPECT_EQ(remainingIds(), Numbers{1});
    settle();
}

TEST_F(PutBackTest, NeedsSomethingChosenAndAMoveThatWas) {
    moveAll(1);
    state->putBackMoved();
    EXPECT_FALSE(*state->moving);
    state->putBack.set({1});
    state->pastMove.set(std::nullopt);
    state->putBackMoved();
    EXPECT_FALSE(*state->moving);
}

TEST_F(PutBackTest, TheNextStartTakesItForFiledAgain) {
    moveAll(1);
    state->putBack.set({1});
    state->putBackMoved();
    finishMove();
    settle();
    open();
    // The record still lists it as moved, and what a record says fills the list at each start.
    EXPECT_TRUE(seenEntry("1@example")->junk);
    EXPECT_EQ(seenEntry("1@example")->folder, "Brindlet Junk");
}

}  // namespace
}  // namespace brindlet
