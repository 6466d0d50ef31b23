#include <gtest/gtest.h>

#include <QTest>

#include "screens/MovingStage.h"

namespace brindlet::testing {
namespace {

double heightOfBar(const MovingStage& stage) {
    stage.layOut();
    return stage.find("moveBar")->height();
}

TEST(MoveBar, APressMovesAndTheStatusFollows) {
    MovingStage stage;
    EXPECT_EQ(stage.text("move"), "Move 72 to Junk");
    EXPECT_FALSE(stage.stands("moveStatus"));
    EXPECT_TRUE(stage.click("move"));
    EXPECT_TRUE(*stage.state->moving);
    EXPECT_FALSE(stage.stands("move"));
    EXPECT_FALSE(stage.stands("destinations"));
    EXPECT_EQ(stage.text("stopMove"), "Stop");
    EXPECT_EQ(stage.text("moveTitle"), "Finding them in Mail");
    EXPECT_EQ(stage.text("moveCount"), "0 of 72 moved");
    EXPECT_EQ(stage.find("moveProgress")->property("value").toDouble(), 0);

    stage.report(18);
    EXPECT_EQ(stage.text("moveTitle"), "Moving into Junk");
    EXPECT_EQ(stage.text("moveCount"), "18 of 72 moved");
    EXPECT_EQ(stage.find("moveProgress")->property("value").toDouble(), 0.25);

    stage.finish();
    EXPECT_FALSE(stage.stands("stopMove"));
    EXPECT_EQ(stage.text("moveText"), "Moved 72 into Junk");
    EXPECT_FALSE(stage.stands("moveProgress"));
    EXPECT_EQ(stage.text("move"), "Move 0 to Junk");
}

TEST(MoveBar, StopEndsTheMoveWithWhatHasMoved) {
    MovingStage stage;
    stage.letMove({"1@letters.example"});
    EXPECT_TRUE(stage.click("move"));
    stage.world.processes.waitForLaunches(1);
    EXPECT_TRUE(stage.click("stopMove"));
    stage.finish();
    EXPECT_EQ(stage.world.processes.terminations(), 1);
    EXPECT_EQ(stage.text("moveText"), "Moved 1 of 72 - the rest are still listed");
    EXPECT_EQ(stage.text("move"), "Move 71 to Junk");
}

TEST(MoveBar, TheSecondClickOfADoubleOneDoesNotStopWhatTheFirstBegan) {
    MovingStage stage;
    auto* swapped = stage.find("moveBar")->findChild<QObject*>(QStringLiteral("swapped"));
    swapped->setProperty("interval", 1'000'000);
    const auto* button = stage.find("move");
    const auto place = button->mapToScene(QPointF(30, button->height() / 2)).toPoint();
    const auto click = [&] {
        QTest::mouseClick(stage.window(), Qt::LeftButton, {}, place);
        stage.settle();
    };
    click();
    ASSERT_TRUE(stage.stands("stopMove"));
    stage.world.processes.waitForLaunches(1);
    click();
    EXPECT_EQ(stage.world.processes.terminations(), 0);
    swapped->setProperty("interval", 0);
    stage.settle();
    click();
    EXPECT_EQ(stage.world.processes.terminations(), 1);
    stage.finish();
}

TEST(MoveBar, WithNothingTickedTheButtonStandsButCannotBePressed) {
    MovingStage stage;
    stage.state->approved.set({});
    EXPECT_TRUE(stage.click("move"));
    EXPECT_EQ(stage.text("move"), "Move 0 to Junk");
    EXPECT_FALSE(stage.find("move")->isEnabled());
    EXPECT_FALSE(*stage.state->moving);
    EXPECT_TRUE(stage.find("destinations")->isEnabled());
    EXPECT_TRUE(stage.click("categoryTick3"));
    EXPECT_TRUE(stage.find("move")->isEnabled());
}

TEST(MoveBar, TheNumberFollowsATick) {
    MovingStage stage([](AppState& state) {
        scenes::movable(state);
        state.expand.set(Category::newsletterOrDigest);
    });
    EXPECT_TRUE(stage.click("row6"));
    EXPECT_EQ(stage.text("move"), "Move 72 to Junk") << "that one has no id";
    EXPECT_TRUE(stage.click("row0"));
    EXPECT_EQ(stage.text("move"), "Move 71 to Junk");
}

TEST(MoveBar, AMoveEndsInOneOfThreeWays) {
    const struct {
        const char* error;
        const char* note;
        std::int64_t moved;
        const char* title;
        const char* text;
    } rows[] = {
        {nullptr, "Moved 20 into Junk", 20, "", "Moved 20 into Junk"},
        {"Mail closed before it finished.", "Moved 20 before it stopped", 20, "",
         "Mail closed before it finished."},
        {"Mail refused the move.", "", 0, "Nothing moved", "Mail refused the move."},
    };
    MovingStage stage;
    EXPECT_FALSE(stage.stands("moveStatus"));
    for (const auto& row : rows) {
        SCOPED_TRACE(row.text);
        stage.state->moveError.set(row.error ? std::optional<std::string>(row.error)
                                             : std::nullopt);
        stage.state->moveNote.set(row.note);
        stage.state->movedCount.set(row.moved);
        stage.settle();
        EXPECT_EQ(stage.text("moveTitle"), row.title);
        EXPECT_EQ(stage.text("moveText"), row.text);
        EXPECT_FALSE(stage.stands("moveCount"));
        EXPECT_EQ(stage.text("move"), "Move 72 to Junk") << "and can be tried again";
    }
}

TEST(MoveBar, NothingBelowItJumpsWhileAMoveComesAndGoes) {
    MovingStage stage;
    const auto before = heightOfBar(stage);
    stage.letMove({}, "Mail refused the move.");
    EXPECT_TRUE(stage.click("move"));
    EXPECT_EQ(heightOfBar(stage), before);
    stage.report(20);
    EXPECT_EQ(heightOfBar(stage), before);
    stage.finish();
    EXPECT_EQ(stage.text("moveTitle"), "Nothing moved");
    EXPECT_EQ(heightOfBar(stage), before);
}

TEST(MoveBar, ALongSentenceIsTold) {
    MovingStage stage;
    std::string sentence = "Mail";
    for (int i = 0; i < 60; ++i) sentence += " said";
    stage.state->moveError.set(sentence);
    stage.settle();
    const auto height = heightOfBar(stage);
    const auto* words = stage.find("moveText");
    EXPECT_FALSE(words->property("truncated").toBool());
    EXPECT_GT(words->property("lineCount").toInt(), 2);
    const auto foot = words->mapToItem(stage.find("moveBar"), QPointF(0, words->height())).y();
    EXPECT_LT(foot, height);
}

TEST(MoveBar, TheMenuListsTheFoldersAndMarksTheChosenOne) {
    MovingStage stage;
    stage.openMenu();
    EXPECT_EQ(stage.text("destination0"), "Junk");
    EXPECT_EQ(stage.text("destination1"), "דואר זבל");
    EXPECT_EQ(stage.text("destination2"), "Brindlet Junk (new folder)");
    EXPECT_FALSE(stage.stands("destination3"));
    const auto symbol = [&](const char* row) {
        return stage.find(QLatin1String(row))->property("symbol").toString().toStdString();
    };
    EXPECT_EQ(symbol("destination0"), "checkmark");
    EXPECT_EQ(symbol("destination1"), "");
    EXPECT_EQ(symbol("destination2"), "");
}

TEST(MoveBar, AChoiceIsTakenAndRemembered) {
    MovingStage stage;
    stage.openMenu();
    EXPECT_TRUE(stage.click("destination2"));
    EXPECT_FALSE(stage.stands("destination0"));
    EXPECT_EQ(stage.text("move"), "Move 72 to Brindlet Junk");
    EXPECT_EQ(stage.world.defaults.dictionary("junkDestinations"),
              (UserDefaults::Dictionary{{"id of ada@example.org", "Brindlet Junk"}}));
    stage.openMenu();
    EXPECT_EQ(stage.find("destination2")->property("symbol").toString(),
              QStringLiteral("checkmark"));
    stage.press(Qt::Key_Escape);
    EXPECT_TRUE(stage.click("move"));
    stage.finish();
    EXPECT_EQ(stage.world.processes.launches().back().arguments[3], "Brindlet Junk");
}

TEST(MoveBar, TheMenuGoesWithASecondClickOrOneElsewhere) {
    MovingStage stage;
    for (const auto* place : {"destinations", "summary"}) {
        SCOPED_TRACE(place);
        stage.openMenu();
        EXPECT_TRUE(stage.click(place));
        EXPECT_TRUE(QTest::qWaitFor([&] { return !stage.stands("destination0"); }));
    }
    EXPECT_EQ(stage.text("move"), "Move 72 to Junk");
}

TEST(MoveBar, AnOpenMenuGoesWhenAMoveBegins) {
    MovingStage stage;
    stage.openMenu();
    stage.state->startMove();
    stage.settle();
    EXPECT_TRUE(QTest::qWaitFor([&] { return !stage.stands("destination0"); }));
    EXPECT_FALSE(stage.stands("destinations"));
    stage.finish();
}

TEST(MoveBar, AnOpenMenuFollowsTheFoldersOfTheAccount) {
    MovingStage stage;
    stage.openMenu();
    stage.state->account.mutate([](auto& account) {
        account->folders.push_back({40, "Bulk", 300, MailFolder::Role::junk});
    });
    stage.settle();
    ASSERT_NE(stage.await("destination3"), nullptr);
    stage.layOut();
    EXPECT_EQ(stage.text("destination0"), "Bulk");
    EXPECT_EQ(stage.text("destination3"), "Brindlet Junk (new folder)");
    EXPECT_TRUE(stage.click("destination1"));
    EXPECT_EQ(stage.text("move"), "Move 72 to Junk");
}

TEST(MoveBar, HelpTellsThatTheFolderIsStillToBeMade) {
    MovingStage stage;
    stage.openMenu();
    EXPECT_TRUE(stage.hover("destination2"));
    EXPECT_TRUE(QTest::qWaitFor([&] { return stage.stands("helpTip"); }));
    EXPECT_EQ(stage.text("helpTip"), "This folder doesn't exist yet - Brindlet will create it");
}

TEST(MoveBar, OutOfAJunkFolderItLeadsToTheInboxWithoutAChoice) {
    MovingStage stage([](AppState& state) {
        scenes::movable(state);
        state.folder.set(folder(2, "Junk", 200));
    });
    EXPECT_EQ(stage.text("move"), "Move 72 to the inbox");
    EXPECT_FALSE(stage.stands("destinations"));
    EXPECT_TRUE(stage.click("move"));
    stage.finish();
    EXPECT_EQ(stage.text("moveText"), "Moved 72 into INBOX");
}

TEST(MoveBar, WhereAllWasMovedOnlyTheStatusIsLeft) {
    MovingStage stage;
    for (const auto category : allCases<Category>()) stage.state->setCategoryTicked(category, true);
    EXPECT_TRUE(stage.click("move"));
    stage.finish();
    EXPECT_EQ(stage.text("moveText"), "Moved 188 into Junk");
    EXPECT_TRUE(stage.stands("move")) << "those without an id are still there";
    stage.state->verdicts.set(verdicts(1));
    stage.settle();
    EXPECT_EQ(stage.text("moveText"), "Moved 188 into Junk");
    EXPECT_FALSE(stage.stands("move"));
    EXPECT_FALSE(stage.stands("destinations"));
    EXPECT_TRUE(stage.stands("allMovedBar"));
}

TEST(MoveBar, WithNothingFoundThereIsNone) {
    Stage stage(scenes::nothingFound);
    EXPECT_EQ(stage.find("moveBar"), nullptr);
}

TEST(MoveBar, ALongNameIsCutOffInTheButtonAndToldInFullByItsHelp) {
    const std::string name = "Projects/Harbour House with quite a long name of its own/Filtered";
    MovingStage stage([&](AppState& state) {
        scenes::movable(state);
        state.account.mutate([&](auto& account) {
            account->folders.push_back({41, name, 400, MailFolder::Role::junk});
        });
    });
    stage.window()->resize(stage.window()->minimumSize());
    stage.settle();
    const auto* button = stage.find("move");
    EXPECT_LE(button->width(), 420);
    EXPECT_TRUE(button->property("truncated").toBool());
    EXPECT_TRUE(stage.hover("move"));
    EXPECT_TRUE(QTest::qWaitFor([&] { return stage.stands("helpTip"); }));
    EXPECT_EQ(stage.text("helpTip"), "Move 72 to " + name);
    stage.openMenu();
    EXPECT_LE(stage.find("destination0")->width(), 340);
    EXPECT_TRUE(stage.find("destination0")->property("truncated").toBool());
}

}  // namespace
}  // namespace brindlet::testing
