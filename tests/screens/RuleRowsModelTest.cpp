#include "screens/rules/RuleRowsModel.h"

#include <gtest/gtest.h>

#include <QAbstractItemModelTester>
#include <QSignalSpy>

#include "screens/Stage.h"
#include "words/RulesWords.h"

namespace brindlet::testing {
namespace {

using screens::RuleRowsModel;

/// The rules of the scene, as a list without a window.
struct RuleRows {
    explicit RuleRows(void (*scene)(AppState&) = scenes::rules) {
        scene(*state);
        model.refresh();
    }
    ~RuleRows() { world.retire(); }

    QVariant at(int row, RuleRowsModel::Role role) const { return model.index(row).data(role); }
    QString title(int row) const { return at(row, RuleRowsModel::TitleRole).toString(); }
    int kind(int row) const { return at(row, RuleRowsModel::KindRole).toInt(); }
    /// The rule with that id.
    int rowOf(const std::string& id) const {
        for (int row = 0; row < model.rowCount(); ++row)
            if (kind(row) == RuleRowsModel::RuleItem && idAt(row) == id) return row;
        ADD_FAILURE() << "no row of " << id;
        return -1;
    }
    std::string idAt(int row) const {
        std::string label;
        for (int above = row; above >= 0; --above) {
            if (kind(above) != RuleRowsModel::Heading) continue;
            label = title(above).toStdString();
            break;
        }
        int nth = 0;
        for (int above = row; kind(above) != RuleRowsModel::Heading; --above)
            nth += kind(above) == RuleRowsModel::RuleItem;
        for (const auto& section : ruleSections(*state))
            if (section.label == label && nth <= static_cast<int>(section.rules.size()))
                return section.rules[static_cast<std::size_t>(nth) - 1].id();
        return {};
    }
    void open(const std::string& id) { model.setOpen(rowOf(id), true); }

