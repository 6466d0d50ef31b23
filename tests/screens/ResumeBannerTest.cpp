#include <gtest/gtest.h>

#include "screens/Reader.h"

namespace brindlet::testing {
namespace {

constexpr const char* mailClosed = "Mail isn't open. Open Mail, then try again.";

QString text(const Stage& stage, const char* name) {
    const auto* item = stage.find(QString::fromUtf8(name));
    return item ? item->property("text").toString() : QString();
}

QString trouble(const Stage& stage) {
    return text(stage, "resumeBannerTrouble");
}

void closeMail(Stage& stage) {
    stage.world.runningApps.running.set({});
}

TEST(ResumeBanner, StandsOnlyWhileAMoveIsLeftToFinish) {
    Stage stage;
    EXPECT_EQ(stage.find("resumeBanner"), nullptr);
    scenes::interrupted(*stage.state);
    const auto* banner = stage.await("resumeBanner");
    ASSERT_NE(banner, nullptr);
    EXPECT_EQ(banner->property("title"), QStringLiteral("A move didn't finish"));
    EXPECT_EQ(banner->property("text"),
              QStringLiteral("INBOX reached 412 of 1,834 - 1,422 still to go."));
    stage.state->interrupted.clear();
    stage.settle();
    EXPECT_EQ(stage.find("resumeBanner"), nullptr);
}

TEST(ResumeBanner, StandsAboveTheRoundButton) {
    Stage stage(scenes::interrupted);
    const auto* banner = stage.await("resumeBanner");
    const auto foot = banner->mapToScene(QPointF(0, banner->height())).y();
    EXPECT_LT(foot, stage.find("start")->mapToScene(QPointF()).y());
}

TEST(ResumeBanner, LeavesRoomForAllInTheSmallestWindowWhateverItSays) {
    Stage stage([](AppState& state) {
        scenes::interrupted(state);
        state.interrupted.pending.mutate([](auto& move) {
            move->folderLabel = "Projects/Harbour House with quite a long name of its own";
        });
        state.history.add(scanRecord(state, 1, "INBOX", 3));
    });
    stage.window()->resize(stage.window()->minimumSize());
    closeMail(stage);
    EXPECT_TRUE(stage.click("resume"));
    stage.state->moveError.set(
        "macOS has dropped Brindlet's Full Disk Access - flip it back on in Privacy & Security, "
        "then try again.");
    stage.settle();
    const auto* column = stage.find("start")->parentItem()->parentItem();
    EXPECT_GE(column->mapToScene(QPointF()).y(), 0);
    EXPECT_LE(column->mapToScene(QPointF(0, column->height())).y(), stage.window()->height());
}

TEST(ResumeBanner, ContinueGoesOnWithTheMove) {
    Stage stage(scenes::interrupted);
    EXPECT_TRUE(stage.click("resume"));
    EXPECT_TRUE(*stage.state->moving);
    EXPECT_EQ(*stage.state->moveTotal, 1422);
    EXPECT_EQ(*stage.state->screen, AppState::Screen::results);
}

TEST(ResumeBanner, ForgetLeavesTheRestWhereItIs) {
    Stage stage(scenes::interrupted);
    EXPECT_TRUE(stage.click("forget"));
    EXPECT_FALSE(stage.state->interrupted.pending->has_value());
    EXPECT_FALSE(*stage.state->moving);
    EXPECT_EQ(stage.find("resumeBanner"), nullptr);
    EXPECT_EQ(stage.focused(), QStringLiteral("start")) << "the keyboard is not lost";
}

TEST(ResumeBanner, TellsWhyItCouldNotGoOn) {
    Stage stage(scenes::interrupted);
    closeMail(stage);
    EXPECT_EQ(trouble(stage), QString());
    EXPECT_TRUE(stage.click("resume"));
    EXPECT_EQ(*stage.state->screen, AppState::Screen::welcome);
    EXPECT_EQ(trouble(stage), QString::fromUtf8(mailClosed));
    EXPECT_TRUE(stage.find("resume")->isEnabled()) << "to try again";
}

TEST(ResumeBanner, SaysNothingOfTroubleThatIsNotItsOwn) {
    Stage stage([](AppState& state) {
        scenes::interrupted(state);
        state.moveError.set("Matching this scan to its account - a few seconds.");
    });
    EXPECT_EQ(trouble(stage), QString());
    closeMail(stage);
    EXPECT_TRUE(stage.click("resume"));
    stage.state->navigate(AppState::Screen::history);
    ASSERT_NE(stage.await("historyScreen"), nullptr);
    stage.state->navigate(AppState::Screen::welcome);
    ASSERT_NE(stage.await("resumeBanner"), nullptr);
    EXPECT_EQ(trouble(stage), QString()) << "what was tried before is past";
}

TEST(ResumeBanner, WaitsForTheAccountsWithoutTakingASecondPress) {
    Stage stage([](AppState& state) {
        scenes::interrupted(state);
        state.accounts.set({});
    });
    EXPECT_EQ(stage.find("resumeWait"), nullptr);
    ASSERT_TRUE(stage.tabTo("resume"));
    stage.press(Qt::Key_Space);
    ASSERT_TRUE(*stage.state->loadingAccounts);
    EXPECT_FALSE(stage.find("resume")->isEnabled());
    EXPECT_NE(stage.find("resumeWait"), nullptr);
    EXPECT_TRUE(stage.find("forget")->isEnabled());
    EXPECT_EQ(trouble(stage), QString());

    ASSERT_TRUE(stage.world.mainQueue.pumpUntil([&] { return !*stage.state->loadingAccounts; }));
    stage.settle();
    EXPECT_TRUE(trouble(stage).startsWith(QStringLiteral("macOS has dropped")));
    EXPECT_TRUE(stage.find("resume")->isEnabled());
    EXPECT_EQ(stage.find("resumeWait"), nullptr);
    EXPECT_EQ(stage.focused(), QStringLiteral("resume")) << "where the keyboard was";
}

TEST(ResumeBanner, DoesNotCallTheKeyboardBackFromWhereItWent) {
    Stage stage([](AppState& state) {
        scenes::interrupted(state);
        state.accounts.set({});
    });
    ASSERT_TRUE(stage.tabTo("resume"));
    stage.press(Qt::Key_Space);
    ASSERT_TRUE(stage.tabTo("start"));
    ASSERT_TRUE(stage.world.mainQueue.pumpUntil([&] { return !*stage.state->loadingAccounts; }));
    stage.settle();
    EXPECT_TRUE(stage.find("resume")->isEnabled());
    EXPECT_EQ(stage.focused(), QStringLiteral("start"));
}

TEST(ResumeBanner, CannotBeginAMoveThatRuns) {
    Stage stage(scenes::interrupted);
    stage.state->moving.set(true);
    stage.settle();
    EXPECT_FALSE(stage.find("resume")->isEnabled());
    stage.state->moving.set(false);
    stage.settle();
    EXPECT_TRUE(stage.find("resume")->isEnabled());
}

TEST(ResumeBanner, IsReachedByTabBeforeTheRoundButton) {
    Stage stage(scenes::interrupted);
    ASSERT_EQ(stage.focused(), QStringLiteral("start"));
    stage.press(Qt::Key_Backtab, Qt::ShiftModifier);
    EXPECT_EQ(stage.focused(), QStringLiteral("forget"));
    stage.press(Qt::Key_Backtab, Qt::ShiftModifier);
    EXPECT_EQ(stage.focused(), QStringLiteral("resume"));
    stage.press(Qt::Key_Return);
    EXPECT_TRUE(*stage.state->moving);
}

TEST(ResumeBanner, IsAnAlertToAScreenReaderAndItsButtonsCanBePressed) {
    Stage stage(scenes::interrupted);
    closeMail(stage);
    const Reader reader(stage);
    auto* banner = reader.find("A move didn't finish", QAccessible::AlertMessage);
    ASSERT_NE(banner, nullptr);
    const auto line = QStringLiteral("INBOX reached 412 of 1,834 - 1,422 still to go.");
    EXPECT_EQ(banner->text(QAccessible::Description), line);
    press(named(banner, QStringLiteral("Continue"), QAccessible::Button));
    stage.settle();
    EXPECT_EQ(banner->text(QAccessible::Description),
              line + QLatin1Char(' ') + QString::fromUtf8(mailClosed));
    press(named(banner, QStringLiteral("Forget the rest of this move"), QAccessible::Button));
    stage.settle();
    EXPECT_FALSE(stage.state->interrupted.pending->has_value());
}

}  // namespace
}  // namespace brindlet::testing
