#include <gtest/gtest.h>

#include "screens/Reader.h"

namespace brindlet::testing {
namespace {

void expectNames(QAccessibleInterface* thing, const std::string& path, int& focusables) {
    const auto name = thing->text(QAccessible::Name);
    const auto here = path + " > " + name.toStdString();
    if (thing->state().invisible) return;
    if (thing->state().focusable && thing->role() != QAccessible::Window) {
        ++focusables;
        EXPECT_FALSE(name.isEmpty()) << here << ", role " << thing->role();
        EXPECT_NE(thing->role(), QAccessible::NoRole) << here;
    }
    for (int i = 0; i < thing->childCount(); ++i)
        if (auto* child = thing->child(i)) expectNames(child, here, focusables);
}

TEST(ScreenReader, EveryControlOfEveryScreenHasANameAndARole) {
    for (const auto scene : {+[](AppState&) {},
                             +scenes::interrupted,
                             +scenes::permission,
                             +scenes::mailboxes,
                             +scenes::chosenMailbox,
                             +scenes::noAccounts,
                             +scenes::scanning,
                             +scenes::pausedScan,
                             +scenes::openResults,
                             +scenes::correctedResults,
                             +scenes::movedResults,
                             +scenes::moving,
                             +scenes::failedMove,
                             +scenes::stoppedScan,
                             +scenes::nothingFound,
                             +scenes::history,
                             +scenes::longHistory,
                             +scenes::taughtHistory,
                             +scenes::emptyHistory,
                             +scenes::noRules,
                             +scenes::automatic,
                             +scenes::automaticOff,
                             +scenes::automaticAtFirst,
                             +scenes::rules,
                             +scenes::gmail,
                             +scenes::askedAboutGmail,
                             +scenes::unsupported}) {
        Stage stage(scene);
        const Reader reader(stage);
        int focusables = 0;
        expectNames(reader.root, "", focusables);
        EXPECT_GT(focusables, 0);
    }
}

TEST(ScreenReader, PressesStart) {
    Stage stage;
    const Reader reader(stage);
    auto* start = reader.find("Start");
    EXPECT_EQ(start->role(), QAccessible::Button);
    press(start);
    EXPECT_EQ(*stage.state->screen, AppState::Screen::permission);
}

TEST(ScreenReader, HearsTheHeadingAndTheBadges) {
    Stage stage;
    const Reader reader(stage);
    EXPECT_EQ(reader.find("Brindlet")->role(), QAccessible::Window) << "the window comes first";
    for (const auto* badge : {"Nothing uploaded", "On-device model", "Nothing deleted"})
        EXPECT_EQ(reader.find(badge)->role(), QAccessible::StaticText);
}

TEST(ScreenReader, AMailboxIsARadioButtonThatTellsAllAboutItself) {
    Stage stage(scenes::mailboxes);
    const Reader reader(stage);
    auto* inbox = reader.find("INBOX");
    EXPECT_EQ(inbox->role(), QAccessible::RadioButton);
    EXPECT_TRUE(inbox->state().checkable);
    EXPECT_FALSE(inbox->state().checked);
    EXPECT_EQ(
        inbox->text(QAccessible::Description),
        QStringLiteral("START HERE, what's sitting in your inbox now, 1,834 new, never sorted"));
    press(inbox);
    stage.settle();
    EXPECT_TRUE(reader.find("INBOX")->state().checked);
    EXPECT_EQ(reader.find("Mailboxes")->role(), QAccessible::List);
}

TEST(ScreenReader, ASwitchIsACheckBoxAndCanBePressed) {
    Stage stage(scenes::mailboxes);
    const Reader reader(stage);
    auto* skip = reader.find("Skip anything I've already sorted");
    EXPECT_EQ(skip->role(), QAccessible::CheckBox);
    EXPECT_TRUE(skip->state().checked);
    press(skip);
    stage.settle();
    EXPECT_FALSE(stage.state->seen.skipSeen());
    EXPECT_FALSE(skip->state().checked);
}

TEST(ScreenReader, AMenuTellsWhatIsChosenAndOpens) {
    Stage stage(scenes::mailboxes);
    const Reader reader(stage);
    auto* reach = reader.find("HOW FAR BACK");
    EXPECT_EQ(named(reader.root, QStringLiteral("HOW FAR BACK")), reach);
    auto* menu = QAccessible::queryAccessibleInterface(stage.find("reach"));
    EXPECT_EQ(menu->role(), QAccessible::ComboBox);
    EXPECT_EQ(menu->text(QAccessible::Name), QStringLiteral("HOW FAR BACK"));
    EXPECT_EQ(menu->text(QAccessible::Description), QStringLiteral("Past month"));
    press(menu);
    EXPECT_TRUE(
        stage.find("reach")->property("popup").value<QObject*>()->property("visible").toBool());
}

TEST(ScreenReader, TheRingIsAProgressBarThatTellsItsShare) {
    Stage stage(scenes::scanning);
    const Reader reader(stage);
    auto* ring = reader.find("Progress");
    EXPECT_EQ(ring->role(), QAccessible::ProgressBar);
    EXPECT_EQ(ring->text(QAccessible::Description), QStringLiteral("50%"));
    EXPECT_EQ(reader.find("speed: 41.7/s")->role(), QAccessible::StaticText);
}

TEST(ScreenReader, ACategoryTellsWhetherItIsOpenAndOpens) {
    Stage stage(scenes::results);
    const Reader reader(stage);
    auto* ads = reader.find("Ads & promotions, 20");
    EXPECT_EQ(ads->role(), QAccessible::Button);
    EXPECT_EQ(ads->text(QAccessible::Description), QStringLiteral("JUNK, Collapsed"));
    press(ads);
    stage.settle();
    EXPECT_EQ(ads->text(QAccessible::Description), QStringLiteral("JUNK, Expanded"));
}

}  // namespace
}  // namespace brindlet::testing
