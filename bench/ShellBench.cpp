// Prints what the program asks of a person's machine: the time until its first picture over a full
// store, its memory with the window open, and how often it wakes with the window closed. Each is a
// process of its own, made as the program's own main makes it, off screen and run alone.
#include <QApplication>
#include <QDir>
#include <QElapsedTimer>
#include <QFile>
#include <QProcess>
#include <QTemporaryDir>
#include <QThread>
#include <QTimer>
#include <QWindow>
#include <algorithm>
#include <cstdio>
#include <cstdlib>
#include <functional>
#include <string>
#include <utility>
#include <vector>

#include "Rounds.h"
#include "app/Application.h"
#include "app/QtMainQueue.h"
#include "app/SingleInstance.h"
#include "doubles/Doubles.h"
#include "models/embedded/EmbeddedModel.h"
#include "platform/linux/FileUserDefaults.h"
#include "platform/linux/LinuxDiagnostics.h"
#include "platform/linux/LinuxPower.h"
#include "platform/linux/Memory.h"
#include "platform/linux/NoRunningApps.h"
#include "platform/linux/NoUpdates.h"
#include "platform/linux/OpenSslStream.h"
#include "platform/linux/SecretServiceKeyStore.h"
#include "platform/linux/SystemClock.h"
#include "platform/linux/SystemLocale.h"
#include "platform/linux/XdgDesktop.h"
#include "platform/linux/XdgDirectories.h"
#include "platform/posix/PosixProcessRunner.h"
#include "session/AppState.h"

namespace brindlet::bench {
namespace {

constexpr double firstFrameLimit = 100;  // milliseconds
constexpr double memoryLimit = 90;       // megabytes
constexpr int rounds = 9;
constexpr int records = 100;
constexpr int rules = 10'000;
constexpr int seen = 100'000;
/// Seconds until a program that has come to rest is one.
constexpr int settling = 2;
/// Wake-ups a second: the beat that the watchdog wants, and every other second its look at it. The
/// schedule's look comes every 300 seconds.
constexpr double wakeUps = 1.5;
/// What may come on top over the whole time: where it begins and ends, and one of the schedule's.
constexpr int strayWakeUps = 5;

/// The program, until something is done with its first picture.
[[noreturn]] void startAndShow(int argc, char** argv, const std::function<void()>& firstFrame) {
    shareHeaps();
    SystemClock clock;
    XdgDirectories directories;
    SingleInstance instance(directories);
    if (giveWay(instance)) std::_Exit(EXIT_FAILURE);
    SystemLocale locale;
    LinuxPower power;
    XdgDesktop desktop;
    FileUserDefaults defaults(directories.configuration() + "/defaults.json");
    EmbeddedModel model;
    PosixProcessRunner processes;
    NoRunningApps runningApps;
    SecretServiceKeyStore keys;
    OpenSslConnector tls(TlsAuthorities::ofSystem());
    const QApplication application(argc, argv);
    QtMainQueue queue;
    const auto state = AppState::make({clock, directories, queue, defaults, model, power, desktop,
                                       locale, processes, runningApps, keys, tls, ""});
    LinuxDiagnostics diagnostics(processes, clock);
    NoUpdates updates;
    runApplication({*state, queue, updates, instance, {clock, directories, diagnostics}},
                   firstFrame);
}

void say(const char* word) {
    std::puts(word);
    std::fflush(stdout);
}

void closeWindow() {
    QTimer::singleShot(0, [] {
        for (auto* window : QGuiApplication::topLevelWindows()) window->close();
        say("closed");
    });
}

/// A store as years of use leave it.
void fillStore(const std::string& folder) {
    doubles::World world;
    world.directories.setStore(folder);
    const auto state = AppState::make(world.services());
    state->history.records.mutate([&](auto& all) {
        for (int i = 0; i < records; ++i) {
            ScanRecord record;
            record.started = world.clock.now() - i * 86400.0;
            record.account = "ada@example.org";
            record.folder = "INBOX";
            record.scanned = 1000;
            record.junk = 100;
            all.push_back(std::move(record));
        }
    });
    state->history.save();
    state->rules.all.mutate([](auto& all) {
        all.resize(rules - 1);
        for (std::size_t i = 0; i < all.size(); ++i)
            all[i].sender = "shop" + std::to_string(i) + ".example";
    });
    // Saves all of them.
    state->rules.add("news@last.example", std::nullopt, Rule::Verdict::junk, Rule::Scope::always,
                     "Sale", {});
    std::vector<std::string> ids;
    for (int i = 0; i < seen; ++i)
        ids.push_back("0123456789abcdef0123456789abcdef-" + std::to_string(i) +
                      "@mail.example.com");
    state->seen.mark(ids, true, "ada@example.org", "INBOX");
}

/// The program in a home of its own, in one of the ways that `main` knows.
class Child {
  public:
    Child(const char* self, const char* way, const QString& home) {
        auto environment = QProcessEnvironment::systemEnvironment();
        for (const auto* name :
             {"HOME", "XDG_CACHE_HOME", "XDG_CONFIG_HOME", "XDG_DATA_HOME", "XDG_RUNTIME_DIR"})
            environment.insert(QString::fromLatin1(name), home);
        environment.insert(QStringLiteral("BRINDLET_STORE"), home + QStringLiteral("/store"));
        environment.remove(QStringLiteral("DBUS_SESSION_BUS_ADDRESS"));
        process_.setProcessEnvironment(environment);
        process_.start(QString::fromLocal8Bit(self), {QString::fromLatin1(way)});
    }
    ~Child() {
        process_.kill();
        process_.waitForFinished();
    }

