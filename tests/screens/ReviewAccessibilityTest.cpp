#include "screens/Reader.h"

namespace brindlet::testing {
namespace {

constexpr const char* message =
    "New arrivals picked for you, number 1, Quill & Thread <news@quill1.example>";
constexpr std::int64_t messageRowID = 2;

QString described(const QAccessibleInterface* thing) {
    return thing->text(QAccessible::Description);
}

TEST(ReviewByReader, ACategorysBoxTellsThatSomeAreTickedAndTicksTheRest) {
    Stage stage(scenes::openResults);
    const Reader reader(stage);
    stage.state->toggleMessage(messageRowID);
    stage.settle();
    auto* box = reader.find("Newsletters & digests", QAccessible::CheckBox);
    EXPECT_TRUE(box->state().checkable);
    EXPECT_TRUE(box->state().checkStateMixed);
    EXPECT_EQ(described(box), QStringLiteral("Tick this whole category, "
                                             "Approve or skip this whole category"));
    press(box);
    stage.settle();
    EXPECT_TRUE(stage.state->approved->contains(messageRowID));
    EXPECT_TRUE(box->state().checked);
    EXPECT_FALSE(box->state().checkStateMixed);
    EXPECT_TRUE(described(box).startsWith(QStringLiteral("Untick this whole category")));
    act(box, QAccessibleActionInterface::toggleAction());
    stage.settle();
    EXPECT_FALSE(stage.state->approved->contains(messageRowID));
}

TEST(ReviewByReader, AMessageIsACheckBoxThatCanBePressedAndToggled) {
    Stage stage(scenes::openResults);
    const Reader reader(stage);
    auto* row = reader.find(message);
    EXPECT_EQ(row->role(), QAccessible::CheckBox);
    EXPECT_TRUE(row->state().focusable);
    EXPECT_TRUE(row->state().checked);
    press(row);
    stage.settle();
    EXPECT_FALSE(row->state().checked);
    EXPECT_EQ(described(row), QStringLiteral("Will stay put - Brindlet will remember this sender"));
    act(row, QAccessibleActionInterface::toggleAction());
    stage.settle();
    EXPECT_TRUE(row->state().checked);
}

TEST(ReviewByReader, TheFocusFollowsTheArrowKeys) {
    Stage stage(scenes::openResults);
    const Reader reader(stage);
    ASSERT_TRUE(stage.tabTo("messages"));
    EXPECT_TRUE(reader.find(message)->state().focused);
    stage.press(Qt::Key_Down);
    EXPECT_FALSE(reader.find(message)->state().focused);
}

TEST(ReviewByReader, AMessageOpensInMailByAButtonOfItsOwn) {
    Stage stage(scenes::openResults);
    const Reader reader(stage);
    auto* button = named(reader.find(message), QStringLiteral("Open in Mail"));
    ASSERT_NE(button, nullptr);
    EXPECT_EQ(button->role(), QAccessible::Button);
    press(button);
    EXPECT_EQ(stage.world.desktop.opened,
              std::vector<std::string>{"message://%3c1@letters.example%3e"});
    EXPECT_TRUE(stage.state->approved->contains(messageRowID));
}

TEST(ReviewByReader, AMessageWithoutAnIdSaysWhyItCannotBeTicked) {
    Stage stage(scenes::openResults);
    const Reader reader(stage);
    auto* row = reader.find(
        "New arrivals picked for you, number 71, Quill & Thread <news@quill31.example>");
    EXPECT_FALSE(row->state().checkable);
    EXPECT_TRUE(described(row).startsWith(QStringLiteral("Mail has no id for this message")));
}

TEST(ReviewByReader, ASenderTellsItsCountAndOpensByAButtonOfItsOwn) {
    Stage stage(scenes::openResults);
    stage.model().results()->messages()->setBySender(true);
    const Reader reader(stage);
    auto* sender = reader.find("Quill & Thread, news@quill1.example");
    EXPECT_EQ(sender->role(), QAccessible::CheckBox);
    EXPECT_TRUE(sender->state().checked);
    EXPECT_EQ(described(sender),
              QStringLiteral("5, Untick everything from this sender, Collapsed"));
    auto* button = named(sender, QStringLiteral("Quill & Thread"), QAccessible::Button);
    ASSERT_NE(button, nullptr);
    press(button);
    stage.settle();
    EXPECT_TRUE(described(sender).endsWith(QStringLiteral("Expanded")));
    ASSERT_NE(stage.await("row5"), nullptr);
    press(reader.find(message));
    stage.settle();
    EXPECT_TRUE(sender->state().checkStateMixed);
    EXPECT_TRUE(described(sender).startsWith(QStringLiteral("4 of 5, ")));
}

TEST(ReviewByReader, TheFilterIsNamedByItsPromptAndTellsItsMatches) {
    Stage stage(scenes::openResults);
    const Reader reader(stage);
    auto* field = reader.find("Filter by sender or subject - sale");
    EXPECT_EQ(field->role(), QAccessible::EditableText);
    stage.model().results()->messages()->setFilter(QStringLiteral("quill1."));
    stage.settle();
    EXPECT_EQ(described(field), QStringLiteral("5 matches"));
    press(reader.find("Clear"));
    stage.settle();
    EXPECT_EQ(described(field), QString());
}

TEST(ReviewByReader, GroupingIsAButtonThatStaysPressed) {
    Stage stage(scenes::openResults);
    const Reader reader(stage);
    auto* button = reader.find("By sender");
    EXPECT_EQ(button->role(), QAccessible::Button);
    EXPECT_TRUE(button->state().checkable);
    EXPECT_FALSE(button->state().checked);
    EXPECT_EQ(described(button), QStringLiteral("One row per sender instead of one per message"));
    press(button);
    stage.settle();
    EXPECT_TRUE(button->state().checked);
}

TEST(ReviewByReader, TheOfferIsAnAlertWhoseButtonsTellWhatTheyDo) {
    Stage stage(scenes::openResults);
    const Reader reader(stage);
    press(reader.find(message));
    stage.settle();
    auto* offer = reader.find("Do the same for 4 more like this?");
    EXPECT_EQ(offer->role(), QAccessible::AlertMessage);
    auto* these = named(offer, QStringLiteral("These 4"));
    ASSERT_NE(these, nullptr);
    EXPECT_TRUE(these->state().focusable);
    EXPECT_EQ(described(these), QStringLiteral("Change only the messages shaped like this one"));
    press(these);
    stage.settle();
    EXPECT_FALSE(stage.state->approved->contains(42));

    auto* undo = reader.find("Undo");
    EXPECT_EQ(described(undo), QStringLiteral("Put those 4 messages back exactly as they were"));
    press(undo);
    stage.settle();
    EXPECT_TRUE(stage.state->approved->contains(42));
}

TEST(ReviewByReader, TheLastReviewedIsAButtonThatLeadsThere) {
    Stage stage(scenes::openResults);
    ASSERT_TRUE(stage.click("category0"));
    const Reader reader(stage);
    auto* mark = reader.find("Last reviewed");
    EXPECT_EQ(mark->role(), QAccessible::Button);
    EXPECT_EQ(described(mark), QStringLiteral("Last reviewed - click to jump there"));
    press(mark);
    stage.settle();
    EXPECT_EQ(*stage.state->expand, Category::newsletterOrDigest);
}

}  // namespace
}  // namespace brindlet::testing
