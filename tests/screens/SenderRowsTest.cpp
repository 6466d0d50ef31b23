#include <gtest/gtest.h>

#include <QSignalSpy>

#include "screens/Review.h"

namespace brindlet::testing {
namespace {

using Model = screens::MessagesModel;
using Strings = std::vector<std::string>;

// Pine has two messages, then come Loom, Quill with three, one without an address and one kept.
std::vector<Verdict> mixed() {
    return {Review::ad("Harbor & Pine <ann@pine.example>", "Pine 1"),
            Review::ad("Loom <loom@loom.example>", "Loom 1"),
            Review::ad("Quill <bob@quill.example>", "Quill 1"),
            Review::ad("Shop Team", "Team 1"),
            Review::ad("bob@quill.example", "Quill 2"),
            Review::vetoed(Review::ad("Loom <loom@loom.example>", "Loom kept")),
            Review::ad("Pine again <ann@pine.example>", "Pine 2"),
            Review::withoutID(Review::ad("Quill <bob@quill.example>", "Quill 3"))};
}

const QString heading = "These stay put - none of them will be moved";

struct Senders : Review {
    explicit Senders(std::vector<Verdict> verdicts = mixed()) : Review(std::move(verdicts)) {
        messages.setBySender(true);
    }
};

TEST(SenderRows, LargestFirstTiesByFirstMessageAndKeptMessagesAsTheyAre) {
    const Senders review;
    EXPECT_EQ(review.titles(),
              QStringList({"Quill", "Harbor & Pine", "Loom", "Shop Team", heading, "Loom kept"}));
    EXPECT_EQ(review.text(0, Model::DetailRole), "bob@quill.example");
    EXPECT_EQ(review.text(3, Model::DetailRole), "");
    EXPECT_EQ(review.at(0, Model::KindRole), Model::Sender);
    EXPECT_EQ(review.at(4, Model::KindRole), Model::Heading);
    EXPECT_EQ(review.at(5, Model::KindRole), Model::Message);
    EXPECT_EQ(review.at(5, Model::IndentRole), false);
    EXPECT_EQ(review.messages.scrollLine(), "4 senders · scroll to see them all");
}

TEST(SenderRows, SendersWithoutAnAddressAreGroupsByTheirText) {
    const Senders review(
        {Review::ad("Shop Team", "1"), Review::ad("Post Room", "2"), Review::ad("Shop Team", "3")});
    EXPECT_EQ(review.titles(), QStringList({"Shop Team", "Post Room"}));
    EXPECT_EQ(review.text(0, Model::CountRole), "2");
}

TEST(SenderRows, TellTheirTicks) {
    Senders review;
    EXPECT_EQ(review.text(0, Model::TickSymbolRole), "checkmark.square.fill")
        << "the one without an id cannot be";
    EXPECT_EQ(review.text(0, Model::CountRole), "3");
    EXPECT_EQ(review.text(0, Model::TickHelpRole), "Untick everything from this sender");
    EXPECT_EQ(review.text(0, Model::DescriptionRole),
              "3, Untick everything from this sender, Collapsed");
    review.state->toggleMessage(3);
    review.state->markReviewed("bob@quill.example");
    review.results.refresh();
    EXPECT_EQ(review.text(0, Model::TickSymbolRole), "minus.square.fill");
    EXPECT_EQ(review.text(0, Model::CountRole), "1 of 3");
    EXPECT_EQ(review.text(0, Model::DescriptionRole),
              "1 of 3, Last reviewed, Tick everything from this sender, Collapsed");
}

TEST(SenderRows, OpenToTheirMessagesOneAtATime) {
    Senders review;
    const QSignalSpy resets(&review.messages, &QAbstractItemModel::modelReset);
    review.messages.toggleExpanded(0);
    EXPECT_EQ(review.titles(),
              QStringList({"Quill", "Quill 1", "Quill 2", "Quill 3", "Harbor & Pine", "Loom",
                           "Shop Team", heading, "Loom kept"}));
    EXPECT_EQ(review.at(0, Model::ExpandedRole), true);
    EXPECT_EQ(review.text(0, Model::ChevronRole), "chevron.up");
    EXPECT_TRUE(review.text(0, Model::DescriptionRole).endsWith("Expanded"));
    EXPECT_EQ(review.at(1, Model::IndentRole), true);
    EXPECT_EQ(review.messages.senderRow(3), 0);
    EXPECT_EQ(review.messages.senderRow(8), -1);

    review.messages.toggleExpanded(5);
    EXPECT_EQ(review.titles(), QStringList({"Quill", "Harbor & Pine", "Loom", "Loom 1", "Shop Team",
                                            heading, "Loom kept"}));
    EXPECT_EQ(review.text(0, Model::ChevronRole), "chevron.down");
    review.messages.toggleExpanded(2);
    EXPECT_EQ(review.messages.rowCount(), 6);
    EXPECT_EQ(resets.count(), 0);
}

TEST(SenderRows, OpeningWhatIsOpenAndClosingWhatIsClosedDoNothing) {
    Senders review;
    review.messages.setExpanded(1, false);
    EXPECT_EQ(review.messages.rowCount(), 6);
    review.messages.setExpanded(1, true);
    review.messages.setExpanded(1, true);
    EXPECT_EQ(review.messages.rowCount(), 8);
    EXPECT_TRUE(review.state->reviewed->empty());
    review.messages.setExpanded(2, true);
    review.messages.setExpanded(6, true);
    EXPECT_EQ(review.messages.rowCount(), 8) << "messages and headings open nothing";
}

TEST(SenderRows, ALeftSenderIsReviewed) {
    Senders review;
    review.messages.toggleExpanded(0);
    EXPECT_EQ(*review.state->reviewed, Strings{});
    review.messages.toggleExpanded(4);
    EXPECT_EQ(*review.state->reviewed, Strings{"bob@quill.example"}) << "by another's opening";
    review.messages.toggleExpanded(1);
    EXPECT_EQ(review.state->reviewed->back(), "ann@pine.example") << "by itself";
    review.messages.toggleExpanded(3);
    review.messages.setBySender(false);
    EXPECT_EQ(review.state->reviewed->back(), "Shop Team") << "by the grouping's end";
    review.messages.setBySender(true);
    review.messages.toggleExpanded(2);
    review.messages.setFilter("Pine");
    EXPECT_EQ(review.state->reviewed->back(), "loom@loom.example") << "by a filter that hides it";
    review.messages.toggleExpanded(0);
    review.results.toggleCategory(0);
    EXPECT_EQ(review.state->reviewed->back(), "ann@pine.example") << "by the category's closing";
    EXPECT_EQ(review.state->reviewed->size(), 4U);
}

TEST(SenderRows, LeavingTheScreenReviewsWhatIsOpen) {
    Senders review;
    review.messages.toggleExpanded(0);
    review.results.leave();
    EXPECT_EQ(*review.state->reviewed, Strings{"bob@quill.example"});
    EXPECT_EQ(*review.state->reviewedCats, Strings{"advertisingOrPromotion"});
    review.results.refresh();
    EXPECT_FALSE(review.messages.bySender());
    EXPECT_EQ(review.messages.rowCount(), 9) << "the category is still open, as it was at first";
}

TEST(SenderRows, ATickTakesAllOfTheSenderAndLearns) {
    Senders review;
    review.messages.tick(0);
    EXPECT_EQ(*review.state->approved, (IdSet{1, 2, 4, 7}));
    EXPECT_EQ(review.state->lastSweep->value().what, "unticked 2");
    EXPECT_EQ(*review.state->learned, 1);
    review.state->toggleMessage(3);
    review.messages.tick(0);
    EXPECT_EQ(*review.state->approved, (IdSet{1, 2, 3, 4, 5, 7})) << "ticks until all are ticked";
    review.messages.tick(2);
    EXPECT_EQ(*review.state->approved, (IdSet{1, 3, 4, 5, 7})) << "what protection kept stays";
    EXPECT_FALSE(review.state->approved->contains(6));
}

TEST(SenderRows, ASenderWithoutIdsCannotBeTicked) {
    Senders review({Review::withoutID(Review::ad("A <a@a.example>", "1"))});
    EXPECT_EQ(review.text(0, Model::TickSymbolRole), "minus.square.dashed");
    EXPECT_EQ(review.at(0, Model::CanTickRole), false);
    EXPECT_EQ(review.text(0, Model::TickHelpRole), "");
    review.messages.tick(0);
    EXPECT_FALSE(review.state->lastSweep->has_value());
}

TEST(SenderRows, BehindAFilterASenderIsItsMatchesAndNothingIsLearned) {
    Senders review;
    review.messages.setFilter("Quill 1");
    EXPECT_EQ(review.titles(), QStringList{"Quill"});
    EXPECT_EQ(review.text(0, Model::CountRole), "1");
    EXPECT_EQ(review.messages.scrollLine(), "1 senders · scroll to see them all");
    review.messages.tick(0);
    EXPECT_EQ(*review.state->approved, (IdSet{1, 2, 4, 5, 7}));
    EXPECT_EQ(*review.state->learned, 0);
}

TEST(SenderRows, ATickBelowAnOpenSenderTellsOfBothOnce) {
    Senders review;
    review.messages.toggleExpanded(1);
    const QSignalSpy changes(&review.messages, &QAbstractItemModel::dataChanged);
    review.messages.tick(2);
    review.results.refresh();
    ASSERT_EQ(changes.count(), 1);
    EXPECT_EQ(changes[0][0].toModelIndex().row(), 1);
    EXPECT_EQ(changes[0][1].toModelIndex().row(), 2);
}

TEST(SenderRows, AKeptMessagesTickChangesNoSender) {
    Senders review;
    const QSignalSpy changes(&review.messages, &QAbstractItemModel::dataChanged);
    review.messages.tick(5);
    review.results.refresh();
    ASSERT_EQ(changes.count(), 1);
    EXPECT_EQ(changes[0][0].toModelIndex().row(), 5);
    EXPECT_EQ(changes[0][1].toModelIndex().row(), 5);
    EXPECT_EQ(review.text(5, Model::NoteRole), "Will be moved");
}

TEST(SenderRows, AnOpenSenderStaysOpenWhileItsMessagesMove) {
    auto verdicts = mixed();
    verdicts[2].messageID = "moved@x.com";
    Senders review(verdicts);
    review.messages.toggleExpanded(0);
    review.state->movedAlready.set({"moved@x.com"});
    review.results.refresh();
    EXPECT_EQ(review.titles(), QStringList({"Harbor & Pine", "bob@quill.example", "Quill 2",
                                            "Quill 3", "Loom", "Shop Team", heading, "Loom kept"}));
    EXPECT_TRUE(review.state->reviewed->empty());
}

TEST(SenderRows, ReviewMarksChangeTwoRowsAtMost) {
    Senders review;
    review.messages.toggleExpanded(3);
    review.messages.toggleExpanded(3);
    review.results.refresh();
    EXPECT_EQ(review.text(3, Model::ReviewedRole), "Last reviewed");
    EXPECT_EQ(review.text(3, Model::ReviewedHelpRole), "Last reviewed - click to jump there");
    const QSignalSpy changes(&review.messages, &QAbstractItemModel::dataChanged);
    review.state->markReviewed("loom@loom.example");
    review.results.refresh();
    EXPECT_EQ(changes.count(), 2);
    EXPECT_EQ(review.text(2, Model::ReviewedRole), "Last reviewed");
    EXPECT_EQ(review.text(3, Model::ReviewedRole), "Reviewed");
    EXPECT_EQ(review.text(3, Model::ReviewedHelpRole), "");
}

TEST(SenderRows, AJumpLeadsToTheSenderReviewedLast) {
    Senders review;
    const QSignalSpy jumps(&review.messages, &Model::jumped);
    review.messages.jumpToReviewed();
    EXPECT_EQ(jumps.count(), 0);
    review.state->markReviewed("loom@loom.example");
    review.messages.toggleExpanded(0);
    review.messages.jumpToReviewed();
    ASSERT_EQ(jumps.count(), 1);
    EXPECT_EQ(jumps[0][0].toInt(), 5);
    review.messages.setFilter("pine");
    review.messages.jumpToReviewed();
    EXPECT_EQ(jumps.count(), 1) << "it is not in the list";
}

TEST(SenderRows, GroupingEndsWhenTheCategoryCloses) {
    Senders review;
    const QSignalSpy groupings(&review.messages, &Model::bySenderChanged);
    review.results.toggleCategory(0);
    EXPECT_EQ(groupings.count(), 1);
    review.results.refresh();
    review.results.toggleCategory(0);
    review.results.refresh();
    EXPECT_FALSE(review.messages.bySender());
    EXPECT_EQ(review.messages.rowCount(), 9);
}

}  // namespace
}  // namespace brindlet::testing
