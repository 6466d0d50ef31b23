// Prints what a person waits for in the window: the first picture after the start, and the frames
// while a long list scrolls. Off screen, run alone, best of three; fails at twice the limits.
#include <QElapsedTimer>
#include <QGuiApplication>
#include <QProcess>
#include <QTemporaryDir>
#include <algorithm>
#include <cstdio>
#include <cstdlib>
#include <functional>
#include <vector>

#include "app/Application.h"
#include "app/QtMainQueue.h"
#include "models/embedded/EmbeddedModel.h"
#include "platform/linux/FileUserDefaults.h"
#include "platform/linux/LinuxPower.h"
#include "platform/linux/NoRunningApps.h"
#include "platform/linux/SystemClock.h"
#include "platform/linux/SystemLocale.h"
#include "platform/linux/XdgDesktop.h"
#include "platform/linux/XdgDirectories.h"
#include "platform/posix/PosixProcessRunner.h"
#include "screens/Stage.h"

namespace brindlet {
namespace {

constexpr double firstFrameLimit = 150;  // milliseconds
constexpr double frameLimit = 8;
constexpr int rounds = 3;
constexpr int messages = 50'000;
constexpr int frames = 400;
constexpr double step = 37;

double milliseconds(const QElapsedTimer& timer) {
    return static_cast<double>(timer.nsecsElapsed()) / 1e6;
}

/// The whole program, as its own main makes it, until its window shows something.
[[noreturn]] void startAndShow(int argc, char** argv) {
    SystemClock clock;
    XdgDirectories directories;
    SystemLocale locale;
    LinuxPower power;
    XdgDesktop desktop;
    FileUserDefaults defaults(directories.configuration() + "/defaults.json");
    EmbeddedModel model;
    PosixProcessRunner processes;
    NoRunningApps runningApps;
    const QGuiApplication application(argc, argv);
    QtMainQueue queue;
    const auto state = AppState::make({clock, directories, queue, defaults, model, power, desktop,
                                       locale, processes, runningApps, ""});
    runApplication(*state, queue, [] { std::_Exit(EXIT_SUCCESS); });
}

double firstFrame(const char* self) {
    const QTemporaryDir home;
    auto environment = QProcessEnvironment::systemEnvironment();
    environment.insert(QStringLiteral("HOME"), home.path());
    for (const auto* name :
         {"XDG_CACHE_HOME", "XDG_CONFIG_HOME", "XDG_DATA_HOME", "BRINDLET_STORE"})
        environment.insert(QString::fromLatin1(name), home.path());
    QProcess child;
    child.setProcessEnvironment(environment);
    QElapsedTimer timer;
    timer.start();
    child.start(QString::fromLocal8Bit(self), {QStringLiteral("--first-frame")});
    if (!child.waitForFinished() || child.exitCode() != EXIT_SUCCESS) {
        std::fprintf(stderr, "the window did not come up\n");
        std::exit(EXIT_FAILURE);
    }
    return milliseconds(timer);
}

VerdictList oneLongCategory() {
    std::vector<Verdict> all;
    for (auto verdict : testing::verdicts(messages)) {
        verdict.category = Category::newsletterOrDigest;
        all.push_back(std::move(verdict));
    }
    return VerdictList(std::move(all));
}

/// The results with all messages in the one open category.
void openResults(AppState& state) {
    state.account.set(testing::account("ada@example.org", {testing::folder(1, "INBOX", messages)}));
    state.folder.set(state.account->value().folders.front());
    state.verdicts.set(oneLongCategory());
    state.expand.set(Category::newsletterOrDigest);
    state.navigate(AppState::Screen::results);
}

/// The 99th percentile of what a frame costs between its synchronising and its end.
double scrolling(testing::Stage& stage) {
    auto* list = stage.await(QStringLiteral("messages"));
    auto* window = stage.window();
    QElapsedTimer timer;
    std::vector<double> costs;
    const auto begin = QObject::connect(
        window, &QQuickWindow::beforeSynchronizing, window, [&] { timer.start(); },
        Qt::DirectConnection);
    const auto end = QObject::connect(
        window, &QQuickWindow::afterRendering, window,
        [&] { costs.push_back(milliseconds(timer)); }, Qt::DirectConnection);
    list->setProperty("contentY", 0);
    while (costs.size() < frames) {
        const auto before = costs.size();
        list->setProperty("contentY", list->property("contentY").toDouble() + step);
        while (costs.size() == before)
            QCoreApplication::processEvents(QEventLoop::WaitForMoreEvents);
    }
    QObject::disconnect(begin);
    QObject::disconnect(end);
    std::sort(costs.begin(), costs.end());
    return costs[costs.size() * 99 / 100];
}

/// One refresh of the view-models and all that hangs on them, as a running scan causes them.
double refreshing(testing::Stage& stage) {
    std::vector<double> costs;
    for (int i = 0; i < frames; ++i) {
        stage.state->done.set(i);
        stage.state->skipped.set(i);
        stage.state->approved.mutate([&](auto& ticked) { ticked.insert(i); });
        QElapsedTimer timer;
        timer.start();
        QCoreApplication::sendPostedEvents();
        costs.push_back(milliseconds(timer));
    }
    std::sort(costs.begin(), costs.end());
    return costs[costs.size() * 99 / 100];
}

bool report(const char* what, const std::function<double()>& measure, double limit) {
    double best = measure();
    for (int i = 1; i < rounds; ++i) best = std::min(best, measure());
    const bool failed = best > 2 * limit;
    std::printf("%-52s %7.2f ms   at most %.0f%s\n", what, best, limit, failed ? "   FAILED" : "");
    std::fflush(stdout);
    return !failed;
}

int measureAll(int argc, char** argv) {
    const QGuiApplication application(argc, argv);
    bool ok = report(
        "first frame after process start", [&] { return firstFrame(argv[0]); }, firstFrameLimit);
    testing::Stage stage(openResults);
    ok &= report(
        "scrolling 50,000 results, 99th percentile of a frame", [&] { return scrolling(stage); },
        frameLimit);
    ok &= report(
        "refresh with 50,000 results, 99th percentile", [&] { return refreshing(stage); },
        frameLimit);
    return ok ? EXIT_SUCCESS : EXIT_FAILURE;
}

}  // namespace
}  // namespace brindlet

int main(int argc, char** argv) {
    // The same on every machine: no screen, no graphics card.
    qputenv("QT_QPA_PLATFORM", "offscreen");
    qputenv("QT_QUICK_BACKEND", "software");
    if (argc > 1) brindlet::startAndShow(argc, argv);
    const int code = brindlet::measureAll(argc, argv);
    std::fflush(stdout);
    std::_Exit(code);
}
