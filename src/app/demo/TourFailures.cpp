#include <QDir>
#include <QFile>
#include <QProcess>
#include <cstdio>

#include "app/demo/Tour.h"
#include "sample/MailSettings.h"
#include "session/AppState.h"

namespace brindlet::demo {
namespace {

/// Ends the script hosts that this process has started, without a chance to say a word.
bool killScriptHosts() {
    bool killed = false;
    const QDir threads(QStringLiteral("/proc/self/task"));
    for (const auto& thread : threads.entryList(QDir::Dirs | QDir::NoDotAndDotDot)) {
        QFile children(threads.filePath(thread) + QStringLiteral("/children"));
        if (!children.open(QIODevice::ReadOnly)) continue;
        for (const auto& child : children.readAll().simplified().split(' ')) {
            QFile name(QStringLiteral("/proc/%1/comm").arg(QString::fromUtf8(child)));
            if (!name.open(QIODevice::ReadOnly) || name.readAll().trimmed() != "osascript")
                continue;
            killed = QProcess::execute(QStringLiteral("sh"),
                                       {QStringLiteral("-c"), QStringLiteral("kill -9 ") +
                                                                  QString::fromUtf8(child)}) == 0;
        }
    }
    return killed;
}

}  // namespace

void Tour::failedMoves() {
    const auto beginMove = [this] {
        hand_.pause();
        return hand_.click(QStringLiteral("move")) && *state_.moving;
    };
    const auto endsWithError = [this] {
        if (!hand_.await([this] { return !*state_.moving; })) return false;
        std::printf("   %lld moved: %s\n", static_cast<long long>(*state_.movedCount),
                    state_.moveError->value_or("no error").c_str());
        return state_.moveError->has_value();
    };
    step(QStringLiteral("from now on the mail program lets no script in"), [this] {
        return changeMail([](auto& mail) { mail.behaviour.refusesAutomation = true; });
    });
    step(QStringLiteral("click Move: nothing moves"),
         [&] { return beginMove() && endsWithError() && *state_.movedCount == 0; });
    picture(QStringLiteral("move-refused"), {"move.allFailed"});
    step(QStringLiteral("from now on it lets them in again, but is slow"), [this] {
        return changeMail([](auto& mail) {
            mail.behaviour.refusesAutomation = false;
            mail.behaviour.pace = 0.1;
        });
    });
    step(QStringLiteral("click Move, and kill the script as soon as some have moved"), [&] {
        return beginMove() && hand_.await([this] { return *state_.movedCount > 0; }) &&
               killScriptHosts() && endsWithError();
    });
    picture(QStringLiteral("move-cut-short"), {"move.someFailed"});
    step(QStringLiteral("from now on the mail program is quick again"),
         [this] { return changeMail([](auto& mail) { mail.behaviour.pace = 0.01; }); });
}

}  // namespace brindlet::demo
