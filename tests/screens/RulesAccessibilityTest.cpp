#include <QTest>

#include "screens/Reader.h"

namespace brindlet::testing {
namespace {

QString described(const QAccessibleInterface* thing) {
    return thing->text(QAccessible::Description);
}

/// What has that name below the thing.
QAccessibleInterface* within(QAccessibleInterface* thing, const char* name) {
    auto* found = named(thing, QString::fromUtf8(name));
    EXPECT_NE(found, nullptr) << name;
    return found;
}

TEST(RulesByReader, ARuleTellsAllAboutItselfAndOpens) {
    Stage stage(scenes::rules);
    const Reader reader(stage);
    auto* rule = reader.find("quill.example");
    EXPECT_EQ(rule->role(), QAccessible::ListItem);
    EXPECT_EQ(described(rule),
              QStringLiteral("JUNK, 200 here, ×12, Everything this sender ever sends, Collapsed"));
    press(rule);
    stage.settle();
    EXPECT_TRUE(described(rule).endsWith(QStringLiteral(", Expanded")));
    press(within(rule, "Show the mail this rule covers"));
    stage.settle();
    EXPECT_TRUE(described(rule).endsWith(QStringLiteral(", Collapsed")));
}

TEST(RulesByReader, TheControlsOfARuleAreItsChildrenAndCanBePressed) {
    Stage stage(scenes::rules);
    const Reader reader(stage);
    auto* pill = within(reader.find("quill.example"), "JUNK");
    EXPECT_EQ(pill->role(), QAccessible::Button);
    EXPECT_EQ(described(pill), QStringLiteral("Flip this rule"));
    press(pill);
    stage.settle();
    EXPECT_EQ(stage.state->rules.live().front().verdict, Rule::Verdict::keep);

    auto* enable = within(reader.find("oldlist.example"), "Keep it");
    EXPECT_EQ(described(enable), QStringLiteral("Start applying this rule again"));
    press(within(reader.find("oldlist.example"), "Forget this rule"));
    stage.settle();
    EXPECT_TRUE(described(reader.find("oldlist.example"))
                    .contains(QStringLiteral("Will be forgotten when you leave this screen")));
    press(within(reader.find("oldlist.example"), "Keep this rule after all"));
    press(enable);
    stage.settle();
    EXPECT_TRUE(stage.state->rules.held().empty());
    stage.press(Qt::Key_Escape);
    EXPECT_EQ(stage.state->rules.combined().size(), 6U);
}

TEST(RulesByReader, AMessageOfARuleIsACheckBox) {
    Stage stage(scenes::rules);
    const Reader reader(stage);
    press(reader.find("quill.example"));
    stage.settle();
    // The rows come with the next frame.
    const auto name = QStringLiteral(
        "New arrivals picked for you, number 0, Quill & Thread "
        "<hello0@quill.example>");
    ASSERT_TRUE(QTest::qWaitFor([&] { return named(reader.root, name) != nullptr; }));
    auto* message = named(reader.root, name);
    EXPECT_EQ(message->role(), QAccessible::CheckBox);
    EXPECT_TRUE(message->state().checkable);
    EXPECT_TRUE(message->state().checked);
    act(message, QAccessibleActionInterface::toggleAction());
    stage.settle();
    EXPECT_FALSE(message->state().checked);
    EXPECT_FALSE(stage.state->approved->contains(1));
}

TEST(RulesByReader, HeadingsTellTheirNotes) {
    Stage stage(scenes::rules);
    const Reader reader(stage);
    const std::pair<const char*, const char*> headings[] = {
        {"LEARNED BY ITSELF", "from corrections you made - you never wrote these"},
        {"NEEDS A LOOK", "written by a bug - not being applied until you say so"},
        {"ALWAYS", "kept between launches, and used by every mailbox"},
    };
    for (const auto& [name, note] : headings) {
        auto* heading = reader.find(name, QAccessible::Heading);
        ASSERT_NE(heading, nullptr);
        EXPECT_EQ(described(heading), QString::fromUtf8(note));
    }
}

TEST(RulesByReader, StopThisTellsWhichCategoryAndWhetherItIsOpen) {
    Stage stage(scenes::rules);
    const Reader reader(stage);
    auto* stop = reader.find("Stop this");
    EXPECT_EQ(described(stop), QStringLiteral("Newsletters & digests, Collapsed"));
    press(stop);
    stage.settle();
    EXPECT_EQ(described(stop), QStringLiteral("Newsletters & digests, Expanded"));
    press(reader.find("Go back to letting the model decide this category"));
    EXPECT_EQ(stage.state->calibration.muted->count("newsletterOrDigest"), 1U);
}

TEST(RulesByReader, TheFormHasNames) {
    Stage stage(scenes::rules);
    const Reader reader(stage);
    EXPECT_EQ(reader.find("sender or domain - news.example")->role(), QAccessible::EditableText);
    EXPECT_EQ(described(reader.find("Kind of mail", QAccessible::ComboBox)),
              QStringLiteral("any kind of mail"));
    EXPECT_EQ(described(reader.find("What the rule says", QAccessible::ComboBox)),
              QStringLiteral("is junk"));
    EXPECT_EQ(reader.find("Add rule")->role(), QAccessible::Button);
    EXPECT_EQ(reader.find("Rules", QAccessible::List)->role(), QAccessible::List);
}

}  // namespace
}  // namespace brindlet::testing