    doubles::World& world = doubles::World::lasting();
    std::shared_ptr<AppState> state = AppState::make(world.services(), 1);
    RuleRowsModel model{*state, ruleSections};
    QAbstractItemModelTester tester{&model, QAbstractItemModelTester::FailureReportingMode::Fatal};
};

constexpr auto quill = "quill.example|*||always";
constexpr auto ann = "ann@letters.example|*||always";
constexpr auto oldList = "oldlist.example|newsletterOrDigest||always";
constexpr auto orders = "quill.example|receiptOrOrderOrShipping||session";
constexpr auto arrivals = "quill.example|advertisingOrPromotion|new arrivals picked|session";

TEST(RuleRowsModel, SectionsStandUnderTheirHeadings) {
    RuleRows rows;
    const std::pair<int, const char*> expected[] = {
        {RuleRowsModel::Heading, "NEEDS A LOOK"},
        {RuleRowsModel::RuleItem, "oldlist.example"},
        {RuleRowsModel::Heading, "ALWAYS"},
        {RuleRowsModel::RuleItem, "quill.example"},
        {RuleRowsModel::RuleItem, "ann@letters.example"},
        {RuleRowsModel::RuleItem, "harbour.example"},
        {RuleRowsModel::Heading, "LEARNED FROM YOUR TICKS"},
        {RuleRowsModel::RuleItem, "quill.example"},
        {RuleRowsModel::RuleItem, "quill.example"},
    };
    ASSERT_EQ(rows.model.rowCount(), static_cast<int>(std::size(expected)));
    for (int row = 0; row < rows.model.rowCount(); ++row) {
        EXPECT_EQ(rows.kind(row), expected[row].first) << row;
        EXPECT_EQ(rows.title(row), QString::fromUtf8(expected[row].second)) << row;
    }
    EXPECT_TRUE(rows.at(1, RuleRowsModel::FirstRole).toBool());
    EXPECT_TRUE(rows.at(1, RuleRowsModel::LastRole).toBool());
    EXPECT_TRUE(rows.at(3, RuleRowsModel::FirstRole).toBool());
    EXPECT_FALSE(rows.at(4, RuleRowsModel::FirstRole).toBool());
    EXPECT_TRUE(rows.at(5, RuleRowsModel::LastRole).toBool());
}

TEST(RuleRowsModel, ARuleTellsWhatItCoversOfTheLastScan) {
    RuleRows rows;
    const auto row = rows.rowOf(quill);
    EXPECT_EQ(rows.at(row, RuleRowsModel::HereRole), QStringLiteral("200 here"));
    EXPECT_EQ(rows.at(row, RuleRowsModel::HitsRole), QStringLiteral("×12"));
    EXPECT_EQ(rows.at(row, RuleRowsModel::PillRole), QStringLiteral("JUNK"));
    EXPECT_EQ(rows.at(row, RuleRowsModel::DetailRole),
              QStringLiteral("Everything this sender ever sends"));
    EXPECT_EQ(rows.at(row, RuleRowsModel::DescriptionRole),
              QStringLiteral("JUNK, 200 here, ×12, Everything this sender ever sends, Collapsed"));
    EXPECT_EQ(rows.at(rows.rowOf(orders), RuleRowsModel::HereRole), QStringLiteral("20 here"));
    EXPECT_EQ(rows.at(rows.rowOf(arrivals), RuleRowsModel::HereRole), QStringLiteral("20 here"));
    EXPECT_EQ(rows.at(rows.rowOf(ann), RuleRowsModel::HereRole), QString());
}

TEST(RuleRowsModel, WhatWasMovedIsHereNoMore) {
    RuleRows rows;
    rows.state->movedAlready.set({"0@letters.example", "10@letters.example"});
    rows.model.refresh();
    EXPECT_EQ(rows.at(rows.rowOf(quill), RuleRowsModel::HereRole), QStringLiteral("198 here"));
}

TEST(RuleRowsModel, AnOpenRuleListsItsMailAndOffersToNarrow) {
    RuleRows rows;
    const auto row = rows.rowOf(orders);
    rows.model.choose(row);
    EXPECT_TRUE(rows.at(row, RuleRowsModel::OpenRole).toBool());
    EXPECT_EQ(rows.title(row + 1), QStringLiteral("New arrivals picked for you, number 3"));
    EXPECT_EQ(rows.at(row + 1, RuleRowsModel::DetailRole),
              QStringLiteral("Quill & Thread <hello3@quill.example>"));
    EXPECT_EQ(rows.kind(row + 20), RuleRowsModel::Message);
    EXPECT_EQ(rows.kind(row + 21), RuleRowsModel::Narrow);
    EXPECT_EQ(rows.title(row + 21),
              QStringLiteral("Untick any of these to narrow what this rule should catch."));
    EXPECT_EQ(rows.title(row + 22), QStringLiteral("quill.example"));
    EXPECT_EQ(rows.model.ruleRow(row + 21), row);
    rows.model.choose(row);
    EXPECT_EQ(rows.model.rowCount(), 9);
}

TEST(RuleRowsModel, NarrowingIsOfferedFromSixMessagesOn) {
    for (const int count : {1, 5, 6, 7}) {
        RuleRows rows([](AppState& state) {
            Rule rule;
            rule.sender = "quill.example";
            state.rules.all.set({rule});
        });
        rows.state->verdicts.set(verdictsOfOneDomain(count));
        rows.model.refresh();
        rows.model.choose(1);
        EXPECT_EQ(rows.model.rowCount(), 2 + count + (count >= 6)) << count;
    }
}

TEST(RuleRowsModel, ARuleThatCoversNothingDoesNotOpen) {
    RuleRows rows;
    const auto row = rows.rowOf(ann);
    rows.model.choose(row);
    EXPECT_FALSE(rows.at(row, RuleRowsModel::CanOpenRole).toBool());
    EXPECT_FALSE(rows.at(row, RuleRowsModel::OpenRole).toBool());
    EXPECT_EQ(rows.model.rowCount(), 9);
}

TEST(RuleRowsModel, AHeldRuleShowsWhatItWouldCover) {
    RuleRows rows;
    Rule held;
    held.sender = "quill.example";
    held.legacy = true;
    rows.state->rules.all.set({held});
    rows.model.refresh();
    EXPECT_EQ(rows.at(1, RuleRowsModel::HereRole), QStringLiteral("200 here"));
}

TEST(RuleRowsModel, AMessageOfARuleIsTickedThroughTheSession) {
    RuleRows rows;
    const auto row = rows.rowOf(orders);
    rows.model.choose(row);
    // The first of them has no Message-ID.
    EXPECT_FALSE(rows.at(row + 1, RuleRowsModel::CanTickRole).toBool());
    EXPECT_EQ(rows.at(row + 1, RuleRowsModel::TickSymbolRole),
              QStringLiteral("minus.square.dashed"));
    EXPECT_NE(rows.at(row + 1, RuleRowsModel::TickHelpRole), QString());
    const auto ticked = rows.state->approved->size();
    rows.model.choose(row + 1);
    EXPECT_EQ(rows.state->approved->size(), ticked);

    EXPECT_EQ(rows.at(row + 2, RuleRowsModel::TickSymbolRole), QStringLiteral("square"));
    rows.model.choose(row + 2);
    EXPECT_EQ(rows.state->approved->size(), ticked + 1);
    EXPECT_TRUE(rows.state->approved->contains(14));
    rows.model.refresh();
    EXPECT_EQ(rows.at(row + 2, RuleRowsModel::TickSymbolRole),
              QStringLiteral("checkmark.square.fill"));
}

TEST(RuleRowsModel, AMarkedRuleGoesOnlyWhenTheViewIsLeft) {
    RuleRows rows;
    rows.model.toggleMark(rows.rowOf(quill));
    rows.model.toggleMark(rows.rowOf(orders));
    EXPECT_TRUE(rows.at(rows.rowOf(quill), RuleRowsModel::MarkedRole).toBool());
    EXPECT_EQ(rows.at(rows.rowOf(quill), RuleRowsModel::DetailRole),
              QStringLiteral("Will be forgotten when you leave this screen"));
    EXPECT_EQ(rows.state->rules.combined().size(), 6U);
    rows.model.leave();
    EXPECT_EQ(rows.state->rules.combined().size(), 4U);
    EXPECT_EQ(rows.state->rules.all->size(), 3U);
    EXPECT_EQ(rows.state->rules.session->size(), 1U);
    rows.model.refresh();
    EXPECT_EQ(rows.model.rowCount(), 7);
}

TEST(RuleRowsModel, ARuleMarkedAndThenKeptStays) {
    RuleRows rows;
    rows.model.toggleMark(rows.rowOf(quill));
    rows.model.toggleMark(rows.rowOf(quill));
    EXPECT_FALSE(rows.at(rows.rowOf(quill), RuleRowsModel::MarkedRole).toBool());
    rows.model.leave();
    EXPECT_EQ(rows.state->rules.combined().size(), 6U);
}

TEST(RuleRowsModel, MarksAreForgottenWithTheView) {
    RuleRows rows;
    rows.model.toggleMark(rows.rowOf(quill));
    const auto rule = rows.state->rules.live().front();
    rows.model.leave();
    rows.state->rules.all.mutate([&](auto& all) { all.push_back(rule); });
    rows.model.refresh();
    EXPECT_FALSE(rows.at(rows.rowOf(quill), RuleRowsModel::MarkedRole).toBool());
    rows.model.leave();
    EXPECT_EQ(rows.state->rules.combined().size(), 6U);
}

TEST(RuleRowsModel, MarksAndOpenRulesOutliveOtherChanges) {
    RuleRows rows;
    rows.model.toggleMark(rows.rowOf(ann));
    rows.open(orders);
    rows.model.flip(rows.rowOf(quill));
    rows.model.promote(rows.rowOf(arrivals));
    rows.state->rules.add("new@elsewhere.example", std::nullopt, Rule::Verdict::junk,
                          Rule::Scope::always, "x", {});
    rows.model.refresh();
    EXPECT_TRUE(rows.at(rows.rowOf(ann), RuleRowsModel::MarkedRole).toBool());
    EXPECT_TRUE(rows.at(rows.rowOf(orders), RuleRowsModel::OpenRole).toBool());
    rows.state->rules.forgetAll();
    rows.model.refresh();
    rows.model.leave();
    EXPECT_EQ(rows.state->rules.combined().size(), 1U) << "a mark of a rule that is gone is idle";
}

TEST(RuleRowsModel, ButtonsReachTheRules) {
    RuleRows rows;
    rows.model.flip(rows.rowOf(quill));
    EXPECT_EQ(rows.state->rules.live().front().verdict, Rule::Verdict::keep);
    EXPECT_EQ(rows.state->rules.live().front().hits, 12);
    rows.model.enable(rows.rowOf(oldList));
    EXPECT_TRUE(rows.state->rules.held().empty());
    rows.model.refresh();
    rows.model.promote(rows.rowOf(arrivals));
    EXPECT_EQ(rows.state->rules.session->size(), 1U);
    EXPECT_EQ(rows.state->rules.all->back().hits, 4);
    for (const int row : {-1, 0, 99}) {
        rows.model.flip(row);
        rows.model.enable(row);
        rows.model.promote(row);
        rows.model.toggleMark(row);
        rows.model.choose(row);
        rows.model.setOpen(row, true);
    }
    EXPECT_EQ(rows.state->rules.combined().size(), 6U);
}

TEST(RuleRowsModel, AChangeElsewhereMovesNoRow) {
    RuleRows rows;
    rows.open(orders);
    const QSignalSpy resets(&rows.model, &QAbstractItemModel::modelReset);
    const QSignalSpy removals(&rows.model, &QAbstractItemModel::rowsRemoved);
    const QSignalSpy insertions(&rows.model, &QAbstractItemModel::rowsInserted);
    const QSignalSpy changes(&rows.model, &QAbstractItemModel::dataChanged);
    rows.model.flip(rows.rowOf(quill));
    rows.model.refresh();
    EXPECT_EQ(changes.count(), 1);
    EXPECT_EQ(removals.count() + insertions.count(), 0);
    rows.state->rules.add("new@elsewhere.example", std::nullopt, Rule::Verdict::junk,
                          Rule::Scope::always, "x", {});
    rows.model.refresh();
    EXPECT_EQ(insertions.count(), 1);
    EXPECT_EQ(insertions.front().at(1).toInt(), insertions.front().at(2).toInt());
    EXPECT_EQ(removals.count(), 0);
    EXPECT_EQ(resets.count(), 0);
}

TEST(RuleRowsModel, ARefreshOfTheSameTellsNobody) {
    RuleRows rows;
    const QSignalSpy changes(&rows.model, &QAbstractItemModel::dataChanged);
    rows.state->done.set(7);
    rows.model.refresh();
    EXPECT_EQ(changes.count(), 0);
}

TEST(RuleRowsModel, OtherVerdictsCloseWhatCoversNothingNow) {
    RuleRows rows;
    rows.open(orders);
    rows.state->verdicts.set({});
    EXPECT_EQ(rows.title(rows.rowOf(orders) + 1),
              QStringLiteral("New arrivals picked for you, number 3"))
        << "until the refresh the rows are those of the former";
    rows.model.refresh();
    EXPECT_EQ(rows.model.rowCount(), 9);
    EXPECT_FALSE(rows.at(rows.rowOf(orders), RuleRowsModel::OpenRole).toBool());
}

TEST(RuleRowsModel, AThousandRulesForOneSenderAreAllThere) {
    RuleRows rows([](AppState& state) {
        std::vector<Rule> many;
        for (int i = 0; i < 1'000; ++i) {
            Rule rule;
            rule.sender = "quill.example";
            rule.templateWords = {"number", std::to_string(i)};
            many.push_back(std::move(rule));
        }
        state.rules.all.set(many);
        state.verdicts.set(verdictsOfOneDomain(2'000));
    });
    ASSERT_EQ(rows.model.rowCount(), 1'001);
    for (const int row : {1, 500, 1'000}) {
        EXPECT_EQ(rows.at(row, RuleRowsModel::HereRole), QStringLiteral("1 here")) << row;
    }
    rows.model.choose(700);
    EXPECT_EQ(rows.title(701), QStringLiteral("New arrivals picked for you, number 699"));
    for (int row = 1; row < 20; ++row) rows.model.toggleMark(row);
    rows.model.leave();
    EXPECT_EQ(rows.state->rules.all->size(), 981U);
}

TEST(RuleRowsModel, ARuleThatAFileHoldsTwiceIsShownTwiceAndForgottenOnce) {
    RuleRows rows([](AppState& state) {
        Rule rule;
        rule.sender = "quill.example";
        state.rules.all.set({rule, rule});
    });
    ASSERT_EQ(rows.model.rowCount(), 3);
    rows.model.toggleMark(2);
    rows.model.leave();
    rows.model.refresh();
    EXPECT_EQ(rows.model.rowCount(), 0);
}

TEST(RuleRowsModel, AnotherViewHasItsOwnMarks) {
    RuleRows rows;
    RuleRowsModel other(*rows.state, [](const AppState& state) {
        return std::vector<RuleSection>{{"", "", *state.rules.all}};
    });
    other.refresh();
    ASSERT_EQ(other.rowCount(), 4) << "an empty label is no heading";
    EXPECT_TRUE(other.index(0).data(RuleRowsModel::FirstRole).toBool());
    rows.model.toggleMark(rows.rowOf(quill));
    EXPECT_FALSE(other.index(1).data(RuleRowsModel::MarkedRole).toBool());
    other.leave();
    EXPECT_EQ(rows.state->rules.combined().size(), 6U);
}

}  // namespace
}  // namespace brindlet::testing
