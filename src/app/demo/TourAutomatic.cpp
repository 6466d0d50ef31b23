#include <cstdio>

#include "app/MainWindow.h"
#include "app/demo/Tour.h"
#include "session/AppState.h"

namespace brindlet::demo {

void Tour::automatic() {
    openAutomatic();
    setSchedule();
    losePickedMailbox();
    runNow();
    automaticFromWelcome();
}

void Tour::openAutomatic() {
    step(QStringLiteral("back to the results, and click Run automatically"), [this] {
        if (!hand_.rest()) return false;
        hand_.press(Qt::Key_Escape);
        return hand_.click(QStringLiteral("automatic")) && hand_.await([this] {
            return hand_.find(QStringLiteral("schedule")) && !*state_.refreshingFolders;
        });
    });
    step(QStringLiteral("the schedule is off, and there is nothing but its switch"),
         [this] { return !hand_.find(QStringLiteral("mailboxes")); });
    picture(QStringLiteral("automatic-off"), {"automatic"});
}

void Tour::setSchedule() {
    step(QStringLiteral("switch it on: Run now waits for a mailbox"), [this] {
        if (!hand_.click(QStringLiteral("schedule")) ||
            !hand_.await([this] { return hand_.find(QStringLiteral("mailboxes")); }))
            return false;
        return state_.schedule.enabled() && !main_.model().automatic()->canRun();
    });
    picture(QStringLiteral("automatic-nothing-picked"),
            {"automatic.nonePicked", "automatic.often", "automatic.modes", "automatic.now"});
    step(QStringLiteral("open the first account and tick its inbox, by keyboard"), [this] {
        if (!hand_.tabTo(QStringLiteral("mailboxes"))) return false;
        hand_.press(Qt::Key_Right);
        hand_.press(Qt::Key_Down);
        hand_.press(Qt::Key_Space);
        return hand_.await([this] { return main_.model().automatic()->canRun(); }) &&
               state_.schedule.watched().size() == 1;
    });
    picture(QStringLiteral("automatic-picked"), {"automatic.account", "automatic.mailboxes"});
    step(QStringLiteral("every hour instead of once a day, by keyboard"), [this] {
        if (!hand_.tabTo(QStringLiteral("cadence2"))) return false;
        hand_.press(Qt::Key_Home);
        hand_.press(Qt::Key_Space);
        return state_.schedule.cadence() == Cadence::hourly;
    });
    step(QStringLiteral("and let it move what it finds"), [this] {
        return hand_.click(QStringLiteral("mode1")) &&
               state_.schedule.mode() == SortMode::automatic;
    });
    picture(QStringLiteral("automatic-on"));
}

void Tour::losePickedMailbox() {
    step(QStringLiteral("a mailbox that was picked is there no more"), [this] {
        state_.schedule.toggle(state_.schedule.watched().front().account, "Old newsletters");
        return hand_.await([this] { return hand_.find(QStringLiteral("goneBar")); });
    });
    picture(QStringLiteral("automatic-gone"), {"automatic.gone"});
    step(QStringLiteral("nor is another"), [this] {
        state_.schedule.toggle(state_.schedule.watched().front().account, "Old receipts");
        return hand_.rest();
    });
    picture(QStringLiteral("automatic-gone-some"), {"automatic.goneSome"});
    step(QStringLiteral("click Remove them: the other stays"), [this] {
        return hand_.click(QStringLiteral("removeGone")) &&
               hand_.await([this] { return !hand_.find(QStringLiteral("goneBar")); }) &&
               state_.schedule.watched().size() == 1;
    });
}

void Tour::runNow() {
    step(QStringLiteral("click Run now: the mailbox is sorted"), [this] {
        return hand_.click(QStringLiteral("runNow")) && hand_.await([this] {
            return !state_.automaticRunning() && state_.schedule.lastRun().has_value() &&
                   hand_.find(QStringLiteral("resultsTitle"));
        });
    });
    picture(QStringLiteral("automatic-results"), {"results.automatic"});
    step(QStringLiteral("click Automatic on: the summary tells when it runs next"), [this] {
        if (!hand_.click(QStringLiteral("automatic")) ||
            !hand_.await([this] { return hand_.find(QStringLiteral("summary")); }))
            return false;
        const auto summary = state_.schedule.summary();
        std::printf("   %s\n", summary.c_str());
        return summary.starts_with("1 mailbox \u00b7 every hour \u00b7 next ");
    });
    picture(QStringLiteral("automatic-next"));
}

void Tour::automaticFromWelcome() {
    step(QStringLiteral("all the way back, to the first screen"), [this] {
        while (*state_.screen != AppState::Screen::welcome) {
            const auto before = state_.screen.revision();
            if (!hand_.rest()) return false;
            hand_.press(Qt::Key_Escape);
            if (state_.screen.revision() == before) return false;
        }
        return hand_.await([this] { return hand_.find(QStringLiteral("start")) != nullptr; });
    });
    picture(QStringLiteral("automatic-welcome"), {"welcome.automatic.one"});
}

}  // namespace brindlet::demo
