#include "screens/results/OfferModel.h"

#include <gtest/gtest.h>

#include <QSignalSpy>

#include "screens/Review.h"

namespace brindlet::testing {
namespace {

using Ids = std::vector<std::int64_t>;
using screens::OfferButtonsModel;

/// Five ads of one sender, of which three are worded alike.
struct Offered : Review {
    Offered()
        : Review({ad("Shop <ann@shop.example>", "Last chance 1"),
                  ad("Shop <ann@shop.example>", "Last chance 2"),
                  ad("Shop <ann@shop.example>", "Last chance 3"),
                  ad("Shop <ann@shop.example>", "Bread"), ad("Shop <ann@shop.example>", "Tea")}) {}

    screens::OfferModel& offer = *results.offer();
    const QAbstractItemModelTester buttonsTester{
        offer.buttons(), QAbstractItemModelTester::FailureReportingMode::Fatal};

    QStringList labels() const {
        QStringList all;
        for (int row = 0; row < offer.buttons()->rowCount(); ++row)
            all += offer.buttons()->index(row).data(OfferButtonsModel::LabelRole).toString();
        return all;
    }
    void tick(int row) {
        messages.tick(row);
        results.refresh();
    }
    void set(const PendingRule& made) {
        state->pending.set(made);
        results.refresh();
    }
    static PendingRule made() {
        PendingRule made;
        made.sender = made.display = "ann@shop.example";
        made.category = Category::advertisingOrPromotion;
        made.sourceID = 1;
        made.members = {2};
        made.kin = {2, 3};
        made.everything = {2, 3, 4, 5};
        made.templateWords = {"Last", "chance"};
        return made;
    }
};

TEST(OfferModel, IsHiddenWithoutAnOffer) {
    const Offered review;
    EXPECT_FALSE(review.offer.shown());
    EXPECT_EQ(review.offer.question(), "");
    EXPECT_EQ(review.labels(), QStringList{});
}

TEST(OfferModel, ACorrectionIsOfferedForItsLike) {
    Offered review;
    review.tick(0);
    EXPECT_TRUE(review.offer.shown());
    EXPECT_EQ(review.offer.symbol(), "wand.and.stars");
    EXPECT_EQ(review.offer.question(), "Do the same for 2 more like this?");
    EXPECT_EQ(review.offer.explanation(),
              "“last chance” - their other Ads & promotions is untouched");
    EXPECT_EQ(review.labels(), QStringList({"These 2", "Every Ads & promotions from this sender",
                                            "Always", "Not this time"}));
    EXPECT_EQ(review.offer.buttons()->index(2).data(OfferButtonsModel::HelpRole),
              "Change these, and keep the rule for good");
}

TEST(OfferModel, EachButtonTakesItsOwnList) {
    const struct {
        const char* label;
        IdSet left;
        std::size_t rules;
    } rows[] = {
        {"These 1", {1, 3, 4, 5}, 0},
        {"All 2 like these", {1, 4, 5}, 0},
        {"Every Ads & promotions from this sender", {1}, 0},
        {"Always", {1, 3, 4, 5}, 1},
        {"Not this time", {1, 2, 3, 4, 5}, 0},
    };
    for (int row = 0; row < 5; ++row) {
        SCOPED_TRACE(rows[row].label);
        Offered review;
        review.set(Offered::made());
        ASSERT_EQ(review.labels().value(row), rows[row].label);
        review.offer.press(row);
        EXPECT_EQ(*review.state->approved, rows[row].left);
        EXPECT_EQ(review.state->rules.all->size(), rows[row].rules);
        EXPECT_FALSE(review.state->pending->has_value());
        review.results.refresh();
        EXPECT_FALSE(review.offer.shown());
    }
}

TEST(OfferModel, AlwaysTakesTheNarrowestListThereIs) {
    auto made = Offered::made();
    made.members.clear();
    {
        Offered review;
        review.set(made);
        ASSERT_EQ(review.labels().value(2), "Always");
        review.offer.press(2);
        EXPECT_EQ(*review.state->approved, (IdSet{1, 4, 5}));
    }
    made.kin.clear();
    Offered review;
    review.set(made);
    ASSERT_EQ(review.labels().value(1), "Always");
    review.offer.press(1);
    EXPECT_EQ(*review.state->approved, IdSet{1});
    ASSERT_EQ(review.state->rules.all->size(), 1U);
    EXPECT_TRUE(review.state->rules.all->front().templateWords.empty());
}

TEST(OfferModel, AnOfferThatCameMeanwhileIsNotTakenBlindly) {
    Offered review;
    review.set(Offered::made());
    auto other = Offered::made();
    other.sourceID = 2;
    review.state->pending.set(other);
    review.offer.press(0);
    EXPECT_EQ(review.state->approved->size(), 5U);
    EXPECT_TRUE(review.state->pending->has_value());
    review.state->pending.set(std::nullopt);
    review.offer.press(0);
    EXPECT_EQ(review.state->approved->size(), 5U);
}

TEST(OfferModel, AFinishedSearchDoesNotShiftTheButtonUnderTheFinger) {
    Offered review;
    auto made = Offered::made();
    made.kin.clear();
    review.set(made);
    ASSERT_EQ(review.labels().value(1), "Every Ads & promotions from this sender");
    review.state->pending.set(Offered::made());
    review.offer.press(1);
    EXPECT_EQ(*review.state->approved, IdSet{1});
}

TEST(OfferModel, ButtonsThatAreNotThereDoNothing) {
    Offered review;
    review.offer.press(0);
    review.set(Offered::made());
    review.offer.press(-1);
    review.offer.press(5);
    EXPECT_TRUE(review.state->pending->has_value());
}

TEST(OfferModel, TellsOnceOfTenChangesAndNotOfTheSame) {
    Offered review;
    const QSignalSpy words(&review.offer, &screens::OfferModel::wordsChanged);
    const QSignalSpy resets(review.offer.buttons(), &QAbstractItemModel::modelReset);
    for (int i = 1; i <= 10; ++i) {
        auto made = Offered::made();
        made.members.assign(static_cast<std::size_t>(i), 2);
        review.state->pending.set(made);
    }
    review.results.refresh();
    EXPECT_EQ(words.count(), 1);
    EXPECT_EQ(resets.count(), 1);
    review.state->pending.set(AppState::PendingRule(**review.state->pending));
    review.results.refresh();
    EXPECT_EQ(words.count(), 1);
}

}  // namespace
}  // namespace brindlet::testing
