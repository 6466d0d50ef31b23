#include <gtest/gtest.h>

#include <QSignalSpy>
#include <QTest>
#include <QWindow>

#include "screens/Reader.h"

namespace brindlet::testing {
namespace {

bool stands(const Stage& stage) {
    return stage.find(QStringLiteral("unsupportedScreen")) != nullptr;
}

TEST(UnsupportedScreen, StandsInPlaceOfEveryOther) {
    Stage stage(scenes::unsupported);
    for (const auto screen : allCases<AppState::Screen>()) {
        SCOPED_TRACE(rawValue(screen));
        stage.state->navigate(screen);
        stage.settle();
        EXPECT_TRUE(stands(stage));
        EXPECT_EQ(*stage.state->screen, screen) << "the session goes on by itself";
    }
    EXPECT_EQ(stage.main->warnings(), QStringList());
}

TEST(UnsupportedScreen, SaysWhatIsTheMatterAndWhenThatChanges) {
    Stage stage(scenes::unsupported);
    const Reader reader(stage);
    EXPECT_EQ(reader.find("Not available")->role(), QAccessible::Heading);
    EXPECT_EQ(
        reader.find("macOS is still downloading the on-device model. Try again shortly.")->role(),
        QAccessible::StaticText);
    stage.world.model.available = ModelAvailability::notEnabled;
    stage.state->stage.set("anything");
    stage.settle();
    EXPECT_NE(reader.find("Turn on Apple Intelligence in System Settings, then reopen Brindlet."),
              nullptr);
}

TEST(UnsupportedScreen, OpensTheSystemsSettings) {
    Stage stage(scenes::unsupported);
    EXPECT_EQ(stage.focused(), QStringLiteral("openSettings"));
    stage.press(Qt::Key_Return);
    EXPECT_TRUE(stage.click(QStringLiteral("openSettings")));
    EXPECT_EQ(stage.world.desktop.opened, (std::vector<std::string>{"settings", "settings"}));
}

TEST(UnsupportedScreen, GivesWayToTheSessionsScreenOnceThereIsAModel) {
    Stage stage(scenes::unsupported);
    stage.state->navigate(AppState::Screen::rules);
    stage.settle();
    stage.world.model.available = ModelAvailability::available;
    stage.state->stage.set("anything");
    EXPECT_NE(stage.await(QStringLiteral("rulesScreen")), nullptr);
    EXPECT_FALSE(stands(stage));
    stage.world.model.available = ModelAvailability::unavailable;
    stage.state->stage.set("something else");
    EXPECT_NE(stage.await(QStringLiteral("unsupportedScreen")), nullptr);
}

TEST(UnsupportedScreen, LooksAgainWhenTheWindowBecomesActive) {
    Stage stage(scenes::unsupported);
    QWindow other;
    other.show();
    other.requestActivate();
    ASSERT_TRUE(QTest::qWaitForWindowActive(&other));
    stage.world.model.available = ModelAvailability::available;
    stage.settle();
    EXPECT_TRUE(stands(stage)) << "nobody has told";
    stage.window()->requestActivate();
    ASSERT_TRUE(QTest::qWaitForWindowActive(stage.window()));
    EXPECT_NE(stage.await(QStringLiteral("welcomeScreen")), nullptr);
}

TEST(UnsupportedScreen, TheQuestionAboutGmailDoesNotStandOverIt) {
    Stage stage(scenes::askedAboutGmail);
    ASSERT_NE(stage.await(QStringLiteral("gmailAsk")), nullptr);
    ASSERT_TRUE(stage.click(QStringLiteral("allowGmail")));
    ASSERT_NE(stage.await(QStringLiteral("appPassword")), nullptr);
    stage.type(QStringLiteral("abcdefghijklmnop"));
    scenes::unsupported(*stage.state);
    ASSERT_NE(stage.await(QStringLiteral("unsupportedScreen")), nullptr);
    EXPECT_EQ(stage.find(QStringLiteral("gmailAsk")), nullptr);
    EXPECT_TRUE(stage.state->askingGmail->has_value()) << "it is not answered";
    ASSERT_TRUE(stage.click(QStringLiteral("openSettings"))) << "nothing dims the screen";
    EXPECT_EQ(stage.world.desktop.opened, std::vector<std::string>{"settings"});

    stage.world.model.available = ModelAvailability::available;
    stage.state->stage.set("anything");
    ASSERT_NE(stage.await(QStringLiteral("gmailAsk")), nullptr);
    EXPECT_EQ(stage.find(QStringLiteral("appPassword")), nullptr) << "it begins anew";
    ASSERT_TRUE(stage.click(QStringLiteral("allowGmail")));
    EXPECT_EQ(stage.await(QStringLiteral("appPassword"))->property("length"), 0);
    EXPECT_FALSE(stage.find(QStringLiteral("allowGmail"))->isEnabled());
}

TEST(UnsupportedScreen, TheScheduleGoesOnBehindIt) {
    Stage stage(scenes::unsupported);
    auto& state = *stage.state;
    state.schedule.setEnabled(true);
    state.schedule.toggle("id of ada@example.org", "INBOX");
    state.startTimer();
    EXPECT_TRUE(stage.world.mainQueue.pumpUntil([&] {
        stage.world.clock.advance(300);
        return state.automaticTask().has_value();
    }));
    stage.settle();
    EXPECT_TRUE(stands(stage));
}

TEST(UnsupportedScreen, ARefreshOfTheSameTellsNobody) {
    Stage stage(scenes::unsupported);
    const QSignalSpy told(stage.model().unsupported(), &screens::UnsupportedModel::textChanged);
    stage.model().lookAgain();
    EXPECT_EQ(told.count(), 0);
}

}  // namespace
}  // namespace brindlet::testing
