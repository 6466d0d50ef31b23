#include <gtest/gtest.h>

#include <QTest>
#include <utility>

#include "doubles/BulkScript.h"
#include "screens/Reader.h"

namespace brindlet::testing {
namespace {

constexpr const char* secondRow = "(no subject), Quill & Thread <news@quill11.example>";

void script(Stage& stage, doubles::Bulk bulk) {
    stage.world.processes.setScript(doubles::bulkScript(std::move(bulk)));
}

void finishMove(Stage& stage) {
    ASSERT_TRUE(stage.state->moveTask());
    // The poll may not have gone to sleep yet, so that the time passes again and again.
    ASSERT_TRUE(stage.world.mainQueue.pumpUntil([&] {
        stage.world.clock.advance(0.5);
        return stage.state->moveTask()->finished();
    }));
    stage.world.mainQueue.pump();
    stage.settle();
}

void open(Stage& stage) {
    ASSERT_TRUE(stage.click("movedHeader"));
    ASSERT_NE(stage.await("movedRow0"), nullptr);
}

QString text(const Stage& stage, const char* name) {
    const auto* item = stage.find(QString::fromUtf8(name));
    return item ? item->property("text").toString() : QString();
}

/// -1 while the list is closed.
int rows(const Stage& stage) {
    const auto* list = stage.find("movedMessages");
    return list ? list->property("count").toInt() : -1;
}

TEST(MovedSection, StandsUnderTheListsOnlyWhenSomethingWasMoved) {
    Stage stage(scenes::movedResults);
    const auto* header = stage.await("movedHeader");
    ASSERT_NE(header, nullptr);
    EXPECT_EQ(text(stage, "movedHeading"), QStringLiteral("Already moved to Brindlet Junk"));
    const auto* last = stage.find("category1");
    EXPECT_GT(header->mapToScene(QPointF()).y(), last->mapToScene(QPointF(0, last->height())).y());
    stage.state->movedAlready.set({});
    stage.settle();
    EXPECT_EQ(stage.find("movedHeader"), nullptr);
}

TEST(MovedSection, OpensAndCloses) {
    Stage stage(scenes::movedResults);
    EXPECT_EQ(stage.find("movedMessages"), nullptr);
    open(stage);
    EXPECT_EQ(text(stage, "movedHint"), QStringLiteral("Tick anything that shouldn't have gone."));
    EXPECT_EQ(rows(stage), 19);
    EXPECT_TRUE(stage.click("movedHeader"));
    EXPECT_EQ(stage.find("movedMessages"), nullptr);
}

TEST(MovedSection, WhatOpensIsInSight) {
    Stage stage(scenes::movedResults);
    stage.window()->resize(stage.window()->minimumSize());
    open(stage);
    const auto* list = stage.find("movedMessages");
    EXPECT_TRUE(QTest::qWaitFor([&] {
        return list->mapToScene(QPointF(0, list->height())).y() <= stage.window()->height();
    }));
    EXPECT_GE(stage.find("movedHeader")->mapToScene(QPointF()).y(), 0);
}

TEST(MovedSection, DoesNotCallBackWhoHasGoneToTheTopWhenTheBarGrows) {
    Stage stage(scenes::movedResults);
    stage.window()->resize(stage.window()->minimumSize());
    open(stage);
    auto* page = stage.find("resultsPage");
    const auto top = [&] { return page->property("contentY").toDouble(); };
    ASSERT_TRUE(QTest::qWaitFor([&] { return top() > 100; })) << "the section lies further down";
    stage.settle();
    page->setProperty("contentY", 0);
    const double before = stage.find("moveBar")->height();
    stage.state->moveError.set(std::string(90, 'x') + ' ' + std::string(90, 'y') + ' ' +
                               std::string(90, 'z'));
    stage.settle();
    (void)stage.window()->grabWindow();
    stage.settle();
    ASSERT_GT(stage.find("moveBar")->height(), before);
    EXPECT_LT(top(), 100);
}

TEST(MovedSection, ALongListIsLazyInAFrameThatSaysHowLong) {
    Stage stage([](AppState& state) {
        scenes::movedResults(state);
        state.verdicts.set(verdicts(50'000));
        state.movedAlready.mutate([&](auto& moved) {
            for (const auto& verdict : *state.verdicts)
                if (verdict.messageID) moved.insert(*verdict.messageID);
        });
    });
    stage.model().results()->moved()->setExpanded(true);
    auto* list = stage.await("movedMessages");
    ASSERT_NE(list, nullptr);
    EXPECT_EQ(list->height(), 352);
    EXPECT_EQ(text(stage, "movedScrollLine"),
              QStringLiteral("47,059 messages - scroll to see them all"));
    EXPECT_LT(list->property("contentItem").value<QQuickItem*>()->childItems().size(), 30)
        << "no more rows exist than show";
}

TEST(MovedSection, AShortListHasNoScrollLine) {
    Stage stage(scenes::movedResults);
    open(stage);
    EXPECT_TRUE(stage.click("movedFilter"));
    stage.type(QStringLiteral("quill21."));
    EXPECT_EQ(rows(stage), 5);
    const auto* list = stage.find("movedMessages");
    EXPECT_TRUE(QTest::qWaitFor([&] { return list->height() == 5 * 44; })) << list->height();
    EXPECT_EQ(stage.find("movedScrollLine"), nullptr);
    EXPECT_TRUE(stage.click("movedFilterClear"));
    EXPECT_EQ(rows(stage), 19);
}

TEST(MovedSection, ARowIsTickedAnywhereAndTheButtonCounts) {
    Stage stage(scenes::movedResults);
    EXPECT_EQ(text(stage, "toPutBack"), QStringLiteral("1 to put back"));
    EXPECT_EQ(text(stage, "putBack"), QStringLiteral("Put 1 back in INBOX"));
    open(stage);
    EXPECT_TRUE(stage.click("movedRow1"));
    EXPECT_EQ(*stage.state->putBack, (AppState::Ids{2, 12}));
    EXPECT_EQ(text(stage, "toPutBack"), QStringLiteral("2 to put back"));
    EXPECT_EQ(text(stage, "putBack"), QStringLiteral("Put 2 back in INBOX"));
    EXPECT_TRUE(stage.click("movedRow0"));
    EXPECT_TRUE(stage.click("movedRow1"));
    EXPECT_TRUE(stage.state->putBack->empty());
    EXPECT_EQ(stage.find("putBack"), nullptr);
    EXPECT_EQ(text(stage, "toPutBack"), QString());
}

TEST(MovedSection, PutsBackWhatIsTicked) {
    Stage stage(scenes::movedResults);
    script(stage, {});
    open(stage);
    EXPECT_TRUE(stage.click("movedRow1"));
    EXPECT_TRUE(stage.click("putBack"));
    ASSERT_TRUE(*stage.state->moving);
    finishMove(stage);
    EXPECT_EQ(*stage.state->moveNote, "Put 2 back in INBOX");
    EXPECT_EQ(rows(stage), 17);
    EXPECT_EQ(text(stage, "movedTitle0"), QStringLiteral("New arrivals picked for you, number 21"));
    EXPECT_EQ(stage.find("putBack"), nullptr);
    EXPECT_TRUE(stage.state->putBack->empty());
    EXPECT_EQ(stage.state->tickedCount(Category::newsletterOrDigest), 0)
        << "what was put back is not to be moved again";
}

TEST(MovedSection, WhatDidNotReturnStaysTicked) {
    Stage stage(scenes::movedResults);
    script(stage, {{"11@letters.example"}, true, -1, {}});
    open(stage);
    EXPECT_TRUE(stage.click("movedRow1"));
    EXPECT_TRUE(stage.click("putBack"));
    finishMove(stage);
    EXPECT_EQ(rows(stage), 18);
    EXPECT_EQ(text(stage, "putBack"), QStringLiteral("Put 1 back in INBOX"));
    EXPECT_TRUE(stage.find("putBack")->isEnabled());
}

TEST(MovedSection, CannotPutBackWhileAMoveRuns) {
    Stage stage(scenes::movedResults);
    stage.world.processes.block();
    EXPECT_TRUE(stage.click("putBack"));
    EXPECT_TRUE(*stage.state->moving);
    EXPECT_FALSE(stage.find("putBack")->isEnabled());
    stage.world.processes.release();
    finishMove(stage);
    EXPECT_TRUE(stage.find("putBack")->isEnabled())
        << "the script said nothing, so it is still to do";
}

TEST(MovedSection, ASecondClickOnTheButtonDoesNotOpenOrClose) {
    Stage stage(scenes::movedResults);
    stage.world.processes.block();
    EXPECT_TRUE(stage.click("putBack"));
    EXPECT_TRUE(stage.click("putBack"));
    EXPECT_EQ(rows(stage), -1);
    stage.world.processes.release();
    finishMove(stage);
}

TEST(MovedSection, IsWalkedByKeyboardAlone) {
    Stage stage(scenes::movedResults);
    script(stage, {});
    ASSERT_TRUE(stage.tabTo("movedHeader"));
    stage.press(Qt::Key_Left);
    EXPECT_EQ(rows(stage), -1) << "closed already";
    stage.press(Qt::Key_Right);
    stage.press(Qt::Key_Right);
    EXPECT_EQ(rows(stage), 19);
    stage.press(Qt::Key_Return);
    EXPECT_EQ(rows(stage), -1);
    stage.press(Qt::Key_Space);
    EXPECT_EQ(rows(stage), 19);
    for (const auto* name : {"putBack", "movedFilter", "movedMessages"}) {
        stage.press(Qt::Key_Tab);
        EXPECT_EQ(stage.focused(), QString::fromUtf8(name));
    }
    stage.press(Qt::Key_Down);
    for (const auto key : {Qt::Key_Space, Qt::Key_Return, Qt::Key_Enter}) {
        const bool before = stage.state->putBack->contains(12);
        stage.press(key);
        EXPECT_NE(stage.state->putBack->contains(12), before) << key;
        EXPECT_EQ(stage.find("movedMessages")->property("currentIndex").toInt(), 1);
    }
    stage.press(Qt::Key_Tab);
    EXPECT_EQ(stage.focused(), QStringLiteral("back")) << "the list is one stop, and the last";
    ASSERT_TRUE(stage.tabTo("putBack"));
    stage.press(Qt::Key_Return);
    EXPECT_EQ(stage.focused(), QStringLiteral("movedHeader")) << "the button goes with its work";
    finishMove(stage);
    EXPECT_EQ(stage.focused(), QStringLiteral("movedHeader"));
    EXPECT_EQ(rows(stage), 17);
}

TEST(MovedSection, TheKeyboardIsNotLostWithTheLastMessage) {
    Stage stage([](AppState& state) {
        scenes::movedResults(state);
        state.movedAlready.set({"1@letters.example"});
    });
    script(stage, {});
    ASSERT_TRUE(stage.tabTo("putBack"));
    stage.press(Qt::Key_Space);
    finishMove(stage);
    EXPECT_EQ(stage.find("movedHeader"), nullptr);
    stage.press(Qt::Key_Backtab, Qt::ShiftModifier);
    EXPECT_EQ(stage.focused(), QStringLiteral("category1"));
}

TEST(MovedSection, TheKeyOfFindGoesToTheFilterOfTheListInUse) {
    Stage stage(scenes::movedResults);
    stage.press(Qt::Key_F, Qt::ControlModifier);
    EXPECT_NE(stage.focused(), QStringLiteral("movedFilter")) << "nothing is open";
    open(stage);
    stage.press(Qt::Key_F, Qt::ControlModifier);
    EXPECT_EQ(stage.focused(), QStringLiteral("movedFilter"));
    EXPECT_TRUE(stage.click("category0"));
    stage.press(Qt::Key_F, Qt::ControlModifier);
    EXPECT_EQ(stage.focused(), QStringLiteral("filter"));
    ASSERT_TRUE(stage.tabTo("movedMessages"));
    stage.press(Qt::Key_F, Qt::ControlModifier);
    EXPECT_EQ(stage.focused(), QStringLiteral("movedFilter"));
}

TEST(MovedSection, EscapeClearsItsFilterFirstAndThenGoesBack) {
    for (const auto* place : {"movedFilter", "movedMessages"}) {
        SCOPED_TRACE(place);
        Stage stage(scenes::movedResults);
        open(stage);
        stage.press(Qt::Key_F, Qt::ControlModifier);
        stage.type(QStringLiteral("quill1."));
        ASSERT_TRUE(stage.tabTo(place));
        stage.press(Qt::Key_Escape);
        EXPECT_EQ(rows(stage), 19);
        EXPECT_EQ(stage.focused(), QString::fromUtf8(place));
        stage.press(Qt::Key_Escape);
        EXPECT_EQ(*stage.state->screen, AppState::Screen::welcome);
    }
}

TEST(MovedSection, TheBarsComeBetweenTheCategoriesAndIt) {
    Stage stage([](AppState& state) {
        scenes::movedResults(state);
        state.setCategoryTicked(Category::advertisingOrPromotion, false);
    });
    ASSERT_TRUE(stage.tabTo("undo"));
    stage.press(Qt::Key_Tab);
    EXPECT_EQ(stage.focused(), QStringLiteral("movedHeader"));
    stage.press(Qt::Key_Backtab, Qt::ShiftModifier);
    EXPECT_EQ(stage.focused(), QStringLiteral("undo"));
    stage.press(Qt::Key_Backtab, Qt::ShiftModifier);
    EXPECT_EQ(stage.focused(), QStringLiteral("category1"));
}

TEST(MovedSection, TheBarsAreLeftBackwardsWhereNoCategoryStands) {
    Stage stage([](AppState& state) {
        scenes::movedResults(state);
        state.setCategoryTicked(Category::advertisingOrPromotion, false);
        state.movedAlready.mutate([&](auto& moved) {
            for (const auto& verdict : *state.verdicts)
                if (verdict.messageID) moved.insert(*verdict.messageID);
        });
        std::vector<Verdict> withIds;
        for (const auto& verdict : *state.verdicts)
            if (verdict.messageID) withIds.push_back(verdict);
        state.verdicts.set(VerdictList(std::move(withIds)));
    });
    EXPECT_EQ(stage.find("category0"), nullptr);
    ASSERT_TRUE(stage.tabTo("undo"));
    stage.press(Qt::Key_Backtab, Qt::ShiftModifier);
    EXPECT_EQ(stage.focused(), QStringLiteral("automatic"));
    EXPECT_EQ(stage.main->warnings(), QStringList());
}

TEST(MovedSection, ForgetsItsFilterWithTheScreen) {
    Stage stage(scenes::movedResults);
    open(stage);
    stage.press(Qt::Key_F, Qt::ControlModifier);
    stage.type(QStringLiteral("quill1."));
    stage.state->navigate(AppState::Screen::history);
    ASSERT_NE(stage.await("historyScreen"), nullptr);
    stage.state->goBack();
    ASSERT_NE(stage.await("movedHeader"), nullptr);
    EXPECT_EQ(rows(stage), -1);
    open(stage);
    EXPECT_EQ(rows(stage), 19);
}

TEST(MovedSection, TellsAReaderAllThatItShows) {
    Stage stage(scenes::movedResults);
    const Reader reader(stage);
    auto* header = reader.find("Already moved to Brindlet Junk");
    EXPECT_EQ(header->role(), QAccessible::Button);
    EXPECT_EQ(header->text(QAccessible::Description),
              QStringLiteral("DONE, 1 to put back, Collapsed"));
    press(header);
    stage.settle();
    EXPECT_EQ(header->text(QAccessible::Description),
              QStringLiteral("DONE, 1 to put back, Expanded"));
    EXPECT_EQ(reader.find("Moved messages")->role(), QAccessible::List);
    EXPECT_EQ(reader.find("Filter these")->role(), QAccessible::EditableText);
    EXPECT_EQ(reader.find("Tick anything that shouldn't have gone.")->role(),
              QAccessible::StaticText);

    ASSERT_NE(stage.await("movedRow1"), nullptr);
    auto* row = reader.find(secondRow);
    EXPECT_EQ(row->role(), QAccessible::CheckBox);
    EXPECT_TRUE(row->state().checkable);
    EXPECT_FALSE(row->state().checked);
    press(row);
    stage.settle();
    EXPECT_TRUE(row->state().checked);
    act(row, QAccessibleActionInterface::toggleAction());
    stage.settle();
    EXPECT_FALSE(row->state().checked);

    auto* button = reader.find("Put 1 back in INBOX");
    EXPECT_EQ(button->role(), QAccessible::Button);
    press(button);
    EXPECT_TRUE(*stage.state->moving);
    stage.settle();
    finishMove(stage);
}

TEST(MovedSection, TheFocusOfAReaderFollowsTheArrowKeys) {
    Stage stage(scenes::movedResults);
    const Reader reader(stage);
    open(stage);
    ASSERT_TRUE(stage.tabTo("movedMessages"));
    EXPECT_FALSE(reader.find(secondRow)->state().focused);
    stage.press(Qt::Key_Down);
    EXPECT_TRUE(reader.find(secondRow)->state().focused);
}

}  // namespace
}  // namespace brindlet::testing
