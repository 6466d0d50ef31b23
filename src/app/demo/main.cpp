#include <QApplication>
#include <QQuickWindow>
#include <QTemporaryDir>
#include <cstdio>
#include <cstdlib>
#include <optional>

#include "app/Appearance.h"
#include "app/Application.h"
#include "app/QtMainQueue.h"
#include "app/Shell.h"
#include "app/SingleInstance.h"
#include "app/demo/DemoMail.h"
#include "app/demo/DemoPast.h"
#include "app/demo/DemoWorld.h"
#include "app/demo/Options.h"
#include "app/demo/PassingNotice.h"
#include "app/demo/Tour.h"
#include "app/demo/TourGuide.h"
#include "base/Files.h"
#include "platform/linux/Memory.h"
#include "platform/linux/NoUpdates.h"
#include "sample/GmailServer.h"
#include "sample/MailPresence.h"
#include "session/AppState.h"

namespace brindlet::demo {
namespace {

int fail(const std::string& sentence) {
    std::fprintf(stderr, "%s\n", sentence.c_str());
    return EXIT_FAILURE;
}

void tellPower(const DemoPower& power) {
    std::printf("To pull the plug:    echo battery > %s\n", power.file().c_str());
    std::printf("To plug in again:    echo plugged in > %s\n", power.file().c_str());
    std::fflush(stdout);
}

int runDemo(const Options& options, DemoWorld& world, SingleInstance& instance) {
    if (!files::exists(world.scriptHost))
        return fail("The stand-in for the script host is missing: " + world.scriptHost +
                    ". Build osascript; it belongs beside this program.");
    const std::string home = world.directories.home();
    const auto mail =
        options.withoutAccounts ? makeEmptyMail(home) : makeDemoMail(home, options.messages);
    if (!mail.problem.empty()) return fail(mail.problem);
    // As a person has it open.
    sample::launchMail(home);
    const auto gmail = sample::GmailServer::start({home});
    if (!gmail.server) return fail(gmail.problem);
    LocalGmail tls(gmail.server->port(), gmail.server->authority());
    tellAppPasswords(home);
    tellPower(world.power);
    prepareToolkit();
    // The desktop knows the demo by an entry of its own.
    QGuiApplication::setDesktopFileName(QStringLiteral("brindlet-demo"));
    QtMainQueue queue;
    const Services services{world.clock,     world.directories, queue,         world.defaults,
                            world.model,     world.power,       world.desktop, world.locale,
                            world.processes, world.runningApps, world.keys,    tls,
                            world.scriptHost};
    if (mail.isNew && !options.firstTime && !options.withoutAccounts)
        givePast(services, mail.facts);
    const auto state = AppState::make(services);
    NoUpdates updates;
    // As the desktop wishes, but where the look is asked for; pictures are taken of what stands
    // still.
    std::optional<Appearance> appearance;
    Shell shell(*state, updates, instance);
    if (options.visit || options.light) {
        shell.main().model().setDark(!options.light);
        shell.main().model().setStill(options.visit.has_value());
    } else {
        shell.main().follow(appearance.emplace());
    }
    if (!shell.start({world.clock, world.directories, world.diagnostics})) return EXIT_FAILURE;
    PassingNotice notice(shell.main());
    world.desktop.setListener(
        [&](const std::string& sentence) { notice.show(QString::fromStdString(sentence)); });
    if (!options.size.isEmpty()) shell.main().window()->resize(options.size);
    int code = EXIT_SUCCESS;
    if (!options.visit)
        code = QCoreApplication::exec();
    else if (!Tour(*state, shell.main(), world, notice, QString::fromStdString(options.tour))
                  .run(*options.visit))
        code = EXIT_FAILURE;
    world.desktop.setListener({});
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
    if (!options.tour.empty() && !options.visit) {
        const QCoreApplication application(argc, argv);
        return playTour(options) ? EXIT_SUCCESS : EXIT_FAILURE;
    }
    std::optional<QTemporaryDir> passing;
    std::string root = options.keep;
    if (root.empty()) root = passing.emplace().path().toStdString();
    DemoWorld world(root, options.world);
    brindlet::SingleInstance instance(world.directories);
    if (const auto code = brindlet::giveWay(instance)) return *code;
    const QApplication application(argc, argv);
    const int code = runDemo(options, world, instance);
    if (passing) passing->remove();
    std::fflush(stdout);
    // What still runs is abandoned, as at every end of the program.
    std::_Exit(code);
}
