#include <gtest/gtest.h>

#include <QTest>

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
    for (const auto scene :
         {+[](AppState&) {}, +scenes::permission, +scenes::mailboxes, +scenes::chosenMailbox,
          +scenes::noAccounts, +scenes::scanning, +scenes::pausedScan, +scenes::openResults,
          +scenes::correctedResults, +scenes::stoppedScan, +scenes::nothingFound, +scenes::noRules,
          +scenes::rules}) {
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

TEST(ScreenReader, APastScanTellsAllAndOpens) {
    Stage stage(scenes::history);
    const Reader reader(stage);
    EXPECT_EQ(reader.find("Past scans")->role(), QAccessible::List);
    auto* scan = reader.find("2023-11-14 19:49, INBOX - ada@example.org");
    EXPECT_EQ(scan->role(), QAccessible::ListItem);
    EXPECT_TRUE(scan->state().focused);
    EXPECT_EQ(scan->text(QAccessible::Description),
              QStringLiteral("1,834 sorted, 3 moved, Collapsed"));
    press(scan);
    stage.settle();
    EXPECT_EQ(scan->text(QAccessible::Description),
              QStringLiteral("1,834 sorted, 3 moved, Expanded"));
    EXPECT_EQ(reader.find("Moved messages")->role(), QAccessible::List);
    const auto message = QStringLiteral("(no subject), Quill & Thread <hello1@quill.example>");
    EXPECT_TRUE(QTest::qWaitFor([&] { return named(reader.root, message) != nullptr; }));
    press(reader.find("Put this scan back on screen"));
    EXPECT_EQ(*stage.state->screen, AppState::Screen::results);
}

TEST(ScreenReader, TheBinTellsWhatItsButtonsDoAndPressesThem) {
    Stage stage(scenes::history);
    const Reader reader(stage);
    EXPECT_EQ(reader.find("RECENTLY DELETED")->role(), QAccessible::Heading);
    EXPECT_EQ(reader.find("Deleted scans")->role(), QAccessible::List);
    EXPECT_EQ(reader.find("Archive - ada@example.org")->text(QAccessible::Description),
              QStringLiteral("1,834 sorted · 5 moved - 30 days left"));
    auto* purge = reader.find("Delete");
    EXPECT_EQ(purge->text(QAccessible::Description),
              QStringLiteral("Erase this scan and the verdicts it saved. Cannot be undone."));
    press(purge);
    stage.settle();
    press(reader.find("Really?"));
    EXPECT_EQ(stage.state->history.deleted->size(), 1U);
    stage.settle();
    press(reader.find("Put back"));
    press(reader.find("Delete Scan"));
    press(reader.find("Forget 2 sorted messages"));
    EXPECT_EQ(stage.state->history.deleted->size(), 1U) << "one came back and one went";
    EXPECT_EQ(stage.state->seen.size(), 0U);
}

}  // namespace
}  // namespace brindlet::testing
