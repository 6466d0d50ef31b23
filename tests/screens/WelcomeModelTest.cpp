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

TEST(WelcomeLinks, OneThatIsNotThereLeadsNowhere) {
    Stage stage;
    stage.model().welcome()->follow(-1);
    stage.model().welcome()->follow(2);
    EXPECT_EQ(*stage.state->screen, AppState::Screen::welcome);
}

}  // namespace
}  // namespace brindlet::testing
