#include "words/WelcomeWords.h"

#include <gtest/gtest.h>

#include "words/Session.h"

namespace brindlet {
namespace {

using Lines = std::vector<std::string>;

Lines texts(const AppState& state) {
    Lines lines;
    for (const auto& link : homeLinks(state)) lines.push_back(link.text);
    return lines;
}

ScanRecord record(std::size_t moved) {
    ScanRecord made;
    made.started = Date::fromUnix(1'700'000'000);
    made.account = "ann@x.com";
    made.folder = "INBOX";
    made.moved.resize(moved);
    return made;
}

TEST(HomeLinks, AtFirstThereAreTheRulesAndTheSchedule) {
    Session session;
    EXPECT_EQ(texts(session), (Lines{"Manage rules", "Automatic sorting"}));
}

TEST(HomeLinks, RulesOfBothKindsAreCounted) {
    Session session;
    session->rules.add("a@x.com", {}, Rule::Verdict::junk, Rule::Scope::always, "", {});
    session->rules.add("b@x.com", {}, Rule::Verdict::keep, Rule::Scope::session, "", {});
    EXPECT_EQ(texts(session), (Lines{"Manage rules (2)", "Automatic sorting"}));
}

TEST(HomeLinks, WhatWasFiledIsToldOnceSomethingWas) {
    Session session;
    session->history.add(record(0));
    EXPECT_EQ(texts(session), (Lines{"Manage rules", "Automatic sorting", "History"}));
    session->history.add(record(1284));
    EXPECT_EQ(texts(session), (Lines{"1,284 messages filed so far", "Manage rules",
                                     "Automatic sorting", "History"}));
}

TEST(HomeLinks, ABinAloneIsHistoryToo) {
    Session session;
    session->history.add(record(3));
    session->history.deleteRecord(record(3));
    EXPECT_EQ(texts(session), (Lines{"Manage rules", "Automatic sorting", "History"}));
}

TEST(HomeLinks, EachLeadsToItsScreenUnderItsSymbol) {
    Session session;
    session->history.add(record(1));
    const std::vector<HomeLink> expected{
        {HomeLink::To::history, "list.bullet.rectangle", "1 messages filed so far"},
        {HomeLink::To::rules, "wand.and.stars", "Manage rules"},
        {HomeLink::To::automatic, "clock.arrow.2.circlepath", "Automatic sorting"},
        {HomeLink::To::history, "clock.arrow.circlepath", "History"}};
    EXPECT_EQ(homeLinks(session), expected);
}

TEST(HomeLinks, MailboxesAreCountedWhileTheScheduleIsOn) {
    Session session;
    session->schedule.setEnabled(true);
    EXPECT_EQ(texts(session).back(), "Automatic sorting") << "with nothing picked";
    session->schedule.toggle("ann", "INBOX");
    EXPECT_EQ(texts(session).back(), "Automatic: 1 mailbox");
    session->schedule.toggle("ann", "Lists");
    EXPECT_EQ(texts(session).back(), "Automatic: 2 mailboxes");
    session->schedule.setEnabled(false);
    EXPECT_EQ(texts(session).back(), "Automatic sorting");
}

}  // namespace
}  // namespace brindlet
