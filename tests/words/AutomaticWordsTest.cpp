#include "words/AutomaticWords.h"

#include <gtest/gtest.h>

#include "words/Session.h"

namespace brindlet {
namespace {

using Role = MailFolder::Role;

/// Two accounts, one of them without an address.
void addAccounts(Session& session) {
    session->accounts.set({{"A1",
                            "ann@x.com",
                            "Ann",
                            {{1, "INBOX", 10, Role::inbox}, {2, "Lists/News", 0, Role::custom}}},
                           {"B2", "", "On this machine", {{3, "INBOX", 1, Role::inbox}}}});
}

TEST(AutomaticWords, TellTheScheduleAsItIs) {
    Session session;
    session.world.locale.words = "in 5 hours";
    EXPECT_FALSE(automaticWords(session).enabled);
    EXPECT_EQ(automaticWords(session).summary, "Off");
    session->schedule.setEnabled(true);
    EXPECT_TRUE(automaticWords(session).enabled);
    EXPECT_EQ(automaticWords(session).summary, "On, but no mailbox picked");
    session->schedule.toggle("A1", "INBOX");
    EXPECT_EQ(automaticWords(session).summary,
              "1 mailbox \u00b7 once a day \u00b7 next in 5 hours");
}

TEST(AutomaticWords, CountWhatIsPicked) {
    Session session;
    EXPECT_EQ(automaticWords(session).mailboxesNote, "pick at least one, or nothing will run");
    session->schedule.toggle("A1", "INBOX");
    EXPECT_EQ(automaticWords(session).mailboxesNote, "1 picked");
    session->schedule.setWatched(std::vector<WatchedMailbox>(1234, {"A1", "INBOX"}));
    EXPECT_EQ(automaticWords(session).mailboxesNote, "1,234 picked");
}

TEST(AutomaticWords, TellWhereNoAccountWasRead) {
    Session session;
    session->schedule.toggle("A1", "INBOX");
    EXPECT_EQ(automaticWords(session).noAccounts,
              "No accounts read yet - open Brindlet's main screen once.");
    EXPECT_EQ(automaticWords(session).gone, "") << "which says nothing of what is picked";
    addAccounts(session);
    EXPECT_EQ(automaticWords(session).noAccounts, "");
}

TEST(AutomaticWords, TellWhatIsPickedAndGone) {
    Session session;
    addAccounts(session);
    session->schedule.toggle("A1", "INBOX");
    EXPECT_EQ(automaticWords(session).gone, "");
    session->schedule.toggle("A1", "Lists/Old");
    EXPECT_EQ(automaticWords(session).gone, "Lists/Old is no longer in Mail, so it is skipped.");
    session->schedule.toggle("C3", "INBOX");
    EXPECT_EQ(automaticWords(session).gone,
              "2 picked mailboxes are no longer in Mail, so they are skipped.");
}

TEST(AutomaticWords, OfferTheCadences) {
    Session session;
    const PickMenu daily{{"Every hour", "Every 6 hours", "Once a day", "Once a week"}, 2};
    EXPECT_EQ(automaticWords(session).cadences, daily);
    session->schedule.setCadence(Cadence::weekly);
    EXPECT_EQ(automaticWords(session).cadences.chosen, 3);
}

TEST(AutomaticWords, OfferTheModes) {
    Session session;
    const ModeWords review{"largecircle.fill.circle", "Collect for review",
                           "Brindlet sorts quietly and saves what it found. Nothing moves until "
                           "you look and approve.",
                           true};
    const ModeWords automatic{"circle", "Move it for me",
                              "Anything Brindlet is confident about moves on its own. Receipts, "
                              "codes and bills are still never moved.",
                              false};
    EXPECT_EQ(automaticWords(session).modes, (std::vector<ModeWords>{review, automatic}));
    session->schedule.setMode(SortMode::automatic);
    const auto modes = automaticWords(session).modes;
    EXPECT_EQ(modes[0].symbol, "circle");
    EXPECT_FALSE(modes[0].chosen);
    EXPECT_EQ(modes[1].symbol, "largecircle.fill.circle");
    EXPECT_TRUE(modes[1].chosen);
}

TEST(AutomaticWords, OfferARunWhileNothingRunsAndSomethingIsPicked) {
    Session session;
    EXPECT_FALSE(automaticWords(session).canRun);
    session->schedule.toggle("A1", "INBOX");
    EXPECT_TRUE(automaticWords(session).canRun);
    session->running.set(true);
    EXPECT_FALSE(automaticWords(session).canRun);
    session->running.set(false);
    session->moving.set(true);
    EXPECT_FALSE(automaticWords(session).canRun);
}

TEST(WatchRows, AccountsShowTheirFoldersWhenOpen) {
    Session session;
    addAccounts(session);
    session->schedule.toggle("A1", "Lists/News");
    auto rows = watchRows(session, {});
    ASSERT_EQ(rows.size(), 2u);
    EXPECT_EQ(rows[0].name, "ann@x.com");
    EXPECT_EQ(rows[1].name, "On this machine");
    for (const auto& row : rows) {
        EXPECT_TRUE(row.isAccount());
        EXPECT_EQ(row.symbol, "person.crop.circle");
        EXPECT_EQ(row.chevron, "chevron.down");
        EXPECT_EQ(row.note, "");
    }
    rows = watchRows(session, {"A1", "no such account"});
    ASSERT_EQ(rows.size(), 4u);
    EXPECT_EQ(rows[0].chevron, "chevron.up");
    EXPECT_TRUE(rows[0].open);
    const WatchRow inbox{"A1/INBOX", "A1",    "INBOX",
                         "square",   "INBOX", "what's sitting in your inbox now",
                         "",         false,   false};
    EXPECT_EQ(rows[1], inbox);
    const WatchRow news{"A1/Lists/News",
                        "A1",
                        "Lists/News",
                        "checkmark.square.fill",
                        "Lists/News",
                        "a folder you made",
                        "",
                        false,
                        true};
    EXPECT_EQ(rows[2], news) << "one without messages too";
    EXPECT_EQ(rows[3].id, "B2");
}

TEST(WatchRows, AFolderIsTickedInItsOwnAccountOnly) {
    Session session;
    addAccounts(session);
    session->schedule.toggle("B2", "INBOX");
    const auto rows = watchRows(session, {"A1", "B2"});
    EXPECT_FALSE(rows[1].ticked);
    EXPECT_TRUE(rows.back().ticked);
}

TEST(AutomaticLink, CountsTheMailboxesOfAScheduleThatIsOn) {
    Session session;
    EXPECT_EQ(automaticLink(session), "Automatic sorting");
    session->schedule.setEnabled(true);
    EXPECT_EQ(automaticLink(session), "Automatic sorting") << "nothing is picked";
    session->schedule.toggle("A1", "INBOX");
    EXPECT_EQ(automaticLink(session), "Automatic: 1 mailbox");
    session->schedule.toggle("A1", "Lists");
    EXPECT_EQ(automaticLink(session), "Automatic: 2 mailboxes");
    session->schedule.setEnabled(false);
    EXPECT_EQ(automaticLink(session), "Automatic sorting");
}

TEST(AutomaticStatus, IsTheSummary) {
    Session session;
    EXPECT_EQ(automaticStatus(session), "Automatic: Off");
    session->schedule.setEnabled(true);
    EXPECT_EQ(automaticStatus(session), "Automatic: On, but no mailbox picked");
}

}  // namespace
}  // namespace brindlet
