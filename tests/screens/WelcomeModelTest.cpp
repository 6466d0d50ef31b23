#include <gtest/gtest.h>

#include "screens/Stage.h"

namespace brindlet::testing {
namespace {

TEST(WelcomeLinks, LeadToTheirScreensAndBack) {
    Stage stage([](AppState& state) {
        ScanRecord record;
        record.folder = "INBOX";
        state.history.add(record);
    });
    const std::vector<std::pair<const char*, AppState::Screen>> links{
        {"link0", AppState::Screen::rules},
        {"link1", AppState::Screen::automatic},
        {"link2", AppState::Screen::history}};
    for (const auto& [link, screen] : links) {
        ASSERT_TRUE(stage.click(QLatin1String(link)));
        EXPECT_EQ(*stage.state->screen, screen) << link;
        stage.settle();
        stage.press(Qt::Key_Escape);
        stage.settle();
        EXPECT_EQ(*stage.state->screen, AppState::Screen::welcome);
    }
}

TEST(WelcomeLinks, AFirstVisitKnowsOfNothingFiledAndOfNoRules) {
    Stage stage;
    EXPECT_EQ(stage.find(QStringLiteral("link0"))->property("text"),
              QStringLiteral("Manage rules"));
    for (const auto* item : stage.items()) {
        const auto text = item->property("text").toString();
        EXPECT_FALSE(text.contains(QLatin1String("filed"))) << text.toStdString();
        EXPECT_NE(text, QStringLiteral("History"));
    }
}

TEST(WelcomeLinks, WhatWasFiledAndTaughtIsToldAndLeadsThere) {
    Stage stage([](AppState& state) {
        state.history.add(scanRecord(state, 1, "INBOX", 3));
        state.rules.add("a@x.example", {}, Rule::Verdict::junk, Rule::Scope::always, "", {});
    });
    const auto* filed = stage.find(QStringLiteral("link0"));
    EXPECT_EQ(filed->property("text"), QStringLiteral("3 messages filed so far"));
    EXPECT_EQ(filed->property("symbol"), QStringLiteral("list.bullet.rectangle"));
    const auto* rules = stage.find(QStringLiteral("link1"));
    EXPECT_EQ(rules->property("text"), QStringLiteral("Manage rules (1)"));
    EXPECT_EQ(rules->property("symbol"), QStringLiteral("wand.and.stars"));
    ASSERT_TRUE(stage.tabTo(QStringLiteral("link0")));
    stage.press(Qt::Key_Return);
    EXPECT_EQ(*stage.state->screen, AppState::Screen::history);
}

TEST(WelcomeLinks, OneThatIsNotThereLeadsNowhere) {
    Stage stage;
    stage.model().welcome()->follow(-1);
    stage.model().welcome()->follow(2);
    EXPECT_EQ(*stage.state->screen, AppState::Screen::welcome);
}

}  // namespace
}  // namespace brindlet::testing
