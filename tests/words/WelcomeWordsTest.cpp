#include "words/WelcomeWords.h"

#include <gtest/gtest.h>

#include "words/Session.h"

namespace brindlet {
namespace {

std::vector<std::string> texts(const AppState& state) {
    std::vector<std::string> lines;
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

TEST(HomeLinks, AtFirstThereAreOnlyTheRulesToManage) {
    Session session;
    EXPECT_EQ(texts(session), std::vector<std::string>{"Manage rules"});
}

TEST(HomeLinks, RulesOfBothKindsAreCounted) {
    Session session;
    session->rules.add("a@x.com", {}, Rule::Verdict::junk, Rule::Scope::always, "", {});
    session->rules.add("b@x.com", {}, Rule::Verdict::keep, Rule::Scope::session, "", {});
    EXPECT_EQ(texts(session), std::vector<std::string>{"Manage rules (2)"});
}

TEST(HomeLinks, WhatWasFiledIsToldOnceSomethingWas) {
    Session session;
    session->history.add(record(0));
    EXPECT_EQ(texts(session), (std::vector<std::string>{"Manage rules", "History"}));
    session->history.add(record(1284));
    EXPECT_EQ(texts(session),
              (std::vector<std::string>{"1,284 messages filed so far", "Manage rules", "History"}));
}

TEST(HomeLinks, ABinAloneIsHistoryToo) {
    Session session;
    session->history.add(record(3));
    session->history.deleteRecord(record(3));
    EXPECT_EQ(texts(session), (std::vector<std::string>{"Manage rules", "History"}));
}

TEST(HomeLinks, EachLeadsToItsScreenUnderItsSymbol) {
    Session session;
    session->history.add(record(1));
    const std::vector<HomeLink> expected{
        {HomeLink::To::history, "list.bullet.rectangle", "1 messages filed so far"},
        {HomeLink::To::rules, "wand.and.stars", "Manage rules"},
        {HomeLink::To::history, "clock.arrow.circlepath", "History"}};
    EXPECT_EQ(homeLinks(session), expected);
}

}  // namespace
}  // namespace brindlet