    void await(bool good) const {
        if (good) return;
        std::fprintf(stderr, "the window did not come up\n");
        std::exit(EXIT_FAILURE);
    }
    void awaitEnd() { await(process_.waitForFinished() && process_.exitCode() == EXIT_SUCCESS); }
    /// Until it has said its word, and some seconds more.
    void awaitRest() {
        await(process_.waitForReadyRead());
        QThread::sleep(settling);
    }

    /// Megabytes: its own, and its part of what it shares.
    double memory() const {
        for (const auto& line : lines(QStringLiteral("/smaps_rollup")))
            if (line.startsWith("Pss:"))
                return line.mid(4).simplified().split(' ')[0].toDouble() / 1024;
        return 0;
    }
    /// How often its threads have waited for something so far.
    int waits() const {
        int sum = 0;
        const QDir tasks(root() + QStringLiteral("/task"));
        for (const auto& task : tasks.entryList(QDir::Dirs | QDir::NoDotAndDotDot))
            for (const auto& line : lines(QStringLiteral("/task/%1/status").arg(task)))
                if (line.startsWith("voluntary_ctxt_switches:"))
                    sum += line.mid(24).trimmed().toInt();
        return sum;
    }

  private:
    QString root() const { return QStringLiteral("/proc/%1").arg(process_.processId()); }
    QList<QByteArray> lines(const QString& name) const {
        QFile file(root() + name);
        return file.open(QIODevice::ReadOnly) ? file.readAll().split('\n') : QList<QByteArray>();
    }

    QProcess process_;
};

bool report(const char* what, double value, const char* unit, double limit, double slack) {
    const bool kept = value <= limit * slack;
    std::printf("%-54s %7.1f %s   at most %.0f%s\n", what, value, unit, limit,
                kept ? "" : "   FAILED");
    std::fflush(stdout);
    return kept;
}

bool firstFrame(const char* self, const QString& home) {
    const auto strict = strictness();
    std::vector<double> times;
    // One more, that warms up.
    for (int i = 0; i <= (strict.quick ? 5 : rounds); ++i) {
        QElapsedTimer timer;
        timer.start();
        Child child(self, "--first-frame", home);
        child.awaitEnd();
        if (i > 0) times.push_back(static_cast<double>(timer.nsecsElapsed()) / 1e6);
    }
    return report("first frame after process start, over a full store",
                  strict.quick ? *std::min_element(times.begin(), times.end()) : median(times),
                  "ms", firstFrameLimit, strict.slack);
}

bool memory(const char* self, const QString& home) {
    Child child(self, "--shown", home);
    child.awaitRest();
    return report("memory with the window shown", child.memory(), "MB", memoryLimit, 1);
}

bool idling(const char* self, const QString& home) {
    const int seconds = strictness().quick ? 20 : 60;
    Child child(self, "--closed", home);
    child.awaitRest();
    const int before = child.waits();
    QThread::sleep(static_cast<unsigned long>(seconds));
    const auto what = "wake-ups in " + std::to_string(seconds) + " seconds with the window closed";
    return report(what.c_str(), child.waits() - before, "  ", wakeUps * seconds + strayWakeUps, 1);
}

bool measureAll(const char* self) {
    const QTemporaryDir home;
    fillStore(home.path().toStdString() + "/store");
    bool good = firstFrame(self, home.path());
    good &= memory(self, home.path());
    good &= idling(self, home.path());
    return good;
}

}  // namespace
}  // namespace brindlet::bench

int main(int argc, char** argv) {
    using namespace brindlet::bench;
    // The same on every machine: no screen, no graphics card.
    qputenv("QT_QPA_PLATFORM", "offscreen");
    qputenv("QT_QUICK_BACKEND", "software");
    const std::string way = argc > 1 ? argv[1] : "";
    if (way == "--first-frame") startAndShow(argc, argv, [] { std::_Exit(EXIT_SUCCESS); });
    if (way == "--shown") startAndShow(argc, argv, [] { say("shown"); });
    if (way == "--closed") startAndShow(argc, argv, closeWindow);
    return measureAll(argv[0]) ? EXIT_SUCCESS : EXIT_FAILURE;
}
