#include <gtest/gtest.h>

#include "screens/Stage.h"

namespace brindlet::testing {
namespace {

TEST(WelcomeLinks, LeadToRulesAndHistoryAndBack) {
    Stage stage([](AppState& state) {
        ScanRecord record;
        record.folder = "INBOX";
        state.history.add(record);
    });
    ASSERT_TRUE(stage.click(QStringLiteral("link0")));
    EXPECT_EQ(*stage.state->screen, AppState::Screen::rules);
    stage.settle();
    stage.press(Qt::Key_Escape);
    stage.settle();
    EXPECT_EQ(*stage.state->screen, AppState::Screen::welcome);
    ASSERT_TRUE(stage.click(QStringLiteral("link1")));
    EXPECT_EQ(*stage.state->screen, AppState::Screen::history);
}

TEST(WelcomeLinks, OneThatIsNotThereLeadsNowhere) {
    Stage stage;
    stage.model().welcome()->follow(-1);
    stage.model().welcome()->follow(1);
    EXPECT_EQ(*stage.state->screen, AppState::Screen::welcome);
}

}  // namespace
}  // namespace brindlet::testing
