#include <QDateTime>
#include <QGuiApplication>
#include <QQuickWindow>
#include <QTemporaryDir>
#include <cstdio>
#include <cstdlib>
#include <optional>

#include "app/Application.h"
#include "app/MainWindow.h"
#include "app/QtMainQueue.h"
#include "app/demo/DemoWorld.h"
#include "app/demo/Options.h"
#include "app/demo/Tour.h"
#include "base/Files.h"
#include "platform/linux/Memory.h"
#include "sample/SampleMailStore.h"
#include "session/AppState.h"

namespace brindlet::demo {
namespace {

/// False with a sentence on standard error when the mail cannot be made.
bool makeMail(const std::string& home, std::int64_t messages) {
    if (files::exists(home + "/Library")) return true;
    sample::SampleOptions options;
    options.messages = messages;
    options.newest = QDateTime::currentSecsSinceEpoch();
    const auto made = sample::makeMailStore(home, options, {});
    if (!made.problem.empty()) std::fprintf(stderr, "%s\n", made.problem.c_str());
    return made.problem.empty();
}

int runDemo(const Options& options, const std::string& root) {
    DemoWorld world(root);
    if (!makeMail(world.directories.home(), options.messages)) return EXIT_FAILURE;
    prepareToolkit();
    QtMainQueue queue;
    const auto state = AppState::make({world.clock, world.directories, queue, world.defaults,
                                       world.model, world.power, world.desktop, world.locale,
                                       world.processes, world.runningApps, world.scriptHost});
    MainWindow main(*state);
    main.model().setDark(!options.light);
    if (!main.show()) return EXIT_FAILURE;
    if (!options.size.isEmpty()) main.window()->resize(options.size);
    state->refreshInReach();
    int code = EXIT_SUCCESS;
    if (options.tour.empty())
        code = QGuiApplication::exec();
    else if (!Tour(*state, main, world, QString::fromStdString(options.tour)).run())
        code = EXIT_FAILURE;
    if (*state->running) state->stopScan();
    state->drainWrites();
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
    const QGuiApplication application(argc, argv);
    std::optional<QTemporaryDir> passing;
    std::string root = options.keep;
    if (root.empty()) root = passing.emplace().path().toStdString();
    const int code = runDemo(options, root);
    if (passing) passing->remove();
    std::fflush(stdout);
    // What still runs is abandoned, as at every end of the program.
    std::_Exit(code);
}
