#include <gtest/gtest.h>

#include "base/Files.h"
#include "session/AutomaticFixture.h"

namespace brindlet {
namespace {

using Boxes = std::vector<std::string>;

/// Runs that move what they find.
class AutomaticFiling : public AutomaticTest {
  protected:
    AutomaticFiling() { setMode(SortMode::automatic); }

    /// What the latest move was asked to take, by Message-ID.
    std::string asked() const { return files::read(lastArguments().at(3)).value_or(""); }
    bool askedFor(const std::string& id) const {
        return (asked() + "\n").find("\t" + id + "\n") != std::string::npos;
    }
    void makeGmail() {
        state->accounts.mutate([](auto& accounts) {
            accounts.front().folders.push_back(
                {99, "[Gmail]/All Mail", 1, MailFolder::Role::archive});
        });
    }
};

TEST_F(AutomaticFiling, TakesEachMailboxsJunkOnce) {
    watch("A", 2);
    watch("B", 3);
    runNow();
    EXPECT_EQ(moves(), 2u);
    EXPECT_EQ(lastArguments().at(2), "B");
    EXPECT_EQ(state->history.totalMoved(), 5);
    EXPECT_TRUE(state->approved->empty());
    EXPECT_EQ(*state->moveNote, "Moved 3 into Brindlet Junk");
}

TEST_F(AutomaticFiling, EndsBeforeTheNextScanBegins) {
    watch("A", 1);
    watch("B", 1);
    world.processes.block();
    state->runDue();
    ASSERT_TRUE(pumpUntil([&] { return *state->moving; }));
    bool both = false;
    const auto watching = state->subscribe([&] { both |= *state->running && *state->moving; });
    runJobs(1);  // the run asks what to wait for
    EXPECT_EQ((*state->folder)->name, "A");
    world.processes.release();
    finishMove();
    finishRun();
    EXPECT_EQ(scanned(), (Boxes{"A", "B"}));
    EXPECT_FALSE(both);
}

// The mail program may be gone for all of them: once each is enough.
TEST_F(AutomaticFiling, ThatFailsIsNotTriedTwice) {
    script({{}, true, -1, "execution error: it will not (-10000)"});
    watch("A", 2);
    runNow();
    EXPECT_EQ(moves(), 1u);
    EXPECT_TRUE(state->moveError->has_value());
    EXPECT_EQ(state->approved->size(), 2u) << "still ticked";
    ASSERT_TRUE(*state->interrupted.pending);
}

TEST_F(AutomaticFiling, LeavesAllThatIsNotPlainlyJunk) {
    const auto box = watch("A", 1);
    add("bob@y.example", "Lunch on Tuesday?");
    add("store@y.example", "Sale: your receipt");
    addUnreadable("shop@z.example", "Sale without an id");
    add("shop@w.example", "Sale again");
    runNow();
    EXPECT_EQ(state->verdicts->size(), 5u);
    EXPECT_EQ(state->protectedCount(), 1);
    ASSERT_EQ(moves(), 1u);
    EXPECT_TRUE(askedFor("m1@example"));
    EXPECT_FALSE(askedFor("m2@example")) << "no junk";
    EXPECT_FALSE(askedFor("m3@example")) << "protected";
    EXPECT_TRUE(askedFor("m5@example"));
    EXPECT_EQ(*state->moveNote, "Moved 2 into Brindlet Junk");
}

TEST_F(AutomaticFiling, BringsOutOfAJunkFolderAllThatIsNotJunk) {
    addBox("INBOX", 0, MailFolder::Role::inbox);
    watch("Junk", 1, MailFolder::Role::junk);
    add("bob@y.example", "Lunch on Tuesday?");
    add("store@y.example", "Sale: your receipt");
    runNow();
    ASSERT_EQ(moves(), 1u);
    EXPECT_EQ(lastArguments().at(1), "INBOX");
    EXPECT_FALSE(askedFor("m1@example")) << "it is where it belongs";
    EXPECT_TRUE(askedFor("m2@example"));
    EXPECT_TRUE(askedFor("m3@example")) << "what is protected is not junk";
}

// What a stopped scan has found is moved like the rest.
TEST_F(AutomaticFiling, TakesWhatAStoppedScanHadFound) {
    watch("A", 6);
    watch("B", 1);
    world.model.block();
    state->runDue();
    ASSERT_TRUE(pumpUntil([&] { return world.model.calls().size() == 4; }));
    state->stopScan();
    world.model.release();
    finishRun();
    ASSERT_EQ(scanned(), (Boxes{"A", "B"}));
    const auto& stopped = state->history.records->back();
    EXPECT_GE(stopped.scanned, 1);
    EXPECT_EQ(std::ssize(stopped.moved), stopped.scanned);
    EXPECT_EQ(moves(), 2u);
}

// Odd but so: the scan's end asks whether the schedule is on, the run only what its mode is.
TEST_F(AutomaticFiling, TurningTheScheduleOffMeanwhileDoesNotStopTheRunsMoves) {
    watch("A", 1);
    watch("B", 1);
    world.model.block();
    state->runDue();
    ASSERT_TRUE(pumpUntil([&] { return world.model.calls().size() == 1; }));
    state->schedule.setEnabled(false);
    world.model.release();
    finishRun();
    EXPECT_EQ(scanned(), (Boxes{"A", "B"}));
    EXPECT_EQ(moves(), 2u);
}

TEST_F(AutomaticFiling, GoesByTheModeThatStandsWhenAScanEnds) {
    watch("A", 1);
    world.model.block();
    state->runDue();
    ASSERT_TRUE(pumpUntil([&] { return world.model.calls().size() == 1; }));
    setMode(SortMode::review);
    world.model.release();
    finishRun();
    EXPECT_EQ(moves(), 0u);
    EXPECT_EQ(state->approved->size(), 1u);
}

TEST_F(AutomaticFiling, WithNothingProposedStaysOnTheResults) {
    mailbox = watch("A", 0).id;
    add("bob@y.example", "Lunch on Tuesday?");
    runNow();
    EXPECT_EQ(*state->screen, AppState::Screen::results);
    EXPECT_EQ(moves(), 0u);
    EXPECT_FALSE(*state->interrupted.pending);
}

TEST_F(AutomaticFiling, OfAGmailAccountAsksAndTheRunGoesOn) {
    watch("A", 1);
    watch("B", 2);
    makeGmail();
    runNow();
    EXPECT_EQ(scanned(), (Boxes{"A", "B"}));
    ASSERT_TRUE(state->askingGmail->has_value());
    EXPECT_EQ((*state->askingGmail)->address, "ann@x.example");
    EXPECT_EQ(state->askThen, AppState::GmailThen::move);
    EXPECT_FALSE(state->moveTask());
    EXPECT_FALSE(*state->interrupted.pending);
    EXPECT_EQ(*state->screen, AppState::Screen::results);
    EXPECT_EQ(state->approved->size(), 2u) << "the findings wait";
    EXPECT_EQ(state->schedule.lastRun(), world.clock.now());

    state->gmailDeclined(*state->askingGmail.get());
    finishMove();
    EXPECT_EQ(*state->moveNote, "Moved 2 into Brindlet Junk");
    EXPECT_EQ(lastArguments().at(2), "B") << "the one on show";
}

TEST_F(AutomaticFiling, OfAGmailAccountThatDeclinedGoesByScript) {
    watch("A", 1);
    makeGmail();
    state->declinedGmail = {"ann@x.example"};
    runNow();
    EXPECT_FALSE(state->askingGmail->has_value());
    EXPECT_EQ(moves(), 1u);
}

}  // namespace
}  // namespace brindlet
