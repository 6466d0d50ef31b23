#include "words/MenuWords.h"

#include <gtest/gtest.h>

#include "words/Session.h"

namespace brindlet {
namespace {

using Command = MenuLine::Command;
using Lines = std::vector<MenuLine>;

MenuLine words(const char* text) {
    return {text, std::nullopt};
}

/// The status, and after it what always stands.
Lines always(Lines lines) {
    lines.push_back({});
    lines.push_back({"Open Brindlet", Command::open});
    lines.push_back({"Quit", Command::quit});
    return lines;
}

void scan(Session& session, std::int64_t done, std::int64_t total, double rate) {
    session->running.set(true);
    session->done.set(done);
    session->total.set(total);
    session->rate.set(rate);
}

TEST(MenuWords, WithNothingOnHandNothingRuns) {
    Session session;
    EXPECT_EQ(menuWords(session).title, "Brindlet");
    EXPECT_EQ(menuWords(session).symbol, "tray");
    EXPECT_EQ(menuWords(session).lines,
              always({words("Nothing running"), words("Automatic: Off")}));
}

TEST(MenuWords, TellWhenTheNextRunIsDue) {
    Session session;
    session.world.locale.words = "in 5 hours";
    session->schedule.setEnabled(true);
    session->schedule.toggle("A1", "INBOX");
    EXPECT_EQ(menuWords(session).lines,
              always({words("Nothing running"),
                      words("Automatic: 1 mailbox \u00b7 once a day \u00b7 next in 5 hours")}));
}

TEST(MenuWords, OfTheVerdictsOnHandTheJunkStandsBeforeAll) {
    Session session;
    session.publish(1500, 12, 40);
    EXPECT_EQ(menuWords(session).symbol, "tray");
    EXPECT_EQ(menuWords(session).lines,
              always({words("1,500 junk of 1,552"), words("Automatic: Off")}));
}

TEST(MenuWords, WhatWasMovedIsNoJunkAnyMoreButCountsAmongAll) {
    Session session;
    session.publish(3, 2);
    session->movedAlready.set({"1@x.com", "2@x.com"});
    EXPECT_EQ(menuWords(session).lines.front(), words("1 junk of 5"));
    session->movedAlready.set({"1@x.com", "2@x.com", "3@x.com", "4@x.com", "5@x.com"});
    EXPECT_EQ(menuWords(session).lines.front(), words("0 junk of 5"));
}

TEST(MenuWords, AScanTellsItsPaceAndCanBeStopped) {
    Session session;
    scan(session, 811, 1622, 41.66);
    EXPECT_EQ(menuWords(session).symbol, "tray.full.fill");
    EXPECT_EQ(menuWords(session).lines, always({words("Sorting 811 / 1,622"),
                                                words("41.7 a second"),
                                                words("about a minute left"),
                                                {},
                                                {"Stop", Command::stop}}));
}

TEST(MenuWords, AScanOfWhichNothingIsKnownYetTellsNoTimeLeft) {
    Session session;
    scan(session, 0, 0, 0);
    EXPECT_EQ(menuWords(session).lines,
              always({words("Sorting 0 / 0"), words("0.0 a second"), {}, {"Stop", Command::stop}}));
}

TEST(MenuWords, AMoveTellsItsSizeAndNothingOfTheSchedule) {
    Session session;
    session->moving.set(true);
    session->moveTotal.set(1234);
    session->movedCount.set(10);
    EXPECT_EQ(menuWords(session).symbol, "tray");
    EXPECT_EQ(menuWords(session).lines, always({words("Moving 1,234\u2026")}));
}

TEST(MenuWords, OnlyTheFirstThatGoesOnIsTold) {
    Session session;
    session.publish(3, 2);
    session->moving.set(true);
    session->moveTotal.set(3);
    EXPECT_EQ(menuWords(session).lines, always({words("Moving 3\u2026")}));
    scan(session, 1, 2, 0.25);
    EXPECT_EQ(menuWords(session).lines.front(), words("Sorting 1 / 2"));
    EXPECT_EQ(menuWords(session).lines.size(), 7u);
}

}  // namespace
}  // namespace brindlet
