#include <gtest/gtest.h>

#include "session/MoveFixture.h"

namespace brindlet {
namespace {

constexpr const char* service = "app.brindlet.Brindlet.gmail";
constexpr const char* address = "ann@x.example";

/// Ads to move out of the inbox of a Gmail account.
class GmailMove : public MoveTest {
  protected:
    void showGmail(int count, MailFolder::Role folderRole = MailFolder::Role::inbox) {
        showAds(count, folderRole);
        MailFolder all;
        all.id = 77;
        all.name = "[Gmail]/All Mail";
        all.count = 1;
        selectAccount(address, {inbox(), all});
    }
    void connect() {
        world.keys.keep(service, address, "abcdefghijklmnop");
        state->gmailConnected.set({address});
    }
    /// The server knows the messages of these numbers, and files them.
    void serve(const std::vector<int>& known, const std::string& afterLabels = "OK done") {
        doubles::Transcript talk;
        talk.accepts().says("* OK Gimap ready\r\n");
        talk.hears("a001 LOGIN \"ann@x.example\" \"abcdefghijklmnop\"").says("a001 OK in\r\n");
        talk.hears("a002 SELECT \"[Gmail]/All Mail\"").says("* 9 EXISTS\r\na002 OK\r\n");
        std::string answer;
        std::string uids;
        for (const int number : known) {
            const std::string uid = std::to_string(100 + number * 2);
            answer += "* " + std::to_string(number) + " FETCH (UID " + uid +
                      " BODY[HEADER.FIELDS (MESSAGE-ID)] {9}\r\nMessage-ID: <" +
                      std::to_string(number) + "@example>\r\n\r\n)\r\n";
            uids += (uids.empty() ? "" : ",") + uid;
        }
        talk.hears("a003 UID FETCH 1:* (UID BODY.PEEK[HEADER.FIELDS (MESSAGE-ID)])");
        talk.says(answer + "a003 OK\r\n");
        if (!known.empty()) {
            talk.hears("a004 UID STORE " + uids + " +X-GM-LABELS (\"Brindlet Junk\")");
            talk.says("a004 " + afterLabels + "\r\n");
            if (afterLabels == "OK done")
                talk.hears("a005 UID STORE " + uids + " -X-GM-LABELS (\\Inbox)")
                    .says("a005 OK\r\n");
        }
        world.tls.add(talk);
    }
    bool asked() const { return state->askingGmail->has_value(); }
};

TEST_F(GmailMove, IsAskedAboutFirst) {
    showGmail(2);
    state->startMove();
    ASSERT_TRUE(asked());
    EXPECT_EQ((*state->askingGmail)->address, address);
    EXPECT_EQ(state->askThen, AppState::GmailThen::move);
    EXPECT_FALSE(*state->moving);
    EXPECT_FALSE(*state->interrupted.pending);
}

TEST_F(GmailMove, IsNotAskedAboutWithoutNeed) {
    showGmail(1);
    MailAccount plain = **state->account;
    plain.folders.pop_back();
    MailAccount nameless = **state->account;
    nameless.address.clear();
    const auto then = AppState::GmailThen::scan;
    EXPECT_FALSE(state->askGmailIfNeeded(std::nullopt, then));
    EXPECT_FALSE(state->askGmailIfNeeded(plain, then));
    EXPECT_FALSE(state->askGmailIfNeeded(nameless, then));
    state->gmailConnected.set({address});
    EXPECT_FALSE(state->askGmailIfNeeded(*state->account, then));
    state->gmailConnected.set({});
    state->declinedGmail = {address};
    EXPECT_FALSE(state->askGmailIfNeeded(*state->account, then));
    EXPECT_FALSE(asked());
    state->declinedGmail.clear();
    EXPECT_TRUE(state->askGmailIfNeeded(*state->account, then));
}

TEST_F(GmailMove, GoesOnOnceConnected) {
    showGmail(2);
    state->declinedGmail = {"someone@else.example"};
    state->startMove();
    world.keys.keep(service, address, "abcdefghijklmnop");
    serve({1, 2});
    state->gmailLinked(**state->account);
    EXPECT_FALSE(asked());
    EXPECT_EQ(state->askThen, AppState::GmailThen::nothing);
    EXPECT_TRUE(state->gmailConnected->contains(address));
    finishMove();
    EXPECT_EQ(world.tls.strayed(), "");
    EXPECT_EQ(*state->moveNote, "Moved 2 into Brindlet Junk");
    EXPECT_TRUE(world.processes.launches().empty()) << "no script";
}

TEST_F(GmailMove, DeclinedGoesByScript) {
    showGmail(2);
    state->startMove();
    state->gmailDeclined(**state->account);
    EXPECT_FALSE(asked());
    EXPECT_EQ(state->declinedGmail, std::set<std::string>{address});
    finishMove();
    EXPECT_EQ(world.processes.launches().size(), 1u);
    EXPECT_TRUE(world.tls.made().empty());
    // And asks no more.
    state->approved.mutate([](auto& ids) { ids.insert(1); });
    state->startMove();
    EXPECT_FALSE(asked());
    finishMove();
}

TEST_F(GmailMove, AfterAScanOnlyTheScanGoesOn) {
    showGmail(1);
    ASSERT_TRUE(state->askGmailIfNeeded(*state->account, AppState::GmailThen::scan));
    state->gmailDeclined(**state->account);
    EXPECT_TRUE(*state->running);
    EXPECT_FALSE(*state->moving);
    finishTask();
}

TEST_F(GmailMove, CanBeConnectedAfterAll) {
    showGmail(1);
    state->startMove();
    state->gmailDeclined(**state->account);
    finishMove();
    state->askThen = AppState::GmailThen::scan;
    state->connectGmail(**state->account);
    EXPECT_TRUE(asked());
    state->gmailLinked(**state->account);
    EXPECT_TRUE(state->declinedGmail.empty());
    EXPECT_FALSE(*state->running) << "nothing was waiting for this answer";
    EXPECT_FALSE(*state->moving);
}

TEST_F(GmailMove, DisconnectingForgetsThePassword) {
    showGmail(1);
    connect();
    state->disconnectGmail(**state->account);
    EXPECT_TRUE(state->gmailConnected->empty());
    ASSERT_TRUE(world.mainQueue.pumpUntil([&] { return !world.keys.kept(service, address); }));
}

TEST_F(GmailMove, BooksEverythingThatWasAskedFor) {
    showGmail(3);
    connect();
    serve({1, 2, 3});
    state->startMove();
    EXPECT_EQ(*state->moveStage, "Finding them in Mail");
    finishMove();
    EXPECT_EQ(world.tls.strayed(), "");
    EXPECT_FALSE(*state->moving);
    EXPECT_EQ(*state->moveStage, "");
    EXPECT_EQ(*state->movedCount, 3);
    EXPECT_EQ(*state->moveError, std::nullopt);
    EXPECT_EQ(*state->pastMove, (AppState::PastMove{"INBOX", "Brindlet Junk"}));
    EXPECT_TRUE(remainingIds().empty());
    EXPECT_TRUE(state->approved->empty());
    EXPECT_FALSE(*state->interrupted.pending);
    ASSERT_NE(seenEntry("2@example"), nullptr);
    EXPECT_EQ(seenEntry("2@example")->folder, "Brindlet Junk");
    EXPECT_EQ(state->history.records->front().moved.size(), 3u);
    EXPECT_TRUE(state->persistTask()) << "the ticks are saved";
}

// Odd but so: what the account does not have counts as moved.
TEST_F(GmailMove, AllCountAsMovedEvenWhenFewerWereFiled) {
    showGmail(3);
    connect();
    serve({1, 3});
    state->startMove();
    finishMove();
    EXPECT_EQ(world.tls.strayed(), "");
    EXPECT_EQ(*state->movedCount, 2);
    EXPECT_EQ(*state->moveNote, "Moved 2 into Brindlet Junk");
    EXPECT_TRUE(remainingIds().empty());
    EXPECT_EQ(state->history.records->front().moved.size(), 3u);
}

TEST_F(GmailMove, AFailureChangesNothingButTheSentence) {
    showGmail(2);
    connect();
    serve({1, 2}, "NO try again later");
    state->startMove();
    finishMove();
    EXPECT_EQ(*state->moveError, "Gmail said something unexpected: a004 NO try again later");
    EXPECT_EQ(*state->moveNote, "");
    EXPECT_EQ(*state->movedCount, 0);
    EXPECT_FALSE(*state->moving);
    EXPECT_EQ(*state->pastMove, std::nullopt);
    EXPECT_EQ(remainingIds().size(), 2u);
    EXPECT_EQ(state->approved->size(), 2u);
    ASSERT_TRUE(*state->interrupted.pending);
    EXPECT_EQ((*state->interrupted.pending)->remaining.size(), 2u);
    EXPECT_FALSE(state->persistTask());
}

// Connected says the safe, each time, not what was so when the accounts were loaded.
TEST_F(GmailMove, WithoutAPasswordGoesByScript) {
    showGmail(1);
    state->gmailConnected.set({address});
    state->startMove();
    finishMove();
    EXPECT_TRUE(world.tls.made().empty());
    EXPECT_EQ(world.processes.launches().size(), 1u);
}

TEST_F(GmailMove, OutOfAFolderOfJunkGoesByScript) {
    showGmail(1, MailFolder::Role::junk);
    connect();
    state->approved.set({1});
    state->startMove();
    finishMove();
    EXPECT_TRUE(world.tls.made().empty());
    EXPECT_EQ(world.processes.launches().size(), 1u);
}

TEST_F(GmailMove, IntoAFolderOfGmailsGoesByScript) {
    showGmail(1);
    connect();
    state->destinations.set((*state->account)->id, "[Gmail]/All Mail");
    state->startMove();
    finishMove();
    EXPECT_TRUE(world.tls.made().empty());
    EXPECT_EQ(lastArguments().at(1), "[Gmail]/All Mail");
}

TEST_F(GmailMove, IsNeverResumedThroughGmail) {
    showGmail(1);
    connect();
    serve({1}, "NO");
    state->startMove();
    finishMove();
    ASSERT_TRUE(*state->interrupted.pending);
    state->resumeMove();
    finishMove();
    EXPECT_EQ(world.tls.made().size(), 1u) << "the first";
    EXPECT_EQ(world.processes.launches().size(), 1u);
}

// Nobody cancels the conversation, so it goes on to its end.
TEST_F(GmailMove, AStopDoesNothing) {
    showGmail(2);
    connect();
    serve({1, 2});
    state->startMove();
    state->mover().stopMove();
    finishMove();
    EXPECT_EQ(*state->moveNote, "Moved 2 into Brindlet Junk");
}

}  // namespace
}  // namespace brindlet
