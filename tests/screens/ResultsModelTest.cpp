#include "screens/results/ResultsModel.h"

#include <gtest/gtest.h>

#include <QAbstractItemModelTester>
#include <QSignalSpy>

#include "screens/Stage.h"

namespace brindlet::testing {
namespace {

using screens::CategoriesModel;
using screens::MessagesModel;
using screens::ResultsModel;

/// The results of 200 messages, without a window.
struct Results {
    Results() {
        scenes::results(*state);
        model.refresh();
    }
    QVariant message(int row, MessagesModel::Role role) {
        return model.messages()->index(row).data(role);
    }

    ~Results() { world.retire(); }

    doubles::World& world = doubles::World::lasting();
    std::shared_ptr<AppState> state = AppState::make(world.services(), 1);
    ResultsModel model{*state};
    QAbstractItemModelTester categoriesTester{
        model.categories(), QAbstractItemModelTester::FailureReportingMode::Fatal};
    QAbstractItemModelTester messagesTester{model.messages(),
                                            QAbstractItemModelTester::FailureReportingMode::Fatal};
};

TEST(ResultsModel, AllCategoriesAreClosedAtFirst) {
    Results results;
    EXPECT_EQ(results.model.categories()->rowCount(), 10);
    EXPECT_EQ(results.model.messages()->rowCount(), 0);
    EXPECT_EQ(results.model.title(), QStringLiteral("77 look like junk"));
}

TEST(ResultsModel, AClickOpensACategoryAndAnotherClosesIt) {
    Results results;
    results.model.toggleCategory(1);
    EXPECT_EQ(*results.state->expand, Category::newsletterOrDigest);
    results.model.refresh();
    EXPECT_EQ(results.model.messages()->rowCount(), 21) << "20 messages and a heading";
    EXPECT_TRUE(results.model.categories()->index(1).data(CategoriesModel::ExpandedRole).toBool());
    results.model.toggleCategory(1);
    results.model.refresh();
    EXPECT_FALSE(results.state->expand->has_value());
    EXPECT_EQ(results.model.messages()->rowCount(), 0);
    results.model.toggleCategory(99);
    EXPECT_FALSE(results.state->expand->has_value());
}

TEST(ResultsModel, WhatProtectionKeptStandsLastUnderItsHeading) {
    Results results;
    results.state->expand.set(Category::deliveryFailureBounce);
    results.model.refresh();
    ASSERT_EQ(results.model.messages()->rowCount(), 21) << "20 messages and a heading";
    EXPECT_TRUE(results.message(19, MessagesModel::HeadingRole).toBool());
    EXPECT_EQ(results.message(19, MessagesModel::SubjectRole),
              QStringLiteral("These stay put - none of them will be moved"));
    EXPECT_EQ(results.message(20, MessagesModel::MarkRole), QStringLiteral("PROTECTED"));
    EXPECT_EQ(results.message(20, MessagesModel::TickSymbolRole), QStringLiteral("square"));
    EXPECT_EQ(results.message(0, MessagesModel::MarkRole), QStringLiteral("JUNK"));
}

TEST(ResultsModel, AMessageWithoutAnIdStaysVisibleWithItsDashedBox) {
    Results results;
    results.state->expand.set(Category::receiptOrOrderOrShipping);
    results.model.refresh();
    EXPECT_EQ(results.message(0, MessagesModel::TickSymbolRole),
              QStringLiteral("minus.square.dashed"));
    EXPECT_FALSE(results.message(0, MessagesModel::CanTickRole).toBool());
    EXPECT_EQ(results.message(1, MessagesModel::TickSymbolRole), QStringLiteral("square"));
}

TEST(ResultsModel, OtherTicksChangeRowsAndResetNothing) {
    Results results;
    results.state->expand.set(Category::advertisingOrPromotion);
    results.model.refresh();
    EXPECT_EQ(results.message(0, MessagesModel::TickSymbolRole),
              QStringLiteral("checkmark.square.fill"));
    const QSignalSpy resets(results.model.messages(), &QAbstractItemModel::modelReset);
    const QSignalSpy changes(results.model.messages(), &QAbstractItemModel::dataChanged);
    results.state->approved.set({});
    results.model.refresh();
    EXPECT_EQ(results.message(0, MessagesModel::TickSymbolRole), QStringLiteral("square"));
    EXPECT_EQ(resets.count(), 0);
    EXPECT_EQ(changes.count(), 1);
}

TEST(ResultsModel, ARefreshOfTheSameTellsNobody) {
    Results results;
    results.state->expand.set(Category::advertisingOrPromotion);
    results.model.refresh();
    const QSignalSpy words(&results.model, &ResultsModel::wordsChanged);
    const QSignalSpy resets(results.model.messages(), &QAbstractItemModel::modelReset);
    const QSignalSpy headers(results.model.categories(), &QAbstractItemModel::dataChanged);
    results.state->done.set(7);
    results.model.refresh();
    EXPECT_EQ(words.count() + resets.count() + headers.count(), 0);
}

TEST(ResultsModel, RowsOfAListThatIsGoneAreBlankUntilTheRefresh) {
    Results results;
    results.state->expand.set(Category::advertisingOrPromotion);
    results.model.refresh();
    results.state->verdicts.set({});
    EXPECT_EQ(results.message(0, MessagesModel::SubjectRole), QVariant());
    results.model.refresh();
    EXPECT_EQ(results.model.messages()->rowCount(), 0);
    EXPECT_EQ(results.model.categories()->rowCount(), 0);
}

TEST(ResultsModel, ScanAnotherLeadsToThePicker) {
    Results results;
    results.model.scanAnother();
    EXPECT_EQ(*results.state->screen, AppState::Screen::pick);
}

TEST(ResultsModel, QuitOnlyAsks) {
    Results results;
    const QSignalSpy asked(&results.model, &ResultsModel::quitAsked);
    results.model.quit();
    EXPECT_EQ(asked.count(), 1);
}

}  // namespace
}  // namespace brindlet::testing
