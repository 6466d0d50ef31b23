#include <gtest/gtest.h>

#include <QTest>

#include "screens/Stage.h"

namespace brindlet::testing {
namespace {

using screens::RuleRowsModel;

struct RulesScreen : Stage {
    explicit RulesScreen(void (*scene)(AppState&) = scenes::rules) : Stage(scene) {}

    screens::RulesModel& rules() const { return *model().rules(); }
    QVariant at(int row, RuleRowsModel::Role role) const {
        return rules().rules()->index(row).data(role);
    }
    /// The part of a row of the list; the row itself without a name.
    QQuickItem* part(int row, const char* name) const {
        auto* list = await(QStringLiteral("rules"));
        QQuickItem* item = nullptr;
        QMetaObject::invokeMethod(list, "positionViewAtIndex", Q_ARG(int, row), Q_ARG(int, 4));
        settle();
        QMetaObject::invokeMethod(list, "itemAtIndex", Q_RETURN_ARG(QQuickItem*, item),
                                  Q_ARG(int, row));
        if (!item) return nullptr;
        for (auto* candidate : items())
            if (candidate->objectName() == QLatin1String(name) && item->isAncestorOf(candidate))
                return candidate;
        return *name ? nullptr : item;
    }
    void clickPart(int row, const char* name) const {
        auto* item = part(row, name);
        ASSERT_NE(item, nullptr) << row << " " << name;
        const auto middle =
            item->mapToScene(QPointF(item->width() / 2, item->height() / 2)).toPoint();
        QTest::mouseClick(window(), Qt::LeftButton, {}, middle);
        settle();
    }
    /// To a row of the list by the keyboard.
    void walkTo(int row) const {
        ASSERT_TRUE(tabTo(QStringLiteral("rules")));
        press(Qt::Key_Home);
        for (int i = 0; i < row; ++i) press(Qt::Key_Down);
    }
    int current() const { return find(QStringLiteral("rules"))->property("currentIndex").toInt(); }
};

// The rows of the scene.
constexpr int oldList = 1;
constexpr int quill = 3;
constexpr int ann = 4;
constexpr int orders = 7;
constexpr int arrivals = 8;

TEST(RulesScreen, AClickOnThePillFlipsTheRule) {
    RulesScreen screen;
    screen.clickPart(quill, "flip");
    EXPECT_EQ(screen.at(quill, RuleRowsModel::PillRole), QStringLiteral("KEEP"));
    EXPECT_FALSE(screen.at(quill, RuleRowsModel::OpenRole).toBool()) << "the row is not clicked";
    screen.clickPart(quill, "flip");
    EXPECT_EQ(screen.at(quill, RuleRowsModel::PillRole), QStringLiteral("JUNK"));
}

TEST(RulesScreen, AClickOnTheRowOrItsChevronOpensAndCloses) {
    RulesScreen screen;
    screen.clickPart(orders, "");
    EXPECT_TRUE(screen.at(orders, RuleRowsModel::OpenRole).toBool());
    screen.clickPart(orders, "open");
    EXPECT_FALSE(screen.at(orders, RuleRowsModel::OpenRole).toBool());
    screen.clickPart(orders, "open");
    EXPECT_TRUE(screen.at(orders, RuleRowsModel::OpenRole).toBool());
}

TEST(RulesScreen, AClickOnAMessageTicksIt) {
    RulesScreen screen;
    screen.clickPart(orders, "");
    screen.clickPart(orders + 2, "");
    EXPECT_TRUE(screen.state->approved->contains(14));
    screen.clickPart(orders + 1, "");
    EXPECT_FALSE(screen.state->approved->contains(4)) << "it has no Message-ID";
}

TEST(RulesScreen, AMarkedRuleIsForgottenWhicheverWayTheScreenIsLeft) {
    const std::pair<const char*, void (*)(RulesScreen&)> ways[] = {
        {"Escape", [](RulesScreen& screen) { screen.press(Qt::Key_Escape); }},
        {"Back", [](RulesScreen& screen) { EXPECT_TRUE(screen.click("back")); }},
        {"the session",
         [](RulesScreen& screen) {
             screen.state->navigate(AppState::Screen::pick);
             screen.settle();
         }},
    };
    for (const auto& [name, leave] : ways) {
        SCOPED_TRACE(name);
        RulesScreen screen;
        screen.clickPart(quill, "mark");
        screen.clickPart(ann, "mark");
        screen.clickPart(ann, "mark");
        EXPECT_EQ(screen.state->rules.combined().size(), 6U);
        leave(screen);
        EXPECT_NE(*screen.state->screen, AppState::Screen::rules);
        EXPECT_EQ(screen.state->rules.combined().size(), 5U);
        EXPECT_EQ(screen.state->rules.live().front().sender, "ann@letters.example");
    }
}

TEST(RulesScreen, ButtonsKeepAndMakePermanent) {
    RulesScreen screen;
    EXPECT_EQ(screen.part(quill, "enable"), nullptr);
    EXPECT_EQ(screen.part(quill, "promote"), nullptr);
    screen.clickPart(arrivals, "promote");
    EXPECT_EQ(screen.state->rules.session->size(), 1U);
    screen.clickPart(oldList, "enable");
    EXPECT_TRUE(screen.state->rules.held().empty());
    EXPECT_EQ(screen.rules().counts(), QStringLiteral("5 always · 1 learned"));
}

TEST(RulesScreen, ForgetAllAsksTwice) {
    RulesScreen screen;
    EXPECT_TRUE(screen.click("forgetAll"));
    EXPECT_EQ(screen.find("forgetAll")->property("text"), QStringLiteral("Really forget all?"));
    EXPECT_TRUE(screen.click("forgetAll"));
    EXPECT_TRUE(screen.state->rules.all->empty());
    EXPECT_FALSE(screen.find("forgetAll")->isEnabled());
    screen.press(Qt::Key_Tab);
    EXPECT_NE(screen.focused(), QString()) << "the keyboard is not lost";
}

TEST(RulesScreen, ATypedRuleIsAddedAndTheFieldEmptiesForTheNext) {
    RulesScreen screen(scenes::noRules);
    EXPECT_NE(screen.find("nothing"), nullptr);
    ASSERT_TRUE(screen.tabTo("sender"));
    screen.type(QStringLiteral("Club.example"));
    screen.press(Qt::Key_Return);
    ASSERT_EQ(screen.state->rules.all->size(), 1U);
    EXPECT_EQ(screen.state->rules.all->front().sender, "club.example");
    EXPECT_EQ(screen.find("sender")->property("text"), QString());
    EXPECT_EQ(screen.focused(), QStringLiteral("sender"));
    EXPECT_EQ(screen.find("nothing"), nullptr);
    screen.type(QStringLiteral("Shop Team"));
    EXPECT_TRUE(screen.click("add"));
    EXPECT_EQ(screen.state->rules.all->size(), 1U);
    EXPECT_EQ(screen.find("sender")->property("text"), QStringLiteral("Shop Team"));
}

TEST(RulesScreen, TheMenusNarrowTheRule) {
    RulesScreen screen(scenes::noRules);
    ASSERT_TRUE(screen.tabTo("kind"));
    for (const auto key : {Qt::Key_Space, Qt::Key_Down, Qt::Key_Return}) screen.press(key);
    ASSERT_TRUE(screen.tabTo("verdict"));
    for (const auto key : {Qt::Key_Space, Qt::Key_Down, Qt::Key_Return}) screen.press(key);
    ASSERT_TRUE(screen.tabTo("sender"));
    screen.type(QStringLiteral("club.example"));
    ASSERT_TRUE(screen.tabTo("add"));
    screen.press(Qt::Key_Space);
    ASSERT_EQ(screen.state->rules.all->size(), 1U);
    EXPECT_EQ(screen.state->rules.all->front().category, "advertisingOrPromotion");
    EXPECT_EQ(screen.state->rules.all->front().verdict, Rule::Verdict::keep);
}

TEST(RulesScreen, AFlippedCategoryIsStoppedInTwoClicks) {
    RulesScreen screen;
    EXPECT_EQ(screen.find("mute0"), nullptr);
    EXPECT_TRUE(screen.click("stop0"));
    EXPECT_TRUE(screen.click("mute0"));
    EXPECT_EQ(screen.state->calibration.muted->size(), 1U);
    EXPECT_TRUE(screen.click("stop0"));
    EXPECT_TRUE(screen.click("forget0"));
    EXPECT_EQ(screen.state->calibration.byCategory->count("accountWelcomeOrInvitation"), 0U);
    EXPECT_EQ(screen.find("learnedLabel"), nullptr);
}

TEST(RulesScreen, TheKeyboardOpensTicksAndCloses) {
    RulesScreen screen;
    screen.walkTo(orders);
    screen.press(Qt::Key_Right);
    EXPECT_TRUE(screen.at(orders, RuleRowsModel::OpenRole).toBool());
    screen.press(Qt::Key_Down);
    screen.press(Qt::Key_Down);
    screen.press(Qt::Key_Space);
    EXPECT_TRUE(screen.state->approved->contains(14));
    EXPECT_EQ(screen.current(), orders + 2) << "a tick moves nothing";
    screen.press(Qt::Key_Left);
    EXPECT_EQ(screen.current(), orders) << "first to the rule";
    screen.press(Qt::Key_Left);
    EXPECT_FALSE(screen.at(orders, RuleRowsModel::OpenRole).toBool());
    screen.press(Qt::Key_Space);
    EXPECT_TRUE(screen.at(orders, RuleRowsModel::OpenRole).toBool());
}

TEST(RulesScreen, TheKeyboardMarksAndUnmarks) {
    RulesScreen screen;
    screen.walkTo(quill);
    for (const auto key : {Qt::Key_Delete, Qt::Key_Backspace}) {
        screen.press(key);
        EXPECT_TRUE(screen.at(quill, RuleRowsModel::MarkedRole).toBool()) << key;
        screen.press(key);
        EXPECT_FALSE(screen.at(quill, RuleRowsModel::MarkedRole).toBool()) << key;
    }
}

TEST(RulesScreen, TabReachesTheButtonsOfTheCurrentRowAndOfNoOther) {
    RulesScreen screen;
    screen.walkTo(arrivals);
    QStringList reached;
    for (int i = 0; i < 4; ++i) {
        screen.press(Qt::Key_Tab);
        reached += screen.focused();
    }
    EXPECT_EQ(reached, QStringList({"flip", "promote", "mark", "back"}));
    screen.walkTo(arrivals);
    screen.press(Qt::Key_Tab);
    screen.press(Qt::Key_Backtab);
    EXPECT_EQ(screen.focused(), QStringLiteral("rules")) << "back to the row";
    screen.press(Qt::Key_Tab);
    screen.press(Qt::Key_Space);
    EXPECT_EQ(screen.state->rules.session->back().verdict, Rule::Verdict::keep);
    screen.press(Qt::Key_Up);
    EXPECT_EQ(screen.current(), orders) << "the arrows still walk the rows";
}

TEST(RulesScreen, ThePageRollsToWhatTheKeyboardReaches) {
    RulesScreen screen;
    screen.window()->resize(980, 640);
    screen.walkTo(arrivals);
    auto* row = screen.part(arrivals, "");
    EXPECT_LE(row->mapToScene(QPointF(0, row->height())).y(), screen.window()->height());
    ASSERT_TRUE(screen.tabTo("sender"));
    auto* field = screen.find("sender");
    EXPECT_GE(field->mapToScene(QPointF()).y(), 0);
}

TEST(RulesScreen, WhatOpensAboveTheRowsMovesOnlyThem) {
    RulesScreen screen;
    const auto top = [&](const char* name) {
        return screen.await(name)->mapToScene(QPointF()).y();
    };
    const auto rowTop = [&] { return screen.part(oldList, "")->mapToScene(QPointF()).y(); };
    const auto back = top("back");
    EXPECT_GE(back, 0) << "the page begins at its top";
    const auto row = rowTop();
    EXPECT_TRUE(screen.click("stop0"));
    EXPECT_TRUE(QTest::qWaitFor([&] { return rowTop() > row; }));
    EXPECT_EQ(top("back"), back);
    EXPECT_TRUE(screen.click("stop0"));
    EXPECT_TRUE(QTest::qWaitFor([&] { return rowTop() == row; }));
    EXPECT_EQ(top("back"), back);
}

TEST(RulesScreen, AThousandRulesForOneSenderMakeOnlyTheRowsOnShow) {
    RulesScreen screen(+[](AppState& state) {
        scenes::results(state);
        state.verdicts.set(verdictsOfOneDomain(2'000));
        std::vector<Rule> many(1'000);
        for (std::size_t i = 0; i < many.size(); ++i) {
            many[i].sender = "quill.example";
            many[i].templateWords = {"number", std::to_string(i)};
        }
        state.rules.all.set(many);
        state.navigate(AppState::Screen::rules);
    });
    const auto pills = [&] {
        int count = 0;
        for (auto* item : screen.items()) count += item->objectName() == QLatin1String("flip");
        return count;
    };
    EXPECT_GT(pills(), 3);
    EXPECT_LT(pills(), 40);
    QMetaObject::invokeMethod(screen.find("rules"), "positionViewAtEnd");
    screen.settle();
    EXPECT_GT(pills(), 3);
    EXPECT_LT(pills(), 40);
    EXPECT_EQ(screen.main->warnings(), QStringList());
}

TEST(RulesScreen, LongAndForeignTextsStayInTheirRows) {
    RulesScreen screen(+[](AppState& state) {
        scenes::results(state);
        std::vector<Rule> rules(3);
        rules[0].sender = std::string(10'000, 'w') + ".example";
        rules[1].sender = "דוגמה.example";
        rules[1].category = "newsletterOrDigest";
        rules[1].templateWords = {"מבצע", "مرحبا", "e\u0301\u0301\u0301"};
        rules[2].sender = "quill.example";
        rules[2].category = "newsletterOrDigest";
        rules[2].templateWords = {std::string(10'000, 'x')};
        state.rules.all.set(rules);
        auto mail = std::vector<Verdict>(state.verdicts->begin(), state.verdicts->end());
        mail[0].subject = std::string(10'000, 'y');
        mail[1].subject = "שלום עולם " + mail[1].subject;
        for (auto& verdict : mail) verdict.sender = "a@דוגמה.example";
        state.verdicts.set(VerdictList(mail));
        state.navigate(AppState::Screen::rules);
    });
    for (bool dark : {true, false}) {
        screen.model().setDark(dark);
        for (int row = screen.rules().rules()->rowCount() - 1; row >= 0; --row)
            screen.rules().rules()->setOpen(row, true);
        screen.settle();
        for (auto* item : screen.items()) {
            const auto right = item->mapToScene(QPointF(item->width(), 0)).x();
            if (item->objectName() == QLatin1String("mark")) {
                EXPECT_LE(right, screen.window()->width());
            }
        }
        EXPECT_FALSE(screen.window()->grabWindow().isNull());
        EXPECT_EQ(screen.main->warnings(), QStringList());
    }
}

}  // namespace
}  // namespace brindlet::testing
