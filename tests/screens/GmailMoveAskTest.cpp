#include "screens/MovingStage.h"

// A move out of a Gmail account asks its question first, over the results.

namespace brindlet::testing {
namespace {

void onGmail(AppState& state) {
    scenes::results(state);
    state.account.mutate(
        [](auto& account) { account->folders.push_back(folder(4, "[Gmail]/All Mail", 900)); });
}

TEST(GmailMoveAsk, AsksBeforeAnythingMoves) {
    MovingStage stage(onGmail);
    ASSERT_TRUE(stage.click("move"));
    ASSERT_NE(stage.await("gmailAsk"), nullptr);
    EXPECT_EQ(stage.state->askThen, AppState::GmailThen::move);
    EXPECT_FALSE(*stage.state->moving);
    EXPECT_FALSE(*stage.state->interrupted.pending);
    EXPECT_EQ(stage.focused(), QStringLiteral("allowGmail"));
}

TEST(GmailMoveAsk, DeclinedItGoesOnThroughTheMailProgram) {
    MovingStage stage(onGmail);
    ASSERT_TRUE(stage.click("move"));
    ASSERT_TRUE(stage.click("declineGmail"));
    EXPECT_FALSE(stage.stands("gmailAsk"));
    EXPECT_TRUE(*stage.state->moving);
    stage.finish();
    EXPECT_EQ(stage.world.processes.launches().size(), 1u);
    EXPECT_TRUE(stage.world.tls.made().empty());
    EXPECT_FALSE(stage.state->askingGmail->has_value());
}

TEST(GmailMoveAsk, EscapeIsNotNowThereToo) {
    MovingStage stage(onGmail);
    ASSERT_TRUE(stage.tabTo("move"));
    stage.press(Qt::Key_Return);
    ASSERT_NE(stage.await("gmailAsk"), nullptr);
    stage.press(Qt::Key_Escape);
    stage.settle();
    EXPECT_TRUE(*stage.state->moving);
    EXPECT_EQ(stage.focused(), QStringLiteral("stopMove"))
        << "the button in the place of the first";
    stage.finish();
}

}  // namespace
}  // namespace brindlet::testing
