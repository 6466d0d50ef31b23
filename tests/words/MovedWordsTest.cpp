#include "words/MovedWords.h"

#include <gtest/gtest.h>

#include "words/Session.h"

namespace brindlet {
namespace {

/// A scan of ads of which the first two have left the inbox.
struct Moved : Session {
    Moved() {
        publish(3, 0);
        state->account.set(MailAccount{"A1", "ann@x.com", "Ann", {}});
        state->pastMove.set(AppState::PastMove{"INBOX", "Brindlet Junk"});
        state->movedAlready.set({"1@x.com", "2@x.com"});
    }
};

TEST(MovedWords, ThereAreNoneWhenNothingWasMoved) {
    Session session;
    session.publish(3, 0);
    EXPECT_FALSE(movedSectionWords(session, false));
}

TEST(MovedWords, TellWhereTheMessagesAre) {
    Moved session;
    EXPECT_EQ(movedSectionWords(session, false)->heading, "Already moved to Brindlet Junk");
    session->pastMove.set(AppState::PastMove{"Junk", "INBOX"});
    EXPECT_EQ(movedSectionWords(session, false)->heading, "Already moved to INBOX");
    session->pastMove.set(std::nullopt);
    EXPECT_EQ(movedSectionWords(session, false)->heading, "Already moved to your junk folder");
}

TEST(MovedWords, StandAlsoWhereNoneOfTheMovedIsInTheList) {
    Moved session;
    session->movedAlready.set({"elsewhere@x.com"});
    EXPECT_EQ(movedSectionWords(session, false)->heading, "Already moved to Brindlet Junk");
}

TEST(MovedWords, TheirChevronShowsWhatAClickDoes) {
    Moved session;
    EXPECT_EQ(movedSectionWords(session, false)->chevron, "chevron.down");
    EXPECT_EQ(movedSectionWords(session, true)->chevron, "chevron.up");
}

TEST(MovedWords, CountWhatIsTicked) {
    Moved session;
    EXPECT_EQ(movedSectionWords(session, false)->count, "");
    EXPECT_EQ(movedSectionWords(session, false)->putBack, "");
    session->putBack.set({2});
    EXPECT_EQ(movedSectionWords(session, false)->count, "1 to put back");
    EXPECT_EQ(movedSectionWords(session, false)->putBack, "Put 1 back in INBOX");
    session->putBack.set({1, 2});
    EXPECT_EQ(movedSectionWords(session, false)->putBack, "Put 2 back in INBOX");
}

TEST(MovedWords, CountNoTickOfAnEarlierScan) {
    Moved session;
    session->putBack.set({3, 77});
    EXPECT_EQ(movedSectionWords(session, false)->count, "");
    EXPECT_EQ(movedSectionWords(session, false)->putBack, "");
}

TEST(MovedWords, GroupTheirNumbers) {
    Session session;
    session.publish(1234, 0);
    AppState::Ids all;
    session->movedAlready.mutate([&](auto& gone) {
        for (const auto& verdict : *session->verdicts) {
            gone.insert(*verdict.messageID);
            all.insert(verdict.id);
        }
    });
    session->putBack.set(all);
    EXPECT_EQ(movedSectionWords(session, false)->count, "1,234 to put back");
    EXPECT_EQ(movedSectionWords(session, false)->putBack, "Put 1,234 back in the inbox");
    EXPECT_EQ(movedScrollLine(1234, session->services().locale),
              "1,234 messages - scroll to see them all");
}

TEST(MovedWords, AreNotReadyWhereNothingWouldComeBack) {
    Moved session;
    session->putBack.set({1});
    EXPECT_TRUE(movedSectionWords(session, false)->ready);
    session->moving.set(true);
    EXPECT_FALSE(movedSectionWords(session, false)->ready) << "one move at a time";
    session->moving.set(false);
    session->account.set(std::nullopt);
    EXPECT_FALSE(movedSectionWords(session, false)->ready) << "the account is not known yet";
    session->account.set(MailAccount{"A1", "ann@x.com", "Ann", {}});
    session->pastMove.set(std::nullopt);
    EXPECT_FALSE(movedSectionWords(session, false)->ready) << "nobody knows where they came from";
}

TEST(MovedWords, ARowSaysWhetherItReturns) {
    Moved session;
    Verdict verdict = (*session->verdicts)[0];
    EXPECT_EQ(movedRowWords(session, verdict),
              (MovedRowWords{"Sale", "Shop <shop@x.com>", "square"}));
    session->putBack.set({1});
    verdict.subject = " \n";
    EXPECT_EQ(movedRowWords(session, verdict),
              (MovedRowWords{"(no subject)", "Shop <shop@x.com>", "checkmark.square.fill"}));
}

}  // namespace
}  // namespace brindlet
