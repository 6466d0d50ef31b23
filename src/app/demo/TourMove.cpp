#include <algorithm>
#include <cstdio>

#include "app/demo/MailCounts.h"
#include "app/demo/Tour.h"
#include "session/AppState.h"

namespace brindlet::demo {
Tour::FileCounts Tour::countFiles() const {
    const std::string home = world_.directories.home();
    const std::string& account = (*state_.account)->id;
    return {messageFiles(home, account, (*state_.folder)->name),
            messageFiles(home, account, state_.destinationName())};
}

std::int64_t Tour::movableTicks() const {
    const auto& all = *state_.verdicts;
    return std::count_if(all.begin(), all.end(), [this](const Verdict& verdict) {
        return verdict.messageID && state_.approved->contains(verdict.id);
    });
}

void Tour::expectMoved(const FileCounts& before, std::int64_t count) {
    step(QStringLiteral("it ends well"),
         [this] { return hand_.await([this] { return !*state_.moving; }) && !*state_.moveError; });
    step(QStringLiteral("as many message files have changed their folder"), [&] {
        const auto now = countFiles();
        std::printf("   %s: %lld files there, %lld here\n", state_.moveNote->c_str(),
                    static_cast<long long>(now.destination), static_cast<long long>(now.source));
        return now.source == before.source - count && now.destination == before.destination + count;
    });
}

void Tour::move() {
    FileCounts before;
    const auto ticked = movableTicks();
    step(QStringLiteral("walk to the button that moves what is ticked, and press it"), [&] {
        before = countFiles();
        // The move before this one has just ended.
        hand_.pause();
        if (ticked == 0 || !hand_.tabTo(QStringLiteral("move"))) return false;
        hand_.press(Qt::Key_Return);
        return *state_.moving;
    });
    step(QStringLiteral("its words tell how far it is"), [&] {
        // On a machine that is very slow it may have ended meanwhile.
        return hand_.await([&] { return *state_.movedCount > ticked / 3 || !*state_.moving; }) &&
               hand_.find(QStringLiteral("moveStatus"));
    });
    glimpse(QStringLiteral("moving"), {"move.running", "move.stop"});
    expectMoved(before, ticked);
    step(QStringLiteral("nothing is ticked any more"), [this] { return state_.approved->empty(); });
    picture(QStringLiteral("moved"), {"move.done", "moved"});
}

void Tour::tickFirstMoved() {
    step(QStringLiteral("open what has moved, by keyboard"), [this] {
        if (!hand_.tabTo(QStringLiteral("movedHeader"))) return false;
        hand_.press(Qt::Key_Return);
        return hand_.await(
            [this] { return hand_.find(QStringLiteral("movedMessages")) != nullptr; });
    });
    step(QStringLiteral("tick the first, which should not have gone"), [this] {
        if (!hand_.tabTo(QStringLiteral("movedMessages"))) return false;
        hand_.press(Qt::Key_Space);
        return hand_.await([this] {
            return state_.putBack->size() == 1 && hand_.find(QStringLiteral("putBack"));
        });
    });
}

void Tour::putBack() {
    tickFirstMoved();
    picture(QStringLiteral("to-put-back"), {"moved.open", "moved.long", "moved.back"});
    FileCounts before;
    step(QStringLiteral("put it back, by keyboard too"), [&] {
        before = countFiles();
        if (!hand_.tabTo(QStringLiteral("putBack"))) return false;
        hand_.press(Qt::Key_Return);
        return *state_.moving;
    });
    expectMoved(before, -1);
    step(QStringLiteral("walk to the bar, which tells it"),
         [this] { return hand_.tabTo(QStringLiteral("destinations")); });
    picture(QStringLiteral("put-back"), {"moved.returned"});
}

}  // namespace brindlet::demo
