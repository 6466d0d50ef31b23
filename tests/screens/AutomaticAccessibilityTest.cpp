#include <gtest/gtest.h>

#include "screens/Reader.h"

namespace brindlet::testing {
namespace {

TEST(AutomaticReader, TheSwitchTellsItsStateAndTurns) {
    Stage stage(scenes::automatic);
    const Reader reader(stage);
    EXPECT_EQ(reader.find("Automatic sorting")->role(), QAccessible::Heading);
    auto* schedule = reader.find("Sort on a schedule");
    EXPECT_EQ(schedule->role(), QAccessible::CheckBox);
    EXPECT_TRUE(schedule->state().checked);
    press(schedule);
    EXPECT_FALSE(stage.state->schedule.enabled());
}

TEST(AutomaticReader, AnAccountOpensAndAFolderIsACheckBox) {
    Stage stage(scenes::automatic);
    const Reader reader(stage);
    EXPECT_EQ(reader.find("MAILBOXES TO SORT")->text(QAccessible::Description),
              QStringLiteral("3 picked"));
    EXPECT_EQ(reader.find("Mailboxes")->role(), QAccessible::List);
    auto* account = reader.find("ada@example.org");
    EXPECT_EQ(account->role(), QAccessible::Button);
    EXPECT_EQ(account->text(QAccessible::Description), QStringLiteral("Expanded"));
    auto* inbox = reader.find("INBOX");
    EXPECT_EQ(inbox->role(), QAccessible::CheckBox);
    EXPECT_EQ(inbox->text(QAccessible::Description),
              QStringLiteral("what's sitting in your inbox now"));
    EXPECT_TRUE(inbox->state().checkable);
    EXPECT_TRUE(inbox->state().checked);
    press(inbox);
    stage.settle();
    EXPECT_FALSE(reader.find("INBOX")->state().checked);
    EXPECT_EQ(stage.state->schedule.watched().size(), 2U);
    press(reader.find("ada@example.org"));
    stage.settle();
    EXPECT_EQ(reader.find("ada@example.org")->text(QAccessible::Description),
              QStringLiteral("Collapsed"));
}

TEST(AutomaticReader, TheChoicesAreRadioButtonsInNamedGroups) {
    Stage stage(scenes::automatic);
    const Reader reader(stage);
    for (const auto* group : {"HOW OFTEN", "WHAT IT DOES WHEN IT FINDS JUNK"}) {
        EXPECT_NE(reader.find(group, QAccessible::Heading), nullptr);
        EXPECT_NE(reader.find(group, QAccessible::Grouping), nullptr);
    }
    auto* daily = reader.find("Once a day");
    EXPECT_EQ(daily->role(), QAccessible::RadioButton);
    EXPECT_TRUE(daily->state().checkable);
    EXPECT_TRUE(daily->state().checked);
    auto* hourly = reader.find("Every hour");
    EXPECT_FALSE(hourly->state().checked);
    press(hourly);
    stage.settle();
    EXPECT_TRUE(hourly->state().checked);
    EXPECT_FALSE(daily->state().checked);
    EXPECT_EQ(stage.state->schedule.cadence(), Cadence::hourly);

    auto* move = reader.find("Move it for me");
    EXPECT_EQ(move->role(), QAccessible::RadioButton);
    EXPECT_EQ(move->text(QAccessible::Description),
              QStringLiteral("Anything Brindlet is confident about moves on its own. Receipts, "
                             "codes and bills are still never moved."));
    press(move);
    EXPECT_EQ(stage.state->schedule.mode(), SortMode::automatic);
}

TEST(AutomaticReader, ButtonsArePressedAndRunNowOnlyWithAPick) {
    Stage stage(scenes::automatic);
    const Reader reader(stage);
    press(reader.find("Remove them"));
    EXPECT_EQ(stage.state->schedule.watched().size(), 2U);
    stage.state->schedule.setWatched({});
    stage.settle();
    press(reader.find("Run now"));
    EXPECT_FALSE(stage.state->automaticTask()) << "nothing is picked";
    stage.state->schedule.setWatched({{"no such account", "INBOX"}});
    stage.settle();
    press(reader.find("Run now"));
    ASSERT_TRUE(stage.state->automaticTask());
    EXPECT_TRUE(stage.world.mainQueue.pumpUntil([&] { return !stage.state->automaticRunning(); }));
}

}  // namespace
}  // namespace brindlet::testing
