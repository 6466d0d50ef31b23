#include <gtest/gtest.h>

#include <QTest>

#include "screens/Reader.h"

namespace brindlet::testing {
namespace {

TEST(HistoryReader, APastScanTellsAllAndOpens) {
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

TEST(HistoryReader, TheBinTellsWhatItsButtonsDoAndPressesThem) {
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
