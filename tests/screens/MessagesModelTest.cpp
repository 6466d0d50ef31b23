#include "screens/results/MessagesModel.h"

#include <gtest/gtest.h>

#include <QSignalSpy>

#include "screens/Review.h"
#include "screens/look/Tone.h"

namespace brindlet::testing {
namespace {

using Model = screens::MessagesModel;
using Ids = std::vector<std::int64_t>;

std::vector<Verdict> ads(int count) {
    std::vector<Verdict> made;
    for (int i = 1; i <= count; ++i)
        made.push_back(Review::ad("Shop <shop@shop.example>", "Sale " + std::to_string(i)));
    return made;
}

/// The rows that one notification covered.
std::pair<int, int> rowsOf(const QList<QVariant>& change) {
    return {change[0].toModelIndex().row(), change[1].toModelIndex().row()};
}

TEST(MessagesModel, AMessageIsItsSubjectItsSenderAndItsTick) {
    const Review review({Review::ad("Shop <shop@shop.example>", "Sale"),
                         Review::withoutID(Review::ad("Shop <shop@shop.example>", ""))});
    EXPECT_EQ(review.at(0, Model::KindRole), Model::Message);
    EXPECT_EQ(review.at(0, Model::IndentRole), false);
    EXPECT_EQ(review.text(0, Model::TitleRole), "Sale");
    EXPECT_EQ(review.text(0, Model::DetailRole), "Shop <shop@shop.example>");
    EXPECT_EQ(review.text(0, Model::TickSymbolRole), "checkmark.square.fill");
    EXPECT_EQ(review.text(0, Model::TickHelpRole), "");
    EXPECT_EQ(review.at(0, Model::CanTickRole), true);
    EXPECT_EQ(review.text(0, Model::OpenHelpRole), "Open in Mail");
    EXPECT_EQ(review.text(0, Model::CountRole), "");
    EXPECT_EQ(review.text(0, Model::ChevronRole), "");
    EXPECT_EQ(review.text(0, Model::DescriptionRole), "");

    EXPECT_EQ(review.text(1, Model::TitleRole), "(no subject)");
    EXPECT_EQ(review.text(1, Model::TickSymbolRole), "minus.square.dashed");
    EXPECT_EQ(review.at(1, Model::CanTickRole), false);
    EXPECT_EQ(review.text(1, Model::OpenHelpRole), "");
    EXPECT_EQ(review.text(1, Model::DescriptionRole),
              "Mail has no id for this message, so Brindlet can't tick or move it. Everything else "
              "works as usual.");
}

TEST(MessagesModel, EveryRoleOfEveryKindOfRowIsOfItsType) {
    Review review({Review::ad("A <a@a.example>", "1"), Review::vetoed(Review::ad("B", "2"))});
    review.messages.setBySender(true);
    review.messages.setExpanded(0, true);
    ASSERT_EQ(review.messages.rowCount(), 4);
    const auto roles = review.messages.roleNames().keys();
    for (int row = 0; row < 4; ++row)
        for (const int role : roles)
            EXPECT_TRUE(review.messages.index(row).data(role).isValid()) << row << " " << role;
}

TEST(MessagesModel, WhatProtectionKeptStandsLastUnderItsHeading) {
    Review review({Review::vetoed(Review::ad("A", "1")), Review::ad("B", "2"),
                   Review::vetoed(Review::ad("C", "3")), Review::ad("D", "4")});
    EXPECT_EQ(review.titles(),
              QStringList({"2", "4", "These stay put - none of them will be moved", "1", "3"}));
    EXPECT_EQ(review.at(2, Model::KindRole), Model::Heading);
    review.messages.tick(2);
    EXPECT_EQ(*review.state->approved, (IdSet{2, 4}));
}

TEST(MessagesModel, InAJunkFolderProtectedMessagesNeedNoHeading) {
    const Review review({Review::vetoed(Review::ad("A", "1")), Review::ad("B", "2")}, "Junk");
    EXPECT_EQ(review.titles(), QStringList({"2", "1"}));
}

TEST(MessagesModel, ATickIsAQuestionToTheSession) {
    Review review(ads(3));
    review.messages.tick(1);
    EXPECT_EQ(*review.state->approved, (IdSet{1, 3}));
    EXPECT_EQ(*review.state->learned, 1);
    ASSERT_TRUE(review.state->pending->has_value());
    EXPECT_EQ(review.state->pending->value().everything, (Ids{1, 3}));
    review.results.refresh();
    EXPECT_EQ(review.text(1, Model::TickSymbolRole), "square");
    EXPECT_EQ(review.text(1, Model::NoteRole), "Will stay put");
    EXPECT_EQ(review.at(1, Model::NoteToneRole), screens::tones::Green);
    EXPECT_EQ(review.text(1, Model::NoteHelpRole),
              "Will stay put - Brindlet will remember this sender");
    EXPECT_EQ(review.text(1, Model::DescriptionRole),
              "Will stay put - Brindlet will remember this sender");
}

TEST(MessagesModel, AMessageWithoutAnIdIsNotTicked) {
    Review review({Review::withoutID(Review::ad("A", "1"))});
    review.messages.tick(0);
    EXPECT_TRUE(review.state->approved->empty());
    EXPECT_TRUE(review.state->touched->empty());
}

TEST(MessagesModel, RowsThatAreNotThereDoNothing) {
    Review review(ads(2));
    for (const int row : {-1, 2, 99}) {
        review.messages.tick(row);
        review.messages.openInMail(row);
        review.messages.toggleExpanded(row);
        review.messages.setExpanded(row, true);
        EXPECT_EQ(review.messages.senderRow(row), -1);
    }
    EXPECT_EQ(review.state->approved->size(), 2U);
    EXPECT_TRUE(review.world.desktop.opened.empty());
}

TEST(MessagesModel, RowsOfAListThatIsGoneKeepTheirWordsAndDoNothing) {
    Review review(ads(2));
    review.messages.setFilter("sale");
    Verdict other = Review::ad("B", "Another message of the same id");
    other.id = 1;
    review.state->verdicts.set(VerdictList({other}));
    EXPECT_EQ(review.titles(), QStringList({"Sale 1", "Sale 2"}));
    review.messages.tick(0);
    review.messages.tick(1);
    review.messages.tickAll();
    review.messages.untickAll();
    review.messages.openInMail(0);
    EXPECT_EQ(review.state->approved->size(), 2U);
    EXPECT_TRUE(review.world.desktop.opened.empty());
    review.messages.setFilter("another");
    review.messages.setBySender(true);
    review.results.refresh();
    ASSERT_EQ(review.messages.rowCount(), 1);
    EXPECT_EQ(review.at(0, Model::KindRole), Model::Sender);
    EXPECT_EQ(review.messages.matchLine(), "1 match");
}

TEST(MessagesModel, ATickTellsOfOneRowOnce) {
    Review review(ads(50));
    const QSignalSpy changes(&review.messages, &QAbstractItemModel::dataChanged);
    const QSignalSpy resets(&review.messages, &QAbstractItemModel::modelReset);
    review.messages.tick(7);
    review.results.refresh();
    ASSERT_EQ(changes.count(), 1);
    EXPECT_EQ(rowsOf(changes[0]), std::pair(7, 7));
    review.results.refresh();
    EXPECT_EQ(changes.count(), 1);
    EXPECT_EQ(resets.count(), 0);
}

TEST(MessagesModel, TenTicksTellOnceAndOfNoMoreThanTheirRows) {
    Review review(ads(50));
    const QSignalSpy changes(&review.messages, &QAbstractItemModel::dataChanged);
    for (int row = 10; row < 20; ++row) review.messages.tick(row);
    review.results.refresh();
    ASSERT_EQ(changes.count(), 1);
    EXPECT_EQ(rowsOf(changes[0]), std::pair(10, 19));
}

TEST(MessagesModel, TheSameTicksAgainTellNobody) {
    Review review(ads(50));
    const QSignalSpy changes(&review.messages, &QAbstractItemModel::dataChanged);
    review.state->approved.set(IdSet(*review.state->approved));
    review.messages.tick(3);
    review.messages.tick(3);
    review.results.refresh();
    EXPECT_EQ(changes.count(), 0);
}

TEST(MessagesModel, TicksElsewhereTellNobodyHere) {
    auto verdicts = ads(2);
    verdicts.push_back(Review::ad("A", "3"));
    verdicts.back().category = Category::newsletterOrDigest;
    Review review(verdicts);
    const QSignalSpy changes(&review.messages, &QAbstractItemModel::dataChanged);
    review.state->toggleMessage(3);
    review.results.refresh();
    EXPECT_EQ(changes.count(), 0);
}

TEST(MessagesModel, OpensAMessageInTheMailProgram) {
    auto verdicts = ads(2);
    verdicts[0].messageID = "50%@x.example";
    verdicts.push_back(Review::withoutID(Review::ad("A", "3")));
    verdicts.push_back(Review::ad("A", "4"));
    verdicts.back().messageID = "no address@x";
    Review review(verdicts);
    for (int row = 0; row < 4; ++row) review.messages.openInMail(row);
    EXPECT_EQ(
        review.world.desktop.opened,
        (std::vector<std::string>{"message://%3c50%25@x.example%3e", "message://%3cad@x.com%3e"}));
    EXPECT_EQ(review.text(3, Model::OpenHelpRole), "");
}

TEST(MessagesModel, AClosedCategoryHasNoRows) {
    Review review(ads(3));
    review.state->expand.set(std::nullopt);
    review.results.refresh();
    EXPECT_EQ(review.messages.rowCount(), 0);
    EXPECT_EQ(review.messages.scrollLine(), "0 messages · scroll to see them all");
}

TEST(MessagesModel, WhatHasMovedHasNoRow) {
    auto verdicts = ads(3);
    verdicts[1].messageID = "moved@x.com";
    Review review(verdicts);
    review.state->movedAlready.set({"moved@x.com"});
    review.results.refresh();
    EXPECT_EQ(review.titles(), QStringList({"Sale 1", "Sale 3"}));
    EXPECT_EQ(review.messages.scrollLine(), "2 messages · scroll to see them all");
}

}  // namespace
}  // namespace brindlet::testing
