#include <gtest/gtest.h>

#include <QTest>

#include "screens/Stage.h"

namespace brindlet::testing {
namespace {

// The messages of the open category are 2, 12, 22 and so on, of four senders in turn. The one of
// row 6 has no id.
constexpr std::int64_t first = 2;
constexpr const char* withoutID = "row6";

bool ticked(const Stage& stage, std::int64_t id) {
    return stage.state->approved->contains(id);
}

QString text(const Stage& stage, const char* name) {
    const auto* item = stage.await(name);
    return item ? item->property("text").toString() : QString();
}

/// What the pointer's help says; empty while none stands.
QString help(const Stage& stage) {
    const auto* tip = stage.find("helpTip");
    return tip ? tip->property("text").toString() : QString();
}

bool helpComes(const Stage& stage, const char* expected) {
    return QTest::qWaitFor([&] { return help(stage) == QString::fromUtf8(expected); });
}

double bottomOf(const QQuickItem* item) {
    return item->mapToScene(QPointF(0, item->height())).y();
}

TEST(ReviewByMouse, AMessageIsTickedAnywhereOnItsRow) {
    Stage stage(scenes::openResults);
    ASSERT_TRUE(ticked(stage, first));
    EXPECT_TRUE(stage.click("row0"));
    EXPECT_FALSE(ticked(stage, first));
    EXPECT_TRUE(stage.click("box0"));
    EXPECT_TRUE(ticked(stage, first));
}

TEST(ReviewByMouse, AMessageWithoutAnIdCannotBeTicked) {
    Stage stage(scenes::openResults);
    const auto before = *stage.state->approved;
    EXPECT_FALSE(stage.await(withoutID)->parentItem()->property("canTick").toBool());
    EXPECT_TRUE(stage.click(withoutID));
    EXPECT_EQ(*stage.state->approved, before);
}

TEST(ReviewByMouse, TheButtonAtTheEndOfARowOpensTheMessageAndDoesNotTickIt) {
    Stage stage(scenes::openResults);
    EXPECT_TRUE(stage.hover("row0"));
    EXPECT_TRUE(stage.click("rowButton0"));
    EXPECT_TRUE(ticked(stage, first));
    EXPECT_EQ(stage.world.desktop.opened,
              std::vector<std::string>{"message://%3c1@letters.example%3e"});
}

TEST(ReviewByMouse, TheWholeCategoryIsTickedByItsBox) {
    Stage stage(scenes::openResults);
    EXPECT_TRUE(stage.click("categoryTick1"));
    EXPECT_TRUE(ticked(stage, 52)) << "the protected one too";
    EXPECT_TRUE(stage.click("categoryTick1"));
    EXPECT_FALSE(ticked(stage, first));
    EXPECT_EQ(*stage.state->expand, Category::newsletterOrDigest) << "and it stays open";
}

TEST(ReviewByMouse, ASenderOpensOnItsRowAndIsTickedByItsBox) {
    Stage stage(scenes::openResults);
    auto* list = stage.await("messages");
    EXPECT_TRUE(stage.click("bySender"));
    const auto senders = list->property("count").toInt();
    EXPECT_TRUE(stage.click("row0"));
    EXPECT_EQ(list->property("count").toInt(), senders + 5);
    EXPECT_TRUE(stage.click("rowButton0"));
    EXPECT_EQ(list->property("count").toInt(), senders) << "the chevron closes it again";
    EXPECT_TRUE(stage.click("box0"));
    EXPECT_FALSE(ticked(stage, first));
    EXPECT_FALSE(ticked(stage, 42)) << "the same sender's next";
    EXPECT_TRUE(ticked(stage, 12)) << "another sender's";
}

TEST(ReviewByMouse, TypingFiltersTheOpenCategory) {
    Stage stage(scenes::openResults);
    EXPECT_EQ(stage.find("tickAll"), nullptr);
    EXPECT_TRUE(stage.click("filter"));
    stage.type(QStringLiteral("QUILL21."));
    EXPECT_EQ(stage.await("messages")->property("count").toInt(), 5);
    EXPECT_EQ(text(stage, "filterOutcome"), QStringLiteral("5 matches"));
    EXPECT_TRUE(stage.click("untickAll"));
    EXPECT_FALSE(ticked(stage, 22));
    EXPECT_TRUE(ticked(stage, first)) << "not what the filter hides";
    EXPECT_TRUE(stage.click("tickAll"));
    EXPECT_TRUE(ticked(stage, 22));
    EXPECT_TRUE(stage.click("filterClear"));
    EXPECT_EQ(stage.model().results()->messages()->filter(), QString());
    EXPECT_EQ(text(stage, "filter"), QString());
    EXPECT_EQ(stage.find("filterClear"), nullptr);
}

TEST(ReviewByMouse, AnOfferIsTakenAndUndone) {
    Stage stage(scenes::openResults);
    EXPECT_EQ(stage.find("offerBar"), nullptr);
    EXPECT_TRUE(stage.click("row0"));
    EXPECT_EQ(text(stage, "question"), QStringLiteral("Do the same for 4 more like this?"));
    const auto before = *stage.state->approved;
    EXPECT_TRUE(stage.click("offer0"));
    EXPECT_EQ(stage.find("offerBar"), nullptr);
    EXPECT_FALSE(ticked(stage, 42));
    EXPECT_EQ(text(stage, "undoText"), QStringLiteral("unticked 4"));
    EXPECT_TRUE(stage.click("undo"));
    EXPECT_EQ(*stage.state->approved, before);
    EXPECT_EQ(stage.find("undoBar"), nullptr);
}

TEST(ReviewByMouse, TheLastButtonOfAnOfferDeclinesIt) {
    Stage stage(scenes::openResults);
    EXPECT_TRUE(stage.click("row0"));
    const auto before = *stage.state->approved;
    const auto last = stage.model().results()->offer()->buttons()->rowCount() - 1;
    const auto name = QStringLiteral("offer%1").arg(last);
    EXPECT_EQ(text(stage, name.toUtf8()), QStringLiteral("Not this time"));
    EXPECT_TRUE(stage.click(name));
    EXPECT_EQ(stage.find("offerBar"), nullptr);
    EXPECT_EQ(*stage.state->approved, before);
}

TEST(ReviewByMouse, TheUndoStandsAboveTheOfferAndBothClearOfThePagesEnd) {
    Stage stage(scenes::correctedResults);
    const auto* undo = stage.await("undoBar");
    const auto* offer = stage.await("offerBar");
    ASSERT_NE(undo, nullptr);
    ASSERT_NE(offer, nullptr);
    EXPECT_LT(bottomOf(undo), offer->mapToScene(QPointF()).y());
    EXPECT_LT(bottomOf(offer), stage.window()->height());
    auto* page = stage.find("resultsPage");
    page->setProperty("contentY", page->property("contentHeight").toDouble() - page->height());
    stage.settle();
    EXPECT_LT(bottomOf(stage.find("category9")), undo->mapToScene(QPointF()).y());
}

TEST(ReviewByMouse, WhatOpensIsInSightThoughSomethingAboveCloses) {
    Stage stage(scenes::openResults);
    auto* page = stage.await("resultsPage");
    for (const auto* category : {"category6", "category9", "category7"}) {
        SCOPED_TRACE(category);
        page->setProperty("contentY", page->property("contentHeight").toDouble() - page->height());
        stage.settle();
        EXPECT_TRUE(stage.click(category));
        const auto* header = stage.find(category);
        EXPECT_GE(header->mapToScene(QPointF()).y(), 0);
        EXPECT_LE(bottomOf(stage.await("messages")), stage.window()->height());
    }
}

TEST(ReviewByMouse, LastReviewedLeadsThere) {
    Stage stage(scenes::openResults);
    stage.window()->resize(1080, 900);
    EXPECT_TRUE(stage.click("category0"));
    EXPECT_NE(stage.await("categoryReviewed1"), nullptr);
    EXPECT_TRUE(stage.click("categoryReviewed1"));
    EXPECT_EQ(*stage.state->expand, Category::newsletterOrDigest);
    EXPECT_EQ(stage.focused(), QStringLiteral("category1"));
}

TEST(ReviewByMouse, ASendersMarkLeadsToTheLastReviewed) {
    Stage stage(scenes::openResults);
    EXPECT_TRUE(stage.click("bySender"));
    EXPECT_TRUE(stage.click("row2"));
    EXPECT_TRUE(stage.click("row2"));
    stage.find("messages")->setProperty("currentIndex", 0);
    EXPECT_TRUE(stage.click("rowReviewed2"));
    EXPECT_EQ(stage.find("messages")->property("currentIndex").toInt(), 2);
    EXPECT_FALSE(stage.find("row2")->parentItem()->property("expanded").toBool());
}

TEST(ReviewByMouse, HelpStandsWhereThePointerRestsAndGoesWithAClick) {
    Stage stage(scenes::results);
    EXPECT_TRUE(stage.hover("categoryTick4"));
    EXPECT_EQ(help(stage), QString()) << "not at once";
    EXPECT_TRUE(helpComes(stage, "Tick this whole category"));
    EXPECT_TRUE(stage.click("categoryTick4"));
    EXPECT_TRUE(helpComes(stage, ""));
    EXPECT_TRUE(stage.hover("undo"));
    EXPECT_TRUE(helpComes(stage, "Put those 19 messages back exactly as they were"));
    EXPECT_TRUE(stage.hover("resultsTitle"));
    EXPECT_TRUE(helpComes(stage, ""));
}

TEST(ReviewByMouse, ABoxWithoutATickSaysWhy) {
    Stage stage(scenes::openResults);
    EXPECT_TRUE(stage.hover("box6"));
    EXPECT_TRUE(helpComes(stage,
                          "Mail has no id for this message, so Brindlet can't tick or move it. "
                          "Everything else works as usual."));
    const auto* tip = stage.find("helpTip");
    const auto place = tip->mapRectToScene(QRectF(0, 0, tip->width(), tip->height()));
    EXPECT_GE(place.left(), 0);
    EXPECT_LE(place.bottom(), stage.window()->height());
}

TEST(ReviewByMouse, RulesHistoryAndTheScheduleAreOneClickAway) {
    for (const auto& [name, screen] : {std::pair("rules", AppState::Screen::rules),
                                       std::pair("history", AppState::Screen::history),
                                       std::pair("automatic", AppState::Screen::automatic)}) {
        Stage stage(scenes::results);
        EXPECT_TRUE(stage.click(name));
        EXPECT_EQ(*stage.state->screen, screen);
    }
}

}  // namespace
}  // namespace brindlet::testing
