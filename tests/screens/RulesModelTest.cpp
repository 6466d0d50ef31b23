#include "screens/rules/RulesModel.h"

#include <gtest/gtest.h>

#include <QAbstractItemModelTester>
#include <QSignalSpy>

#include "screens/Stage.h"

namespace brindlet::testing {
namespace {

using screens::CalibrationRowsModel;
using screens::ChoicesModel;
using screens::RulesModel;

/// The rules' screen without a window.
struct Rules {
    explicit Rules(void (*scene)(AppState&) = scenes::rules) {
        scene(*state);
        model.refresh();
    }
    ~Rules() { world.retire(); }

    QVariant flipped(int row, CalibrationRowsModel::Role role) {
        return model.learned()->index(row).data(role);
    }

    doubles::World& world = doubles::World::lasting();
    std::shared_ptr<AppState> state = AppState::make(world.services(), 1);
    RulesModel model{*state};
    QAbstractItemModelTester tester{model.learned(),
                                    QAbstractItemModelTester::FailureReportingMode::Fatal};
};

TEST(RulesModel, CountsTheRulesInItsLine) {
    Rules rules;
    EXPECT_EQ(rules.model.title(), QStringLiteral("Rules"));
    EXPECT_EQ(rules.model.counts(), QStringLiteral("1 need a look · 3 always · 2 learned"));
    EXPECT_EQ(rules.model.nothing(), QString());
}

TEST(RulesModel, ForgetAllTakesTwoSteps) {
    Rules rules;
    EXPECT_EQ(rules.model.forgetAllLabel(), QStringLiteral("Forget all"));
    rules.model.forgetAll();
    EXPECT_EQ(rules.model.forgetAllLabel(), QStringLiteral("Really forget all?"));
    EXPECT_EQ(rules.state->rules.all->size(), 4U) << "not at the first step";
    rules.model.forgetAll();
    rules.model.refresh();
    EXPECT_TRUE(rules.state->rules.all->empty());
    EXPECT_EQ(rules.model.forgetAllLabel(), QStringLiteral("Forget all"));
    EXPECT_FALSE(rules.model.canForgetAll());
    ASSERT_EQ(rules.model.rules()->rowCount(), 3);
    EXPECT_EQ(rules.model.rules()->index(0).data(screens::RuleRowsModel::TitleRole),
              QStringLiteral("LEARNED FROM YOUR TICKS"));
}

TEST(RulesModel, TheFirstStepFallsBackWhenTheScreenIsLeft) {
    Rules rules;
    rules.model.forgetAll();
    rules.model.leave();
    EXPECT_EQ(rules.model.forgetAllLabel(), QStringLiteral("Forget all"));
    rules.model.forgetAll();
    EXPECT_EQ(rules.state->rules.all->size(), 4U);
}

TEST(RulesModel, TheFirstStepFallsBackWhenNothingIsLeftToForget) {
    Rules rules;
    rules.model.forgetAll();
    rules.state->rules.forgetAll();
    rules.model.refresh();
    EXPECT_FALSE(rules.model.forgettingAll());
}

TEST(RulesModel, TheMenusOfferAnyKindAndAllThatTheModelCanTell) {
    Rules rules;
    ASSERT_EQ(rules.model.kinds()->rowCount(), 10);
    const auto label = [&](int row) {
        return rules.model.kinds()->index(row).data(ChoicesModel::LabelRole).toString();
    };
    EXPECT_EQ(label(0), QStringLiteral("any kind of mail"));
    EXPECT_EQ(label(1), QStringLiteral("Ads & promotions"));
    EXPECT_EQ(label(9), QStringLiteral("Bounced mail"));
    EXPECT_EQ(rules.model.kinds()->chosen(), 0);
    ASSERT_EQ(rules.model.verdicts()->rowCount(), 2);
    EXPECT_EQ(rules.model.verdicts()->index(0).data(ChoicesModel::LabelRole),
              QStringLiteral("is junk"));
    EXPECT_EQ(rules.model.verdicts()->index(1).data(ChoicesModel::LabelRole),
              QStringLiteral("is kept"));
}

TEST(RulesModel, ARuleMadeByHandLastsAndSaysSo) {
    Rules rules(scenes::noRules);
    EXPECT_TRUE(rules.model.add(QStringLiteral("Shop <News77@Shop.Example>")));
    rules.model.chooseKind(2);
    rules.model.chooseVerdict(1);
    EXPECT_TRUE(rules.model.add(QStringLiteral("  Club.Example ")));
    ASSERT_EQ(rules.state->rules.all->size(), 2U);
    const auto& first = rules.state->rules.all->front();
    EXPECT_EQ(first.sender, "shop.example");
    EXPECT_EQ(first.category, std::nullopt);
    EXPECT_EQ(first.verdict, Rule::Verdict::junk);
    EXPECT_EQ(first.scope, Rule::Scope::always);
    EXPECT_EQ(first.example, "added by hand");
    EXPECT_TRUE(first.templateWords.empty());
    const auto& second = rules.state->rules.all->back();
    EXPECT_EQ(second.sender, "club.example");
    EXPECT_EQ(second.category, "newsletterOrDigest");
    EXPECT_EQ(second.verdict, Rule::Verdict::keep);
}

TEST(RulesModel, ATextWithoutAKeyMakesNoRule) {
    Rules rules(scenes::noRules);
    for (const auto* text : {"", "   ", "Shop Team", "team", "someone@"}) {
        EXPECT_FALSE(rules.model.add(QString::fromUtf8(text))) << text;
        EXPECT_TRUE(rules.state->rules.all->empty()) << text;
    }
}

TEST(RulesModel, ChoicesOutsideTheMenusAreIgnored) {
    Rules rules;
    for (const int row : {-1, 10}) {
        rules.model.chooseKind(row);
        rules.model.chooseVerdict(row);
    }
    EXPECT_EQ(rules.model.kinds()->chosen(), 0);
    EXPECT_EQ(rules.model.verdicts()->chosen(), 0);
}

TEST(RulesModel, TheFormIsAsAtFirstWhenTheScreenComesAgain) {
    Rules rules;
    rules.model.chooseKind(4);
    rules.model.chooseVerdict(1);
    EXPECT_EQ(rules.model.kinds()->chosen(), 4);
    rules.model.leave();
    EXPECT_EQ(rules.model.kinds()->chosen(), 0);
    EXPECT_EQ(rules.model.verdicts()->chosen(), 0);
}

TEST(RulesModel, TheNoteStandsAgainWhenTheLastRuleIsGone) {
    Rules rules(scenes::noRules);
    EXPECT_NE(rules.model.nothing(), QString());
    EXPECT_TRUE(rules.model.add(QStringLiteral("club.example")));
    rules.model.refresh();
    EXPECT_EQ(rules.model.nothing(), QString());
    rules.model.rules()->toggleMark(1);
    rules.model.leave();
    rules.model.refresh();
    EXPECT_NE(rules.model.nothing(), QString());
    EXPECT_EQ(rules.model.counts(), QStringLiteral("Corrections you make become rules here."));
}

TEST(RulesModel, FlippedCategoriesStandMostCorrectedFirst) {
    Rules rules;
    ASSERT_EQ(rules.model.learned()->rowCount(), 2);
    EXPECT_EQ(rules.flipped(0, CalibrationRowsModel::CategoryRole),
              QStringLiteral("Newsletters & digests"));
    EXPECT_EQ(rules.flipped(0, CalibrationRowsModel::BadgeRole), QStringLiteral("KEEP"));
    EXPECT_EQ(rules.flipped(0, CalibrationRowsModel::LineRole),
              QStringLiteral("You rescued 17 of 19 - Brindlet stopped calling these junk"));
    EXPECT_EQ(rules.flipped(1, CalibrationRowsModel::BadgeRole), QStringLiteral("JUNK"));
    EXPECT_EQ(rules.flipped(1, CalibrationRowsModel::LineRole),
              QStringLiteral("You binned 12 of 13 - Brindlet now treats these as junk"));
}

TEST(RulesModel, StopThisOpensTheTwoWaysOfOneRowUntilTheScreenIsLeft) {
    Rules rules;
    const auto stopping = [&](int row) {
        return rules.flipped(row, CalibrationRowsModel::StoppingRole).toBool();
    };
    rules.model.learned()->toggleStop(0);
    EXPECT_TRUE(stopping(0));
    EXPECT_FALSE(stopping(1));
    rules.model.learned()->toggleStop(1);
    EXPECT_FALSE(stopping(0));
    EXPECT_TRUE(stopping(1));
    rules.model.leave();
    EXPECT_FALSE(stopping(1));
}

TEST(RulesModel, MutingACategoryKeepsItsTallyAndForgettingDropsIt) {
    Rules rules;
    rules.model.learned()->mute(0);
    EXPECT_EQ(rules.state->calibration.muted->count("newsletterOrDigest"), 1U);
    EXPECT_EQ(rules.state->calibration.byCategory->count("newsletterOrDigest"), 1U);
    rules.model.refresh();
    ASSERT_EQ(rules.model.learned()->rowCount(), 1);
    rules.model.learned()->forget(0);
    EXPECT_EQ(rules.state->calibration.byCategory->count("accountWelcomeOrInvitation"), 0U);
    rules.model.refresh();
    EXPECT_EQ(rules.model.learned()->count(), 0);
    rules.model.learned()->mute(0);
    rules.model.learned()->forget(-1);
    EXPECT_EQ(rules.state->calibration.muted->size(), 1U);
}

TEST(RulesModel, AFurtherCorrectionOnlyChangesItsRow) {
    Rules rules;
    rules.model.learned()->toggleStop(0);
    const QSignalSpy resets(rules.model.learned(), &QAbstractItemModel::modelReset);
    rules.state->calibration.record(Category::newsletterOrDigest, Rule::Verdict::keep, "g.example");
    rules.model.refresh();
    EXPECT_EQ(resets.count(), 0);
    EXPECT_EQ(rules.flipped(0, CalibrationRowsModel::LineRole),
              QStringLiteral("You rescued 18 of 20 - Brindlet stopped calling these junk"));
    EXPECT_TRUE(rules.flipped(0, CalibrationRowsModel::StoppingRole).toBool());
}

}  // namespace
}  // namespace brindlet::testing
