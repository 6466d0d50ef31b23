#include <gtest/gtest.h>

#include <QDirIterator>
#include <QFile>
#include <QTest>

#include "screens/Stage.h"

namespace brindlet::testing {
namespace {

/// Whether the wheel that tells of a wait is turning.
bool turns(const QQuickItem* spinner) {
    for (const auto* child : spinner->findChildren<QObject*>())
        if (child->inherits("QQuickRotationAnimation")) return child->property("running").toBool();
    ADD_FAILURE() << "nothing there that could turn";
    return false;
}

const QQuickItem* spinnerIn(const QQuickItem* item) {
    if (item->inherits("brindlet::screens::Ring")) return item;
    for (const auto* child : item->childItems())
        if (const auto* found = spinnerIn(child)) return found;
    return nullptr;
}

void checkMailboxes(AppState& state) {
    scenes::mailboxes(state);
    state.refreshingFolders.set(true);
}

TEST(Motion, IsNoneWhereThePersonWantsNone) {
    Stage stage;
    stage.model().setStill(true);
    for (const auto screen : {AppState::Screen::permission, AppState::Screen::pick}) {
        stage.state->navigate(screen);
        QCoreApplication::processEvents();
        EXPECT_TRUE(stage.window()->property("settled").toBool());
        const auto* stood =
            stage.find(screen == AppState::Screen::pick ? QStringLiteral("pickScreen")
                                                        : QStringLiteral("permissionScreen"));
        ASSERT_NE(stood, nullptr);
        EXPECT_EQ(stood->parentItem()->opacity(), 1);
        EXPECT_EQ(stood->mapToScene(QPointF()), QPointF());
    }
}

TEST(Motion, AScreenComesInSoftlyElsewhere) {
    Stage stage;
    stage.state->navigate(AppState::Screen::permission);
    ASSERT_TRUE(QTest::qWaitFor([&] { return stage.find(QStringLiteral("permissionScreen")); }));
    EXPECT_FALSE(stage.window()->property("settled").toBool());
    stage.settle();
    EXPECT_EQ(stage.find(QStringLiteral("permissionScreen"))->parentItem()->opacity(), 1);
}

TEST(Motion, AWheelStandsAsSoonAsNothingMayMoveAndTurnsAgain) {
    Stage stage(checkMailboxes);
    const auto* wheel = spinnerIn(stage.await(QStringLiteral("checking")));
    ASSERT_NE(wheel, nullptr);
    EXPECT_TRUE(turns(wheel));
    stage.model().setStill(true);
    EXPECT_FALSE(turns(wheel));
    EXPECT_TRUE(wheel->isVisible());
    stage.model().setStill(false);
    EXPECT_TRUE(turns(wheel));
}

TEST(Motion, SheetsMenusAndSwitchesAreAtTheirEndAtOnce) {
    Stage stage(scenes::gmail);
    stage.model().setStill(true);
    ASSERT_TRUE(stage.click(QStringLiteral("skip")));
    ASSERT_TRUE(stage.tabTo(QStringLiteral("reach")));
    stage.press(Qt::Key_Space);
    const auto* popup = stage.find(QStringLiteral("reach"))->property("popup").value<QObject*>();
    EXPECT_TRUE(popup->property("opened").toBool());
    stage.press(Qt::Key_Escape);
    EXPECT_FALSE(popup->property("visible").toBool());
    ASSERT_TRUE(stage.click(QStringLiteral("gmailControl")));
    const auto* sheet = stage.find(QStringLiteral("gmailAsk"));
    ASSERT_NE(sheet, nullptr);
    stage.press(Qt::Key_Escape);
    EXPECT_EQ(stage.find(QStringLiteral("gmailAsk")), nullptr);
    EXPECT_EQ(stage.main->warnings(), QStringList());
}

TEST(Motion, EveryDurationIsOneOfTheTheme) {
    QDirIterator files(QStringLiteral(BRINDLET_SOURCES "/screens"), {QStringLiteral("*.qml")},
                       QDir::Files, QDirIterator::Subdirectories);
    int durations = 0;
    while (files.hasNext()) {
        QFile file(files.next());
        ASSERT_TRUE(file.open(QIODevice::ReadOnly));
        for (const auto& line : QString::fromUtf8(file.readAll()).split(u'\n')) {
            if (!line.contains(QLatin1String("duration:"))) continue;
            ++durations;
            EXPECT_TRUE(line.contains(QLatin1String("duration: Theme.")))
                << file.fileName().toStdString() << ": " << line.toStdString();
        }
    }
    EXPECT_GT(durations, 10);
}

}  // namespace
}  // namespace brindlet::testing
