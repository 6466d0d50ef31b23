#include "base/Files.h"
#include "session/MoveFixture.h"

namespace brindlet {
namespace {

std::vector<std::string> leftToMove(const AppState& state) {
    std::vector<std::string> ids;
    if (*state.interrupted.pending)
        for (const auto& item : (*state.interrupted.pending)->remaining)
            ids.push_back(item.messageID);
    return ids;
}

TEST_F(MoveTest, WithNothingTickedThereIsNothingToDo) {
    showAds(2);
    state->approved.set({});
    state->startMove();
    EXPECT_FALSE(*state->moving);
    EXPECT_FALSE(*state->interrupted.pending);
    EXPECT_FALSE(files::exists(world.directories.store() + "/pending-move.json"));
}

TEST_F(MoveTest, WhatIsLeftIsOnRecordBeforeTheFirstMessageMoves) {
    showAds(2);
    world.processes.block();
    state->startMove();
    EXPECT_TRUE(*state->moving);
    EXPECT_EQ(*state->moveTotal, 2);
    EXPECT_EQ(*state->moveStage, "Finding them in Mail");
    const auto& pending = **state->interrupted.pending;
    EXPECT_EQ(pending.account, "ann@x.example");
    EXPECT_EQ(pending.source, "INBOX");
    EXPECT_EQ(pending.folderLabel, "INBOX");
    EXPECT_EQ(pending.destination, "Brindlet Junk");
    EXPECT_EQ(leftToMove(*state), (std::vector<std::string>{"1@example", "2@example"}));
    EXPECT_TRUE(files::exists(world.directories.store() + "/pending-move.json"));
    world.processes.release();
    finishMove();
}

TEST_F(MoveTest, AllThatMovedIsBookedEverywhere) {
    showAds(2);
    state->startMove();
    finishMove();
    EXPECT_EQ(lastArguments()[0], "ann@x.example");
    EXPECT_EQ(lastArguments()[1], "Brindlet Junk");
    EXPECT_EQ(lastArguments()[2], "INBOX");
    EXPECT_FALSE(*state->moving);
    EXPECT_EQ(*state->moveStage, "");
    EXPECT_EQ(*state->moveNote, "Moved 2 into Brindlet Junk");
    EXPECT_EQ(*state->moveError, std::nullopt);
    EXPECT_EQ(remainingIds(), Numbers{});
    EXPECT_TRUE(state->approved->empty());
    EXPECT_EQ(*state->pastMove, (AppState::PastMove{"INBOX", "Brindlet Junk"}));
    EXPECT_FALSE(*state->interrupted.pending);
    ASSERT_NE(seenEntry("1@example"), nullptr);
    EXPECT_TRUE(seenEntry("1@example")->junk);
    EXPECT_EQ(seenEntry("1@example")->account, "ann@x.example");
    EXPECT_EQ(seenEntry("1@example")->folder, "Brindlet Junk");
    const auto& record = state->history.records->front();
    EXPECT_EQ(record.movedTo, "Brindlet Junk");
    EXPECT_EQ(record.moved.size(), 2u);
    EXPECT_EQ(record.moved[0].sender, "shop0@x.example");
}

TEST_F(MoveTest, AMessageWithoutAnIdIsCountedButNeverMoved) {
    addVerdict("shop@x.example", "Sale", Category::advertisingOrPromotion);
    addVerdict("shop@x.example", "Sale", Category::advertisingOrPromotion).messageID.reset();
    showRecorded();
    selectAccount("ann@x.example", {inbox()});
    state->approved.set({1, 2});
    EXPECT_EQ(state->movableCount(), 1);
    state->startMove();
    EXPECT_EQ(*state->moveTotal, 1);
    finishMove();
    EXPECT_EQ(*state->moveNote, "Moved 1 of 2 - the rest are still listed");
    EXPECT_EQ(remainingIds(), Numbers{2});
    state->approved.set({2});
    state->startMove();
    EXPECT_FALSE(*state->moving);
}

TEST_F(MoveTest, WhatAMoveWouldTakeIsCountedBeforehand) {
    showAds(4);
    EXPECT_EQ(state->movableCount(), 4);
    state->approved.set({2, 3, 4, 77});
    EXPECT_EQ(state->movableCount(), 3) << "nothing has that row id";
    script(landing({"2@example"}));
    state->startMove();
    EXPECT_EQ(*state->moveTotal, 3);
    finishMove();
    EXPECT_EQ(state->movableCount(), 2);
    state->setCategoryTicked(Category::advertisingOrPromotion, true);
    EXPECT_EQ(state->movableCount(), 4) << "what was moved was ticked again with its category";
    state->startMove();
    EXPECT_EQ(*state->moveTotal, 4);
    finishMove();
}

TEST_F(MoveTest, WhatWasNotFoundStaysListedAndTickedWithNothingToResume) {
    showAds(3);
    script(landing({"2@example"}));
    state->startMove();
    finishMove();
    EXPECT_EQ(*state->moveNote, "Moved 1 of 3 - the rest are still listed");
    EXPECT_EQ(remainingIds(), (Numbers{1, 3}));
    EXPECT_EQ(*state->approved, (AppState::Ids{1, 3}));
    EXPECT_FALSE(*state->interrupted.pending);
    EXPECT_EQ(state->history.records->front().moved.size(), 1u);
}

TEST_F(MoveTest, WhenNoneIsFoundTheSavedMoveIsKept) {
    showAds(2);
    script(landing({}));
    state->startMove();
    finishMove();
    EXPECT_EQ(*state->moveError, "Mail didn't find any of them in INBOX.");
    EXPECT_EQ(*state->moveNote, "");
    EXPECT_EQ(leftToMove(*state).size(), 2u);
    EXPECT_EQ(seenEntry("1@example"), nullptr);
    EXPECT_FALSE(state->history.records->front().movedTo);
}

TEST_F(MoveTest, AnErrorPartwayKeepsTheRestAndLeavesTheBookingToTheResume) {
    showAds(3);
    auto part = landing({"1@example"});
    part.error = "12:34: execution error: Mail has no folder Work (-2700)\n";
    script(part);
    state->startMove();
    finishMove();
    EXPECT_EQ(*state->moveNote, "Moved 1 before it stopped");
    EXPECT_EQ(*state->moveError, "12:34: Mail has no folder Work (-2700)");
    EXPECT_EQ(leftToMove(*state), (std::vector<std::string>{"2@example", "3@example"}));
    EXPECT_EQ(remainingIds(), (Numbers{2, 3}));
    EXPECT_EQ(seenEntry("1@example"), nullptr);
    EXPECT_TRUE(state->history.records->front().moved.empty());
}

TEST_F(MoveTest, AnErrorWithNothingMovedLeavesNoNote) {
    showAds(2);
    auto none = landing({});
    none.error = "Mail is busy";
    script(none);
    state->startMove();
    finishMove();
    EXPECT_EQ(*state->moveNote, "");
    EXPECT_EQ(*state->moveError, "Mail is busy");
}

TEST_F(MoveTest, AStopEndsInWhatMovedWithoutAnError) {
    showAds(2);
    script(landing({"1@example"}));
    world.processes.block();
    state->startMove();
    world.processes.waitForLaunches(1);
    state->mover().stopMove();
    finishMove();
    EXPECT_EQ(*state->moveError, std::nullopt);
    EXPECT_EQ(*state->moveNote, "Moved 1 of 2 - the rest are still listed");
    EXPECT_EQ(*state->approved, AppState::Ids{2});
    EXPECT_FALSE(*state->interrupted.pending);
}

TEST_F(MoveTest, TwoMessagesOfOneIdBothLeaveTheList) {
    addVerdict("shop@x.example", "Sale", Category::advertisingOrPromotion);
    addVerdict("shop@x.example", "Sale", Category::advertisingOrPromotion).messageID = "1@example";
    showRecorded();
    selectAccount("ann@x.example", {inbox()});
    auto one = landing({"1@example"});
    one.moved = 1;
    script(one);
    state->startMove();
    finishMove();
    EXPECT_EQ(remainingIds(), Numbers{});
    EXPECT_EQ(*state->moveNote, "Moved 2 into Brindlet Junk");
    EXPECT_EQ(*state->movedCount, 1);
}

TEST_F(MoveTest, ASecondPressWhileItRunsDoesNothing) {
    showAds(2);
    world.processes.block();
    state->startMove();
    state->startMove();
    state->resumeMove();
    world.processes.waitForLaunches(1);
    world.processes.release();
    finishMove();
    EXPECT_EQ(world.processes.launches().size(), 1u);
}

TEST_F(MoveTest, OutOfAJunkFolderTheWayIsToTheInbox) {
    addVerdict("ann@x.example", "Hello", Category::personalMessageOrReminder);
    showRecorded(MailFolder::Role::junk);
    selectAccount("ann@x.example",
                  {inbox(), MailFolder{9, "Posteingang", 1, MailFolder::Role::inbox}});
    state->startMove();
    finishMove();
    EXPECT_EQ(*state->moveNote, "Moved 1 into Posteingang");
    // Told as junk all the same: the entry says what the program has filed.
    EXPECT_TRUE(seenEntry("1@example")->junk);
}

TEST_F(MoveTest, AnAccountWithoutAnInboxGetsRescuedMailInOneOfThatName) {
    addVerdict("ann@x.example", "Hello", Category::personalMessageOrReminder);
    showRecorded(MailFolder::Role::junk);
    selectAccount("ann@x.example", {inbox()});
    state->startMove();
    finishMove();
    EXPECT_EQ(*state->moveNote, "Moved 1 into INBOX");
}

TEST_F(MoveTest, TheMenuIsUsedOnlyWhereAMoveWouldTagAndThePersonAllowsIt) {
    showAds(1);
    const MailFolder label{5, "[Gmail]/All Mail", 3, MailFolder::Role::archive};
    selectAccount("ann@x.example", {inbox(), label});
    state->declinedGmail = {"ann@x.example"};
    auto none = landing({});
    none.error = "stop here";
    script(none);
    state->startMove();
    finishMove();
    EXPECT_EQ(lastArguments().size(), 7u) << "the bulk script has seven";
    world.defaults.setBoolean("allowUIMove", true);
    state->startMove();
    finishMove();
    EXPECT_EQ(lastArguments().size(), 5u) << "the menu script has five";
}

TEST_F(MoveTest, TheSavedDestinationIsTaken) {
    showAds(1);
    selectAccount("ann@x.example", {inbox(), MailFolder{8, "Bulk", 3, MailFolder::Role::junk},
                                    MailFolder{9, "Club", 3, MailFolder::Role::custom}});
    EXPECT_EQ(state->destinationName(), "Bulk");
    state->destinations.set((*state->account)->id, "Club");
    EXPECT_EQ(state->destinationName(), "Club");
    state->startMove();
    finishMove();
    EXPECT_EQ(*state->moveNote, "Moved 1 into Club");
}

TEST_F(MoveTest, TheHistoryIsBookedOnTheNewestScanOfThatFolderWhoseverItIs) {
    showAds(1);
    ScanRecord other;
    other.started = world.clock.now() + 60;
    other.account = "other@x.example";
    other.folder = "INBOX";
    state->history.add(other);
    state->startMove();
    finishMove();
    EXPECT_EQ(state->history.records->front().account, "other@x.example");
    EXPECT_EQ(state->history.records->front().moved.size(), 1u);
}

TEST_F(MoveTest, TheWordsFollowTheScript) {
    showAds(2);
    world.processes.setScript([](const auto& run) {
        doubles::ScriptedProcessRunner::Reply reply;
        files::write(run.arguments[6], "move|1|2");
        reply.output = "0";
        reply.polls = 2;
        return reply;
    });
    state->startMove();
    world.clock.waitForSleeps(1);
    world.clock.advance(0.5);
    world.clock.waitForSleeps(2);
    world.mainQueue.pump();
    EXPECT_EQ(*state->moveStage, "Moving into Brindlet Junk");
    EXPECT_EQ(*state->movedCount, 1);
    world.clock.advance(0.5);
    finishMove();
    EXPECT_EQ(*state->movedCount, 0) << "what the script says in the end counts";
}

TEST_F(MoveTest, WithoutAFolderOnePressStartsOneLoad) {
    showAds(1);
    state->folder.set(std::nullopt);
    state->account.set(std::nullopt);
    state->startMove();
    EXPECT_EQ(*state->moveError, "Matching this scan to its account - a few seconds.");
    EXPECT_TRUE(*state->loadingAccounts);
    EXPECT_EQ(state->pendingAccountLabel, state->currentRecord->account);
    ASSERT_TRUE(world.mainQueue.pumpUntil([this] { return !*state->loadingAccounts; }));
    EXPECT_FALSE(*state->loadingAccounts) << "no second load";
    EXPECT_FALSE(state->retryMoveOnLoad);
    EXPECT_FALSE(*state->moving);
    EXPECT_EQ(*state->moveError, "Matching this scan to its account - a few seconds.");
}

TEST_F(MoveTest, TheLoadThatWasWaitedForGoesOnWithTheMove) {
    showAds(1);
    state->account.set(std::nullopt);
    state->startMove();
    world.processes.block();
    world.processes.release();
    ASSERT_TRUE(world.mainQueue.pumpUntil([this] { return state->moveTask().has_value(); }));
    finishMove();
    // The index alone gives no address, and such an account cannot be moved from.
    EXPECT_EQ(*state->moveError,
              "11111111 is a local mailbox on this Mac, not a mail account - Brindlet can sort it "
              "but can't move from it.");
    EXPECT_TRUE(*state->interrupted.pending);
}

TEST_F(MoveTest, FoldersAreNotReadAgainMeanwhile) {
    showAds(1);
    world.processes.block();
    state->startMove();
    state->refreshFolders();
    EXPECT_FALSE(*state->refreshingFolders);
    world.processes.release();
    finishMove();
}

TEST_F(MoveTest, ASessionThatEndsMeanwhileIsNotMissed) {
    showAds(1);
    world.processes.block();
    state->startMove();
    world.processes.waitForLaunches(1);
    const auto task = *state->moveTask();
    state.reset();
    world.processes.release();
    finish(task);
    open();
    EXPECT_TRUE(*state->interrupted.pending) << "the next start can finish it";
}

}  // namespace
}  // namespace brindlet
