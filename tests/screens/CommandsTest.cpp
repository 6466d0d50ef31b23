#include <gtest/gtest.h>

#include <QAccessible>
#include <QSignalSpy>
#include <QTest>

#include "screens/Stage.h"

namespace brindlet::testing {
namespace {

QString textOf(const Stage& stage, const char* name) {
    const auto* item = stage.await(QString::fromLatin1(name));
    return item ? item->property("text").toString() : QString();
}

TEST(Commands, StandInTheCornerAtEverySizeAndLeaveTheScreenAlone) {
    for (const auto scene : {scenes::results, scenes::history, scenes::rules, scenes::mailboxes,
                             scenes::scanning, scenes::permission}) {
        Stage stage(scene);
        for (const auto& size : {QSize(980, 640), QSize(1080, 740), QSize(1600, 1000)}) {
            stage.window()->resize(size);
            stage.settle();
            auto* button = stage.find("commands");
            ASSERT_NE(button, nullptr);
            const auto place = button->mapRectToScene(button->boundingRect());
            EXPECT_TRUE(QRectF(QPointF(), size).contains(place));
            for (auto* stop : stage.tabStops())
                EXPECT_FALSE(place.intersects(stop->mapRectToScene(stop->boundingRect())))
                    << stop->objectName().toStdString();
        }
    }
}

TEST(Commands, ComeByTheMouse) {
    Stage stage;
    ASSERT_TRUE(stage.click("commands"));
    EXPECT_EQ(textOf(stage, "about"), "About Brindlet");
    EXPECT_EQ(textOf(stage, "checkForUpdates"), "Check for Updates\u2026");
    EXPECT_EQ(textOf(stage, "quitBrindlet"), "Quit Brindlet");
    ASSERT_TRUE(stage.click("commands"));
    EXPECT_EQ(stage.find("about"), nullptr);
    EXPECT_EQ(stage.focused(), "start");
}

TEST(Commands, ComeByKeysAndGiveTheKeyboardBack) {
    for (const auto key : {Qt::Key_F10, Qt::Key_Menu}) {
        Stage stage;
        ASSERT_EQ(stage.focused(), "start");
        stage.press(key);
        EXPECT_TRUE(stage.await("about")->property("highlighted").toBool());
        stage.press(Qt::Key_Escape);
        EXPECT_EQ(stage.find("about"), nullptr);
        EXPECT_EQ(stage.focused(), "start");
    }
}

TEST(Commands, AreNoStopOnTheWayThroughAScreen) {
    Stage stage;
    for (const auto* stop : stage.tabStops()) EXPECT_NE(stop->objectName(), "commands");
}

TEST(Commands, DoNotComeOverAQuestion) {
    Stage stage(scenes::askedAboutGmail);
    stage.press(Qt::Key_F10);
    EXPECT_EQ(stage.find("about"), nullptr);
}

TEST(Commands, ACheckForUpdatesIsThereEvenWhereItCannotBe) {
    Stage stage;
    stage.press(Qt::Key_F10);
    EXPECT_FALSE(stage.await("checkForUpdates")->isEnabled());
    stage.updates.listener.canCheckChanged(true);
    stage.settle();
    EXPECT_TRUE(stage.await("checkForUpdates")->isEnabled());
    ASSERT_TRUE(stage.click("checkForUpdates"));
    EXPECT_EQ(stage.updates.checks, 1);
    EXPECT_EQ(stage.find("checkForUpdates"), nullptr);
}

TEST(Commands, Quit) {
    Stage stage;
    const QSignalSpy asked(stage.main.get(), &MainWindow::quitAsked);
    stage.press(Qt::Key_F10);
    stage.press(Qt::Key_Up);
    stage.press(Qt::Key_Return);
    EXPECT_EQ(asked.count(), 1);
}

TEST(About, TellsWhatTheProgramIsAndGoesAgain) {
    Stage stage;
    stage.press(Qt::Key_F10);
    stage.press(Qt::Key_Return);
    ASSERT_NE(stage.await("aboutSheet"), nullptr);
    EXPECT_EQ(stage.find("about"), nullptr);
    EXPECT_EQ(stage.focused(), "closeAbout");
    EXPECT_EQ(stage.main->commands().version(),
              "Version " + QCoreApplication::applicationVersion());
    EXPECT_FALSE(QCoreApplication::applicationVersion().isEmpty());
    stage.press(Qt::Key_Escape);
    EXPECT_EQ(stage.find("aboutSheet"), nullptr);
    EXPECT_EQ(stage.focused(), "start");

    stage.press(Qt::Key_F10);
    stage.press(Qt::Key_Return);
    ASSERT_TRUE(stage.click("closeAbout"));
    EXPECT_EQ(stage.find("aboutSheet"), nullptr);
    EXPECT_EQ(stage.main->warnings(), QStringList());
}

}  // namespace
}  // namespace brindlet::testing
