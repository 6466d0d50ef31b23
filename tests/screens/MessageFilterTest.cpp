#include <gtest/gtest.h>

#include <QSignalSpy>

#include "screens/Review.h"

namespace brindlet::testing {
namespace {

using Model = screens::MessagesModel;

std::vector<Verdict> mixed() {
    return {Review::ad("Harbor & Pine <hello@pine.example>", "Weekend SALE"),
            Review::ad("Loom <loom@loom.example>", "New threads"),
            Review::vetoed(Review::ad("Loom <loom@loom.example>", "Your sale receipt")),
            Review::withoutID(Review::ad("Sale Team", "Hello"))};
}

const QString heading = "These stay put - none of them will be moved";

TEST(MessageFilter, FindsSendersAndSubjectsWhateverTheirCase) {
    Review review(mixed());
    const std::pair<const char*, QStringList> rows[] = {
        {"sale", {"Weekend SALE", "Hello", heading, "Your sale receipt"}},
        {"SALE", {"Weekend SALE", "Hello", heading, "Your sale receipt"}},
        {"loom@", {"New threads", heading, "Your sale receipt"}},
        {"threads", {"New threads"}},
        {"receipt", {heading, "Your sale receipt"}},
        // A sender and a subject are two texts.
        {"TeamHello", {}},
        {"Team Hello", {}},
        {"nothing of the kind", {}},
        {"", {"Weekend SALE", "New threads", "Hello", heading, "Your sale receipt"}},
    };
    for (const auto& [filter, titles] : rows) {
        review.messages.setFilter(filter);
        EXPECT_EQ(review.titles(), titles) << filter;
    }
}

TEST(MessageFilter, GrowsAndShrinksLetterByLetter) {
    Review review(mixed());
    const std::pair<const char*, int> rows[] = {{"l", 5}, {"lo", 5}, {"loo", 3},  {"oo", 3},
                                                {"o", 5}, {"or", 1}, {"loom", 3}, {"", 5}};
    for (const auto& [filter, count] : rows) {
        review.messages.setFilter(filter);
        EXPECT_EQ(review.messages.rowCount(), count) << filter;
    }
}

TEST(MessageFilter, FindsWhatIsWrittenInAnyScript) {
    const std::string shalom = "\u05e9\u05dc\u05d5\u05dd \u05de\u05d1\u05e6\u05e2";
    Review review({Review::ad("A", "Caf\u00e9 au lait"), Review::ad("B", "CAFE\u0301 AU LAIT"),
                   Review::ad("C", shalom), Review::ad("D", "ΕΚΠΤΩΣΕΙΣ"),
                   Review::ad("E", "Große Straße")});
    const std::pair<QString, int> rows[] = {
        {"café", 2},
        {"CAFE\u0301", 2},
        {QString::fromStdString(shalom.substr(3 * 2)), 1},
        {"\u05de\u05d1\u05e6\u05e2", 1},
        {"εκπτωσεις", 1},
        {"strasse", 1},
    };
    for (const auto& [filter, count] : rows) {
        review.messages.setFilter(filter);
        EXPECT_EQ(review.messages.rowCount(), count) << filter.toStdString();
    }
}

TEST(MessageFilter, VeryLongSubjectsAreSearchedToTheirEnd) {
    Review review({Review::ad("A", std::string(10'000, 'x') + "needle"),
                   Review::ad("B", std::string(10'000, 'x'))});
    review.messages.setFilter("needle");
    EXPECT_EQ(review.messages.rowCount(), 1);
    review.messages.setFilter(QString(10'000, 'x') + "needle!");
    EXPECT_EQ(review.messages.rowCount(), 0);
}

TEST(MessageFilter, CountsItsMatches) {
    Review review(mixed());
    EXPECT_EQ(review.messages.matchLine(), "");
    review.messages.setFilter("loom");
    EXPECT_EQ(review.messages.matchLine(), "2 matches");
    EXPECT_EQ(review.messages.scrollLine(), "2 messages · scroll to see them all");
    review.messages.setFilter("threads");
    EXPECT_EQ(review.messages.matchLine(), "1 match");
    review.messages.setFilter("");
    EXPECT_EQ(review.messages.matchLine(), "");
}

TEST(MessageFilter, TheListStaysWhereNothingComesOrGoes) {
    Review review(mixed());
    review.messages.setFilter("threads");
    const QSignalSpy resets(&review.messages, &QAbstractItemModel::modelReset);
    const QSignalSpy filters(&review.messages, &Model::filterChanged);
    const QSignalSpy lines(&review.messages, &Model::linesChanged);
    review.messages.setFilter("thread");
    review.messages.setFilter("thread");
    EXPECT_EQ(resets.count(), 0);
    EXPECT_EQ(filters.count(), 1);
    EXPECT_EQ(lines.count(), 0);
    review.messages.setFilter("e");
    EXPECT_EQ(resets.count(), 1);
}

TEST(MessageFilter, TicksAndUnticksItsMatchesAndLearnsNothing) {
    Review review(mixed());
    review.messages.setFilter("sale");
    review.messages.untickAll();
    EXPECT_EQ(*review.state->approved, IdSet{2});
    EXPECT_EQ(review.state->lastSweep->value().what, "unticked 2") << "one has no id";
    review.messages.tickAll();
    EXPECT_EQ(*review.state->approved, (IdSet{1, 2, 3}));
    EXPECT_EQ(*review.state->learned, 0);
    EXPECT_TRUE(review.state->rules.session->empty());
}

TEST(MessageFilter, WithoutAnythingToTickNoSweepIsMade) {
    Review review(mixed());
    review.messages.setFilter("team");
    ASSERT_EQ(review.messages.rowCount(), 1);
    review.messages.tickAll();
    review.messages.untickAll();
    EXPECT_FALSE(review.state->lastSweep->has_value());
}

TEST(MessageFilter, TicksTellOnlyOfRowsThatAreThere) {
    Review review(mixed());
    review.messages.setFilter("threads");
    const QSignalSpy changes(&review.messages, &QAbstractItemModel::dataChanged);
    review.state->toggleMessage(1);
    review.results.refresh();
    EXPECT_EQ(changes.count(), 0);
    review.state->toggleMessage(2);
    review.results.refresh();
    EXPECT_EQ(changes.count(), 1);
}

TEST(MessageFilter, EndsWhenTheCategoryCloses) {
    Review review(mixed());
    review.messages.setFilter("threads");
    const QSignalSpy filters(&review.messages, &Model::filterChanged);
    review.results.toggleCategory(0);
    review.results.refresh();
    EXPECT_EQ(review.messages.filter(), "");
    EXPECT_EQ(review.messages.matchLine(), "");
    EXPECT_EQ(filters.count(), 1);
    review.results.toggleCategory(0);
    review.results.refresh();
    EXPECT_EQ(review.messages.rowCount(), 5);
}

TEST(MessageFilter, StaysWhileMessagesMove) {
    auto verdicts = mixed();
    verdicts[0].messageID = "moved@x.com";
    Review review(verdicts);
    review.messages.setFilter("sale");
    review.state->movedAlready.set({"moved@x.com"});
    review.results.refresh();
    EXPECT_EQ(review.messages.filter(), "sale");
    EXPECT_EQ(review.titles(), QStringList({"Hello", heading, "Your sale receipt"}));
    EXPECT_EQ(review.messages.matchLine(), "2 matches");
}

}  // namespace
}  // namespace brindlet::testing
