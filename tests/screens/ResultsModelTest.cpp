#include "screens/results/ResultsModel.h"

#include <gtest/gtest.h>

#include <QAbstractItemModelTester>
#include <QSignalSpy>

#include "screens/Stage.h"

namespace brindlet::testing {
namespace {

using screens::CategoriesModel;
using screens::ResultsModel;
using Strings = std::vector<std::string>;

/// The results of 200 messages, without a window.
struct Results {
    Results() {
        scenes::results(*state);
        model.refresh();
    }
    QVariant category(int row, CategoriesModel::Role role) {
        return model.categories()->index(row).data(role);
    }
    /// Or closes it.
    void open(int row) {
        model.toggleCategory(row);
        model.refresh();
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

TEST(ResultsModel, AClosedCategoryIsReviewed) {
    Results results;
    results.open(1);
    EXPECT_TRUE(results.state->reviewedCats->empty());
    results.open(4);
    EXPECT_EQ(*results.state->reviewedCats, Strings{"newsletterOrDigest"}) << "another opened";
    results.open(4);
    EXPECT_EQ(*results.state->reviewedCats, (Strings{"newsletterOrDigest", "billOrPayment"}))
        << "it closed by itself";
    EXPECT_EQ(results.category(1, CategoriesModel::ReviewedRole), QStringLiteral("Reviewed"));
    EXPECT_EQ(results.category(1, CategoriesModel::ReviewedHelpRole), QString());
    EXPECT_EQ(results.category(4, CategoriesModel::ReviewedRole), QStringLiteral("Last reviewed"));
    EXPECT_EQ(results.category(4, CategoriesModel::ReviewedHelpRole),
              QStringLiteral("Last reviewed - click to jump there"));
    EXPECT_EQ(results.category(5, CategoriesModel::ReviewedRole), QString());
}

TEST(ResultsModel, ACategoryThatNeverCameOnShowIsNotReviewed) {
    Results results;
    results.model.toggleCategory(1);
    results.model.toggleCategory(2);
    EXPECT_TRUE(results.state->reviewedCats->empty());
}

TEST(ResultsModel, AJumpOpensTheCategoryReviewedLast) {
    Results results;
    const QSignalSpy jumps(&results.model, &ResultsModel::jumped);
    results.model.jumpToReviewed();
    EXPECT_EQ(jumps.count(), 0);
    results.open(4);
    results.open(4);
    results.open(1);
    results.model.jumpToReviewed();
    ASSERT_EQ(jumps.count(), 1);
    EXPECT_EQ(jumps[0][0].toInt(), 4);
    EXPECT_EQ(*results.state->expand, Category::billOrPayment);
    EXPECT_GT(results.model.messages()->rowCount(), 0) << "before the view goes there";
}

TEST(ResultsModel, AJumpToWhereNothingIsLeftLeadsNowhere) {
    Results results;
    const QSignalSpy jumps(&results.model, &ResultsModel::jumped);
    results.state->markCategoryReviewed(Category::billOrPayment);
    results.state->verdicts.set({});
    results.model.refresh();
    results.model.jumpToReviewed();
    EXPECT_EQ(jumps.count(), 0);
    EXPECT_FALSE(results.state->expand->has_value());
}

TEST(ResultsModel, ABoxTicksAWholeCategoryUntilAllOfItIsTicked) {
    Results results;
    const auto symbol = [&] {
        results.model.refresh();
        return results.category(1, CategoriesModel::TickSymbolRole);
    };
    EXPECT_EQ(symbol(), QStringLiteral("minus.square.fill")) << "what protection kept is not";
    EXPECT_EQ(results.category(1, CategoriesModel::TickHelpRole),
              QStringLiteral("Tick this whole category"));
    results.model.tickCategory(1);
    EXPECT_EQ(symbol(), QStringLiteral("checkmark.square.fill"));
    EXPECT_EQ(results.category(1, CategoriesModel::TickHelpRole),
              QStringLiteral("Untick this whole category"));
    results.model.tickCategory(1);
    EXPECT_EQ(symbol(), QStringLiteral("square"));
    EXPECT_EQ(*results.state->learned, 0);
    EXPECT_EQ(results.category(1, CategoriesModel::GeneralHelpRole),
              QStringLiteral("Approve or skip this whole category"));
}

TEST(ResultsModel, ACategoryWithoutIdsCannotBeTicked) {
    Results results;
    Verdict verdict;
    verdict.category = Category::cannotTell;
    results.state->verdicts.set(VerdictList({verdict}));
    results.state->lastSweep.set(std::nullopt);
    results.model.refresh();
    EXPECT_EQ(results.category(0, CategoriesModel::TickSymbolRole),
              QStringLiteral("minus.square.dashed"));
    EXPECT_EQ(results.category(0, CategoriesModel::TickHelpRole), QString());
    results.model.tickCategory(0);
    results.model.tickCategory(-1);
    results.model.tickCategory(1);
    EXPECT_FALSE(results.state->lastSweep->has_value());
}

TEST(ResultsModel, ATickChangesOneHeaderAndResetsNone) {
    Results results;
    const QSignalSpy resets(results.model.categories(), &QAbstractItemModel::modelReset);
    const QSignalSpy changes(results.model.categories(), &QAbstractItemModel::dataChanged);
    for (int i = 0; i < 5; ++i) results.model.tickCategory(3);
    results.model.refresh();
    ASSERT_EQ(changes.count(), 1);
    EXPECT_EQ(changes[0][0].toModelIndex().row(), 3);
    EXPECT_EQ(resets.count(), 0);
}

TEST(ResultsModel, AFlippedCategorySaysWhy) {
    Results results;
    Calibration::Tally tally;
    tally.toKeep = 12;
    tally.keepSenders = {"a.com", "b.com", "c.com", "d.com", "e.com", "f.com"};
    results.state->calibration.byCategory.mutate(
        [&](auto& tallies) { tallies["newsletterOrDigest"] = tally; });
    results.model.refresh();
    EXPECT_EQ(results.category(1, CategoriesModel::BadgeRole), QStringLiteral("YOU KEEP THESE"));
    EXPECT_EQ(results.category(1, CategoriesModel::BadgeHelpRole),
              QStringLiteral("Learned from your corrections - it overrides the model for this "
                             "whole category. Change it under Rules."));
}

TEST(ResultsModel, LeavingTheScreenEndsWhatWasOpenThere) {
    auto& world = doubles::World::lasting();
    const auto state = AppState::make(world.services(), 1);
    scenes::openResults(*state);
    screens::AppModel model(*state);
    auto& messages = *model.results()->messages();
    messages.setFilter(QStringLiteral("new"));
    state->navigate(AppState::Screen::pick);
    QCoreApplication::sendPostedEvents();
    EXPECT_EQ(*state->reviewedCats, Strings{"newsletterOrDigest"});
    EXPECT_EQ(messages.rowCount(), 0);
    state->goBack();
    QCoreApplication::sendPostedEvents();
    EXPECT_EQ(messages.rowCount(), 21);
    EXPECT_EQ(messages.filter(), QString());
    world.retire();
}

TEST(ResultsModel, AMoveThatTookEverythingIsToldOf) {
    Results results;
    EXPECT_FALSE(results.model.allMoved());
    EXPECT_EQ(results.model.allMovedText(), QString());
    Verdict verdict;
    verdict.messageID = "moved@x.com";
    verdict.isJunk = true;
    results.state->verdicts.set(VerdictList({verdict}));
    results.state->movedAlready.set({"moved@x.com"});
    results.model.refresh();
    EXPECT_EQ(results.model.title(), QStringLiteral("All done"));
    EXPECT_TRUE(results.model.allMoved());
    EXPECT_EQ(results.model.allMovedSymbol(), QStringLiteral("checkmark.circle"));
    EXPECT_EQ(results.model.allMovedText(),
              QStringLiteral("They're in your junk folder - nothing was deleted, so you can put "
                             "any of them back."));
    EXPECT_EQ(
        results.model.allMovedNext(),
        QStringLiteral("Scan another mailbox, or let Brindlet watch this one on a schedule."));
}

TEST(ResultsModel, RulesHistoryAndTheScheduleAreAClickAway) {
    Results results;
    EXPECT_EQ(results.model.rulesLabel(), QStringLiteral("Rules"));
    EXPECT_EQ(results.model.rulesSymbol(), QStringLiteral("wand.and.stars"));
    EXPECT_EQ(results.model.historyLabel(), QStringLiteral("History"));
    EXPECT_EQ(results.model.historySymbol(), QStringLiteral("clock.arrow.circlepath"));
    results.model.openRules();
    EXPECT_EQ(*results.state->screen, AppState::Screen::rules);
    results.model.openHistory();
    EXPECT_EQ(*results.state->screen, AppState::Screen::history);
    EXPECT_EQ(results.model.automaticLabel(), QStringLiteral("Run automatically"));
    EXPECT_EQ(results.model.automaticSymbol(), QStringLiteral("clock.arrow.2.circlepath"));
    results.model.openAutomatic();
    EXPECT_EQ(*results.state->screen, AppState::Screen::automatic);
    results.state->schedule.setEnabled(true);
    results.model.refresh();
    EXPECT_EQ(results.model.automaticLabel(), QStringLiteral("Automatic on"));
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
