#include <QApplication>
#include <QDateTime>
#include <QQuickWindow>
#include <QTemporaryDir>
#include <cstdio>
#include <cstdlib>
#include <optional>

#include "app/Application.h"
#include "app/QtMainQueue.h"
#include "app/Shell.h"
#include "app/SingleInstance.h"
#include "app/demo/DemoWorld.h"
#include "app/demo/Options.h"
#include "app/demo/Tour.h"
#include "base/Files.h"
#include "platform/linux/Memory.h"
#include "platform/linux/NoUpdates.h"
#include "sample/GmailServer.h"
#include "sample/MailPresence.h"
#include "sample/MailSettings.h"
#include "sample/SampleMailStore.h"
#include "session/AppState.h"

namespace brindlet::demo {
namespace {

/// How much of the time that the simulated mail program says it takes really passes: a move of some
/// hundred messages is to be seen, and to be stopped.
constexpr double pace = 0.03;

/// A finished sentence when the mail cannot be made; mail that is there is used as it is.
std::string makeMail(const std::string& home, std::int64_t messages) {
    if (files::exists(home + "/Library")) return {};
    sample::SampleOptions options;
    options.messages = messages;
    options.newest = QDateTime::currentSecsSinceEpoch();
    auto problem = sample::makeMailStore(home, options, {}).problem;
    if (!problem.empty()) return problem;
    auto settings = sample::readMailSettings(home).value_or(sample::MailSettings());
    settings.behaviour.pace = pace;
    return sample::writeMailSettings(home, settings)
               ? ""
               : "The mail program's settings could not be written.";
}

int fail(const std::string& sentence) {
    std::fprintf(stderr, "%s\n", sentence.c_str());
    return EXIT_FAILURE;
}

int runDemo(const Options& options, DemoWorld& world, SingleInstance& instance) {
    if (!files::exists(world.scriptHost))
        return fail("The stand-in for the script host is missing: " + world.scriptHost +
                    ". Build osascript; it belongs beside this program.");
    const std::string problem = makeMail(world.directories.home(), options.messages);
    if (!problem.empty()) return fail(problem);
    // As a person has it open.
    sample::launchMail(world.directories.home());
    const auto gmail = sample::GmailServer::start({world.directories.home()});
    if (!gmail.server) return fail(gmail.problem);
    LocalGmail tls(gmail.server->port(), gmail.server->authority());
    tellAppPasswords(world.directories.home());
    prepareToolkit();
    // The desktop knows the demo by an entry of its own.
    QGuiApplication::setDesktopFileName(QStringLiteral("brindlet-demo"));
    QtMainQueue queue;
    const auto state =
        AppState::make({world.clock, world.directories, queue, world.defaults, world.model,
                        world.power, world.desktop, world.locale, world.processes,
                        world.runningApps, world.keys, tls, world.scriptHost});
    NoUpdates updates;
    Shell shell(*state, updates, instance);
    shell.main().model().setDark(!options.light);
    if (!shell.start({world.clock, world.directories, world.diagnostics})) return EXIT_FAILURE;
    if (!options.size.isEmpty()) shell.main().window()->resize(options.size);
    int code = EXIT_SUCCESS;
    if (options.tour.empty())
        code = QCoreApplication::exec();
    else if (!Tour(*state, shell.main(), world, QString::fromStdString(options.tour)).run())
        code = EXIT_FAILURE;
    if (*state->running) state->stopScan();
    state->drainWrites();
    instance.end();
    queue.end();
    return code;
}

}  // namespace
}  // namespace brindlet::demo

int main(int argc, char** argv) {
    using namespace brindlet::demo;
    brindlet::shareHeaps();
    const auto options = parseOptions(argc, argv);
    if (options.help || !options.problem.empty()) {
        if (!options.problem.empty())
            std::fprintf(stderr, "What is %s?\n\n", options.problem.c_str());
        std::fputs(usage, options.help ? stdout : stderr);
        return options.help ? EXIT_SUCCESS : EXIT_FAILURE;
    }
    std::optional<QTemporaryDir> passing;
    std::string root = options.keep;
    if (root.empty()) root = passing.emplace().path().toStdString();
    DemoWorld world(root, options.modelServer, options.modelServerName);
    world.power.setOnBattery(options.onBattery);
    brindlet::SingleInstance instance(world.directories);
    if (const auto code = brindlet::giveWay(instance)) return *code;
    const QApplication application(argc, argv);
    const int code = runDemo(options, world, instance);
    if (passing) passing->remove();
    std::fflush(stdout);
    // What still runs is abandoned, as at every end of the program.
    std::_Exit(code);
}
