#include <QQuickItem>
#include <cstdio>

#include "app/demo/Tour.h"
#include "session/AppState.h"

namespace brindlet::demo {

void Tour::visitAgain() {
    welcomeAgain();
    automaticUnread();
    history();
    bin();
    openRecord();
    recordLists();
    rules();
    resume();
    smallScans();
    junkFolder();
    stoppedScan();
    vanishedFolder();
    forgetAllRules();
}

void Tour::welcomeAgain() {
    step(QStringLiteral("the welcome stands, and offers to finish a move"), [this] {
        return hand_.await([this] { return hand_.find(QStringLiteral("resume")) != nullptr; });
    });
    picture(QStringLiteral("welcome-again"), {"welcome.resume", "welcome.filed", "welcome.rules",
                                              "welcome.automatic", "welcome.history"});
}

void Tour::automaticUnread() {
    followLink("Automatic: ");
    picture(QStringLiteral("automatic-unread"), {"automatic.noAccounts"});
    step(QStringLiteral("go back"), [this] {
        hand_.press(Qt::Key_Escape);
        return hand_.await([this] { return hand_.find(QStringLiteral("resume")) != nullptr; });
    });
}

void Tour::followLink(const char* text) {
    step(QStringLiteral("follow the line ") + QString::fromUtf8(text), [&] {
        for (int i = 0;; ++i) {
            const auto name = QStringLiteral("link%1").arg(i);
            const auto* const link = hand_.find(name);
            if (!link) return false;
            if (link->property("text").toString().startsWith(QString::fromUtf8(text)))
                return hand_.click(name);
        }
    });
}

void Tour::resume() {
    step(QStringLiteral("go back to the welcome"), [this] {
        state_.navigate(AppState::Screen::welcome);
        return hand_.await([this] { return hand_.find(QStringLiteral("resume")) != nullptr; });
    });
    step(QStringLiteral("click Continue: the rest of the move begins"), [this] {
        return hand_.click(QStringLiteral("resume")) &&
               hand_.await([this] { return *state_.moving && *state_.movedCount > 0; });
    });
    picture(QStringLiteral("resuming"), {});
    step(QStringLiteral("it comes to its end, and nothing is left of it"), [this] {
        if (!hand_.await([this] { return !*state_.moving; })) return false;
        std::printf("   %s%s\n", state_.moveNote->c_str(), state_.moveError->value_or("").c_str());
        return !*state_.moveError && !*state_.interrupted.pending;
    });
    picture(QStringLiteral("resumed"), {});
}

}  // namespace brindlet::demo
