#include <QQuickItem>
#include <algorithm>
#include <map>

#include "app/demo/Tour.h"
#include "session/AppState.h"

namespace brindlet::demo {

void Tour::rulesWithNone() {
    followLink("Manage rules");
    step(QStringLiteral("the rules stand, and there are none"), [this] {
        return hand_.await([this] { return hand_.find(QStringLiteral("nothing")) != nullptr; });
    });
    picture(QStringLiteral("rules-none"), {"rules", "rules.none", "rules.form"});
    step(QStringLiteral("open the menu of kinds of mail, by keyboard"), [this] {
        if (!hand_.tabTo(QStringLiteral("kind"))) return false;
        hand_.press(Qt::Key_Space);
        return hand_.rest();
    });
    picture(QStringLiteral("rules-kinds"), {"rules.kinds", "rules.kindsMore"});
    step(QStringLiteral("and the one of what a rule says"), [this] {
        hand_.press(Qt::Key_Escape);
        if (!hand_.tabTo(QStringLiteral("verdict"))) return false;
        hand_.press(Qt::Key_Space);
        return hand_.rest();
    });
    picture(QStringLiteral("rules-verdicts"), {"rules.verdicts"});
    step(QStringLiteral("leave it, and go back"), [this] {
        hand_.press(Qt::Key_Escape);
        return hand_.click(QStringLiteral("back")) && hand_.await([this] {
            return hand_.find(QStringLiteral("welcomeScreen")) != nullptr;
        });
    });
}

void Tour::rules() {
    step(QStringLiteral("click Rules"), [this] {
        return hand_.click(QStringLiteral("rules")) &&
               hand_.await([this] { return hand_.find(QStringLiteral("rulesScreen")); });
    });
    picture(QStringLiteral("rules"),
            {"rules.counts", "rules.forgetAll", "rules.flips", "rules.flipKeep", "rules.flipJunk",
             "rules.held", "rules.always", "rules.session", "rules.verdict", "rules.hits",
             "rules.here", "rules.mark"});
    step(QStringLiteral("click Stop this: there are two ways"), [this] {
        return hand_.click(QStringLiteral("stop0")) &&
               hand_.await([this] { return hand_.find(QStringLiteral("mute0")) != nullptr; });
    });
    picture(QStringLiteral("rules-stop"), {"rules.stop"});
    step(QStringLiteral("let the model decide this category, and the next one"), [this] {
        return hand_.click(QStringLiteral("mute0")) &&
               hand_.await([&] { return state_.calibration.rows().size() == 1; }) &&
               hand_.click(QStringLiteral("stop0")) && hand_.click(QStringLiteral("mute0")) &&
               hand_.await([&] { return state_.calibration.rows().empty(); });
    });
    ruleRows();
    step(QStringLiteral("make a rule by hand"), [this] {
        const auto before = state_.rules.all->size();
        if (!hand_.click(QStringLiteral("sender"))) return false;
        hand_.type(QStringLiteral("weekly.example"));
        return hand_.click(QStringLiteral("add")) &&
               hand_.await([&] { return state_.rules.all->size() == before + 1; });
    });
}

void Tour::ruleRows() {
    step(QStringLiteral("mark the first rule to be forgotten"),
         [this] { return hand_.click(QStringLiteral("mark")); });
    picture(QStringLiteral("rules-marked"), {"rules.marked"});
    step(QStringLiteral("and keep it after all"),
         [this] { return hand_.click(QStringLiteral("mark")); });
    step(QStringLiteral("open a rule that covers some of the mail on show"), [this] {
        return hand_.seek([this] {
            return hand_.findEnabled(QStringLiteral("open")) != nullptr;
        }) && hand_.clickEnabled(QStringLiteral("open"));
    });
    picture(QStringLiteral("rules-open"));
}

void Tour::busyRule() {
    step(QStringLiteral("click Rules, and make one for who writes most"), [this] {
        std::map<std::string, int> counts;
        for (const auto& verdict : *state_.verdicts) ++counts[verdict.sender];
        const auto busiest =
            std::ranges::max_element(counts, {}, [](const auto& each) { return each.second; });
        if (!hand_.click(QStringLiteral("rules")) || !hand_.click(QStringLiteral("sender")))
            return false;
        hand_.type(QString::fromStdString(busiest->first));
        return hand_.click(QStringLiteral("add")) &&
               hand_.await([this] { return state_.rules.all->size() == 1; }) &&
               hand_.clickEnabled(QStringLiteral("open"));
    });
    picture(QStringLiteral("rules-messages"), {"rules.messages"});
}

void Tour::forgetAllRules() {
    step(QStringLiteral("go to the rules"), [this] {
        state_.navigate(AppState::Screen::rules);
        return hand_.await([this] { return hand_.find(QStringLiteral("rulesScreen")); });
    });
    step(QStringLiteral("click Forget all: it asks once more"),
         [this] { return hand_.click(QStringLiteral("forgetAll")); });
    picture(QStringLiteral("rules-forget-all"), {"rules.forgetAllReally"});
    step(QStringLiteral("click it again: the rules of the session stay"), [this] {
        const auto ofSession = state_.rules.session->size();
        return hand_.click(QStringLiteral("forgetAll")) &&
               hand_.await([this] { return state_.rules.all->empty(); }) && ofSession > 0 &&
               state_.rules.session->size() == ofSession;
    });
    picture(QStringLiteral("rules-of-the-session"));
}

}  // namespace brindlet::demo
