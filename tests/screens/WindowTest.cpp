#include <gtest/gtest.h>

#include <QTest>
#include <utility>

#include "app/demo/PictureCheck.h"
#include "base/Files.h"
#include "platform/Directories.h"
#include "screens/Golden.h"
#include "screens/Stage.h"

namespace brindlet::testing {
namespace {

using Scene = std::pair<const char*, void (*)(AppState&)>;
const std::vector<Scene> allScenes{
    {"welcome", [](AppState&) {}},
    {"interrupted move", scenes::interrupted},
    {"permission", scenes::permission},
    {"unsupported", scenes::unsupported},
    {"mailboxes", scenes::mailboxes},
    {"chosen mailbox", scenes::chosenMailbox},
    {"gmail", scenes::gmail},
    {"asked about gmail", scenes::askedAboutGmail},
    {"no accounts", scenes::noAccounts},
    {"scanning", scenes::scanning},
    {"paused scan", scenes::pausedScan},
    {"results", scenes::results},
    {"open results", scenes::openResults},
    {"moving", scenes::moving},
    {"failed move", scenes::failedMove},
    {"stopped scan", scenes::stoppedScan},
    {"corrected results", scenes::correctedResults},
    {"moved results", scenes::movedResults},
    {"nothing found", scenes::nothingFound},
    {"history", scenes::history},
    {"long history", scenes::longHistory},
    {"taught history", scenes::taughtHistory},
    {"empty history", scenes::emptyHistory},
    {"automatic", scenes::automatic},
    {"automatic off", scenes::automaticOff},
    {"automatic at first", scenes::automaticAtFirst},
    {"no rules", scenes::noRules},
    {"rules", scenes::rules},
};

class EveryScreen : public ::testing::TestWithParam<Scene> {};

INSTANTIATE_TEST_SUITE_P(Window, EveryScreen, ::testing::ValuesIn(allScenes),
                         [](const auto& scene) {
                             std::string name = scene.param.first;
                             for (auto& letter : name)
                                 if (letter == ' ') letter = '_';
                             return name;
                         });

TEST_P(EveryScreen, LoadsWithoutAComplaintInBothLooksAndAtTheSmallestSize) {
    Stage stage(GetParam().second);
    stage.model().setDark(false);
    stage.settle();
    stage.window()->resize(stage.window()->minimumSize());
    stage.settle();
    EXPECT_FALSE(stage.window()->grabWindow().isNull());
    EXPECT_EQ(stage.main->warnings(), QStringList());
}

TEST_P(EveryScreen, KeepsItsControlsInsideTheSmallestWindow) {
    Stage stage(GetParam().second);
    stage.window()->resize(stage.window()->minimumSize());
    stage.settle();
    const QRectF frame(0, 0, stage.window()->width(), stage.window()->height());
    const bool scrolls =
        stage.find("resultsPage") || stage.find("historyPage") || stage.find("rulesScreen");
    for (auto* item : stage.tabStops()) {
        const auto place = item->mapRectToScene(QRectF(0, 0, item->width(), item->height()));
        EXPECT_GE(place.left(), 0) << item->objectName().toStdString();
        EXPECT_LE(place.right(), frame.right()) << item->objectName().toStdString();
        if (!scrolls) {
            EXPECT_TRUE(frame.contains(place)) << item->objectName().toStdString();
        }
    }
}

TEST_P(EveryScreen, IsLegibleWholeAndFreeOfOverlapsInBothLooks) {
    for (const bool dark : {true, false}) {
        Stage stage(GetParam().second, Stage::Motion::none);
        stage.model().setDark(dark);
        const auto faults = demo::pictureFaults(*stage.window(), pictureOf(stage));
        EXPECT_TRUE(faults.isEmpty())
            << (dark ? "dark: " : "light: ") << faults.join(u'\n').toStdString();
    }
}

TEST(Window, IsNamedAndNoSmallerThanItsContentNeeds) {
    Stage stage;
    EXPECT_EQ(stage.window()->title(), QStringLiteral("Brindlet"));
    EXPECT_EQ(stage.window()->minimumSize(), QSize(980, 640));
}

TEST(Window, ShowsTheScreenOfTheSession) {
    Stage stage;
    const std::vector<std::pair<AppState::Screen, const char*>> screens{
        {AppState::Screen::permission, "permissionScreen"},
        {AppState::Screen::pick, "pickScreen"},
        {AppState::Screen::scanning, "scanningScreen"},
        {AppState::Screen::results, "resultsScreen"},
        {AppState::Screen::automatic, "automaticScreen"},
        {AppState::Screen::history, "historyScreen"},
        {AppState::Screen::rules, "rulesScreen"},
        {AppState::Screen::welcome, "welcomeScreen"},
    };
    for (const auto& [screen, name] : screens) {
        stage.state->navigate(screen);
        EXPECT_NE(stage.await(name), nullptr) << name;
    }
}

TEST(Window, StartAsksForThePermissionThatIsMissing) {
    Stage stage;
    EXPECT_TRUE(stage.click("start"));
    EXPECT_EQ(*stage.state->screen, AppState::Screen::permission);
    EXPECT_TRUE(stage.click("openSettings"));
    EXPECT_EQ(stage.world.desktop.opened, std::vector<std::string>{"disk access settings"});
}

TEST(Window, CheckMovesOnAsSoonAsTheMailFilesCanBeRead) {
    std::string index;
    Stage stage([&](AppState& state) {
        const auto data = state.services().directories.home() + "/Library/Mail/V10/MailData";
        index = data + "/Envelope Index";
        ASSERT_TRUE(files::createDirectories(data));
        ASSERT_TRUE(files::write(index, ""));
        scenes::permission(state);
    });
    EXPECT_TRUE(stage.click("check"));
    EXPECT_EQ(*stage.state->screen, AppState::Screen::permission) << "an empty file tells nothing";
    ASSERT_TRUE(files::write(index, "x"));
    EXPECT_TRUE(stage.click("check"));
    EXPECT_EQ(*stage.state->screen, AppState::Screen::pick);
    EXPECT_NE(stage.await("pickScreen"), nullptr);
}

TEST(Window, AClickOnAMailboxMakesTheRoundButtonReady) {
    Stage stage(scenes::mailboxes);
    ASSERT_NE(stage.await("sort"), nullptr);
    EXPECT_FALSE(stage.find("sort")->isEnabled());
    auto* list = stage.find("folders");
    QTest::mouseClick(stage.window(), Qt::LeftButton, {},
                      list->mapToScene(QPointF(200, 28)).toPoint());
    stage.settle();
    EXPECT_TRUE(stage.find("sort")->isEnabled());
    EXPECT_EQ(stage.state->folder->value().name, "INBOX");
}

TEST(Window, AClickHitsTheMailboxUnderThePointerAlsoAfterScrolling) {
    Stage stage(scenes::mailboxes);
    stage.window()->resize(stage.window()->minimumSize());
    auto* list = stage.await("folders");
    ASSERT_TRUE(QMetaObject::invokeMethod(list, "positionViewAtEnd"));
    stage.settle();
    ASSERT_GT(list->property("contentY").toDouble(), 30);
    QTest::mouseClick(stage.window(), Qt::LeftButton, {},
                      list->mapToScene(QPointF(200, list->height() - 28)).toPoint());
    stage.settle();
    ASSERT_TRUE(stage.state->folder->has_value());
    EXPECT_EQ(stage.state->folder->value().name, "Trash");
}

TEST(Window, TheBarOfAVanishedFolderCanBeDismissed) {
    Stage stage(scenes::chosenMailbox);
    EXPECT_NE(stage.find("vanishedBar"), nullptr);
    EXPECT_TRUE(stage.click("dismiss"));
    EXPECT_EQ(stage.find("vanishedBar"), nullptr);
}

TEST(Window, AskingAgainForAccountsShowsThatTheyAreLookedFor) {
    Stage stage(scenes::noAccounts);
    EXPECT_TRUE(stage.click("checkAgain"));
    auto* title = stage.await("noticeTitle");
    ASSERT_NE(title, nullptr);
    EXPECT_EQ(title->property("text"), QStringLiteral("Finding your mailboxes"));
}

TEST(Window, TheSkipSwitchShowsOnlyWhatTheSessionSays) {
    Stage stage(scenes::mailboxes);
    auto* skip = stage.await("skip");
    EXPECT_TRUE(skip->property("checked").toBool());
    EXPECT_TRUE(stage.click("skip"));
    EXPECT_FALSE(stage.state->seen.skipSeen());
    EXPECT_FALSE(skip->property("checked").toBool());
    stage.state->seen.setSkipSeen(true);
    stage.settle();
    EXPECT_TRUE(skip->property("checked").toBool());
}

TEST(Window, TheBatterySwitchStandsOnlyWhileTheScanIsPaused) {
    Stage stage(scenes::scanning);
    EXPECT_EQ(stage.find("keepScanning"), nullptr);
    scenes::pausedScan(*stage.state);
    EXPECT_NE(stage.await("keepScanning"), nullptr);
    EXPECT_TRUE(stage.click("keepScanning"));
    EXPECT_FALSE(stage.state->schedule.pauseOnBattery());
}

TEST(Window, ALongCategoryIsALazyListInAFrameOfItsOwn) {
    Stage stage([](AppState& state) {
        scenes::openResults(state);
        state.verdicts.set(verdicts(50'000));
    });
    auto* list = stage.await("messages");
    ASSERT_NE(list, nullptr);
    EXPECT_EQ(list->property("count").toInt(), 5'001) << "the heading among them";
    EXPECT_EQ(list->height(), 352);
    EXPECT_NE(stage.find("scrollLine"), nullptr);
    const auto rows = list->property("contentItem").value<QQuickItem*>()->childItems().size();
    EXPECT_LT(rows, 30) << "no more rows exist than show";
}

TEST(Window, AShortCategoryHasNoScrollLine) {
    Stage stage([](AppState& state) {
        scenes::openResults(state);
        state.verdicts.set(verdicts(50));
    });
    EXPECT_EQ(stage.await("messages")->height(), 5 * 44);
    EXPECT_EQ(stage.find("scrollLine"), nullptr);
}

TEST(Window, AStoppedScanOffersToQuit) {
    Stage stage(scenes::stoppedScan);
    bool asked = false;
    QObject::connect(stage.model().results(), &screens::ResultsModel::quitAsked, stage.window(),
                     [&] { asked = true; });
    EXPECT_TRUE(stage.click("quit"));
    EXPECT_TRUE(asked);
}

TEST(Window, NothingFoundSaysWhy) {
    Stage stage(scenes::nothingFound);
    auto* text = stage.await("nothing");
    ASSERT_NE(text, nullptr);
    EXPECT_EQ(text->property("text"),
              QStringLiteral("Brindlet went through your inbox and found nothing worth moving."));
}

}  // namespace
}  // namespace brindlet::testing
