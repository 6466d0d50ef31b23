#include <gtest/gtest.h>

#include <QPointer>
#include <QSignalSpy>
#include <QTest>

#include "screens/Stage.h"

namespace brindlet::testing {
namespace {

/// Closes the window as the desktop does, until nothing of it is left.
void close(const Stage& stage) {
    const QPointer<QQuickWindow> window = stage.window();
    window->close();
    ASSERT_TRUE(QTest::qWaitFor([&] { return window.isNull(); }));
    EXPECT_EQ(stage.window(), nullptr);
}

void reopen(const Stage& stage) {
    ASSERT_TRUE(stage.main->show());
    ASSERT_TRUE(QTest::qWaitForWindowExposed(stage.window()));
    stage.settle();
}

TEST(Closing, EndsAllThatWasBuiltForTheWindow) {
    Stage stage(scenes::openResults);
    const QPointer<QQuickItem> screen = stage.await("resultsScreen");
    close(stage);
    EXPECT_TRUE(screen.isNull());
    EXPECT_EQ(stage.main->warnings(), QStringList());
}

TEST(Closing, TheNextWindowComesAtTheSamePlaceAndSize) {
    Stage stage;
    stage.window()->setGeometry(40, 30, 1000, 660);
    stage.settle();
    close(stage);
    reopen(stage);
    EXPECT_EQ(stage.window()->geometry(), QRect(40, 30, 1000, 660));
    EXPECT_EQ(stage.window()->minimumSize(), QSize(980, 640));
}

TEST(Closing, AMaximisedWindowComesBackMaximised) {
    Stage stage;
    stage.window()->setGeometry(40, 30, 1000, 660);
    stage.settle();
    stage.window()->showMaximized();
    stage.settle();
    close(stage);
    reopen(stage);
    EXPECT_TRUE(stage.window()->windowStates().testFlag(Qt::WindowMaximized));
}

TEST(Closing, TheNextWindowShowsWhatTheSessionHasComeTo) {
    Stage stage(scenes::scanning);
    close(stage);
    scenes::results(*stage.state);
    QCoreApplication::processEvents();
    reopen(stage);
    EXPECT_NE(stage.find("resultsScreen"), nullptr);
    EXPECT_EQ(stage.find("scanningScreen"), nullptr);
    EXPECT_EQ(stage.main->warnings(), QStringList());
}

TEST(Closing, NoScreenIsRefreshedWhileThereIsNone) {
    Stage stage(scenes::scanning);
    close(stage);
    const QSignalSpy words(stage.model().scanning(), &screens::ScanningModel::wordsChanged);
    stage.state->done.set(1000);
    QCoreApplication::processEvents();
    EXPECT_EQ(words.count(), 0);
    reopen(stage);
    EXPECT_GT(words.count(), 0);
    EXPECT_EQ(stage.find("percent")->property("text").toString(), "61%");
}

TEST(Closing, LeavesTheScreenAndForgetsTheRulesThatWereMarked) {
    Stage stage(scenes::rules);
    auto& rules = *stage.model().rules()->rules();
    const auto count = stage.state->rules.combined().size();
    int row = 0;
    while (rules.index(row).data(screens::RuleRowsModel::KindRole) !=
           screens::RuleRowsModel::RuleItem)
        ++row;
    rules.toggleMark(row);
    EXPECT_EQ(stage.state->rules.combined().size(), count);
    close(stage);
    EXPECT_EQ(stage.state->rules.combined().size(), count - 1);
    reopen(stage);
    close(stage);
    EXPECT_EQ(stage.state->rules.combined().size(), count - 1);
}

TEST(Closing, AScreenThatLooksAtItsComingDoesSoAgain) {
    Stage stage(scenes::mailboxes);
    close(stage);
    stage.state->refreshingFolders.set(false);
    reopen(stage);
    EXPECT_TRUE(*stage.state->refreshingFolders);
}

TEST(Closing, AQuestionThatWasOpenStandsAgain) {
    Stage stage(scenes::askedAboutGmail);
    close(stage);
    EXPECT_TRUE(stage.state->askingGmail->has_value());
    reopen(stage);
    EXPECT_NE(stage.find("gmailAsk"), nullptr);
    EXPECT_EQ(stage.main->warnings(), QStringList());
}

TEST(Closing, ByKeysWhateverStandsOverTheScreen) {
    Stage stage(scenes::askedAboutGmail);
    const QPointer<QQuickWindow> window = stage.window();
    QTest::keyClick(window, Qt::Key_W, Qt::ControlModifier);
    EXPECT_TRUE(QTest::qWaitFor([&] { return window.isNull(); }));
}

TEST(Quitting, ByKeysWhateverStandsOverTheScreen) {
    for (const auto scene : {scenes::noAccounts, scenes::askedAboutGmail}) {
        Stage stage(scene);
        const QSignalSpy asked(stage.main.get(), &MainWindow::quitAsked);
        stage.press(Qt::Key_Q, Qt::ControlModifier);
        EXPECT_EQ(asked.count(), 1);
        stage.press(Qt::Key_Q);
        EXPECT_EQ(asked.count(), 1);
    }
}

TEST(Quitting, ByTheScanThatCouldNotRead) {
    Stage stage(scenes::stoppedScan);
    const QSignalSpy asked(stage.main.get(), &MainWindow::quitAsked);
    ASSERT_TRUE(stage.click("quit"));
    EXPECT_EQ(asked.count(), 1);
}

}  // namespace
}  // namespace brindlet::testing
