#include "screens/MovingStage.h"
#include "screens/Reader.h"

namespace brindlet::testing {
namespace {

QString described(const QAccessibleInterface* thing) {
    return thing->text(QAccessible::Description);
}

TEST(MoveBarReader, MovesAndStops) {
    MovingStage stage;
    stage.letMove({"1@letters.example"});
    const Reader reader(stage);
    auto* move = reader.find("Move 72 to Junk");
    EXPECT_EQ(move->role(), QAccessible::Button);
    press(move);
    stage.settle();
    auto* stop = reader.find("Stop");
    EXPECT_EQ(stop->role(), QAccessible::Button);
    EXPECT_EQ(described(stop),
              QStringLiteral("Stop here - everything already filed stays filed, and the rest can "
                             "continue later"));
    stage.world.processes.waitForLaunches(1);
    press(stop);
    EXPECT_EQ(stage.world.processes.terminations(), 1);
    stage.finish();
    EXPECT_EQ(
        reader.find("Moved 1 of 72 - the rest are still listed", QAccessible::AlertMessage)->role(),
        QAccessible::AlertMessage);
}

TEST(MoveBarReader, TheProgressIsABarThatTellsItsCount) {
    MovingStage stage;
    const Reader reader(stage);
    press(reader.find("Move 72 to Junk"));
    stage.report(18);
    EXPECT_NE(reader.find("Moving into Junk", QAccessible::AlertMessage), nullptr);
    auto* bar = reader.find("Progress");
    EXPECT_EQ(bar->role(), QAccessible::ProgressBar);
    EXPECT_EQ(described(bar), QStringLiteral("18 of 72 moved"));
    EXPECT_EQ(stage.find("moveProgress")->property("value").toDouble(), 0.25);
    stage.finish();
}

TEST(MoveBarReader, WhatWentWrongIsAnAlert) {
    MovingStage stage;
    stage.state->moveError.set("Mail refused the move.");
    const Reader reader(stage);
    EXPECT_EQ(described(reader.find("Nothing moved", QAccessible::AlertMessage)),
              QStringLiteral("Mail refused the move."));
}

TEST(MoveBarReader, TheMenuIsReadAndPressed) {
    MovingStage stage;
    const Reader reader(stage);
    auto* button = reader.find("Which folder junk is filed into");
    EXPECT_EQ(button->role(), QAccessible::Button);
    press(button);
    stage.settle();
    EXPECT_EQ(reader.find("Which folder junk is filed into", QAccessible::PopupMenu)->role(),
              QAccessible::PopupMenu);
    auto* junk = reader.find("Junk", QAccessible::MenuItem);
    EXPECT_TRUE(junk->state().checkable);
    EXPECT_TRUE(junk->state().checked);
    auto* ours = reader.find("Brindlet Junk (new folder)", QAccessible::MenuItem);
    EXPECT_FALSE(ours->state().checked);
    EXPECT_EQ(described(ours),
              QStringLiteral("This folder doesn't exist yet - Brindlet will create it"));
    press(ours);
    stage.settle();
    EXPECT_EQ(stage.state->destinationName(), "Brindlet Junk");
    EXPECT_TRUE(QTest::qWaitFor([&] { return !stage.stands("destination0"); }));
}

}  // namespace
}  // namespace brindlet::testing
