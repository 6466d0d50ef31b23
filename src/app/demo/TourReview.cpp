#include <QQuickItem>
#include <algorithm>

#include "app/demo/Tour.h"
#include "session/AppState.h"

namespace brindlet::demo {
namespace {

/// Whether the sender of the message with that subject has written two more to the same pattern.
bool recurs(AppState& state, const std::string& subject) {
    const auto& all = *state.verdicts;
    const auto shown = std::find_if(
        all.begin(), all.end(), [&](const Verdict& verdict) { return verdict.subject == subject; });
    if (shown == all.end()) return false;
    const Verdict message = *shown;
    const auto pattern = state.familyTemplate(message);
    const auto alike = std::count_if(all.begin(), all.end(), [&](const Verdict& verdict) {
        return verdict.sender == message.sender && verdict.category == message.category &&
               state.familyTemplate(verdict) == pattern;
    });
    return !pattern.empty() && alike > 2;
}

}  // namespace

void Tour::correction() {
    step(QStringLiteral("walk by keyboard to a message whose sender keeps writing the same"),
         [this] {
             if (!hand_.tabTo(QStringLiteral("messages"))) return false;
             for (int row = 0; hand_.rest(); ++row) {
                 const auto* title = hand_.find(QStringLiteral("rowTitle%1").arg(row));
                 if (!title) return false;
                 if (recurs(state_, title->property("text").toString().toStdString())) return true;
                 hand_.press(Qt::Key_Down);
             }
             return false;
         });
    picture(QStringLiteral("keyboard"));
    const auto ticks = [this] { return state_.approved->size(); };
    const auto before = ticks();
    step(QStringLiteral("untick the message: the same is offered for its like"), [&] {
        hand_.press(Qt::Key_Space);
        return hand_.await([&] {
            // The offer may grow until the search for like messages has ended.
            return hand_.find(QStringLiteral("offer0")) &&
                   (!state_.kindTask() || state_.kindTask()->finished()) && ticks() + 1 == before;
        });
    });
    picture(QStringLiteral("offer"),
            {"offer.members", "offer.these", "offer.every", "offer.always", "offer.notNow",
             "message.stays", "category.some", "summary.learnedOne"});
    step(QStringLiteral("click the first answer: its like are unticked too"), [&] {
        return hand_.click(QStringLiteral("offer0")) && hand_.await([&] {
            return hand_.find(QStringLiteral("undo")) && ticks() + 1 < before;
        });
    });
    picture(QStringLiteral("undo"), {"undo"});
    step(QStringLiteral("click Undo: they are ticked again, all but the one"), [&] {
        return hand_.click(QStringLiteral("undo")) && hand_.await([&] {
            return !hand_.find(QStringLiteral("undo")) && ticks() + 1 == before;
        });
    });
}

}  // namespace brindlet::demo
