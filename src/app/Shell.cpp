#include "app/Shell.h"

#include <QGuiApplication>

#include "app/SingleInstance.h"
#include "app/WatchedLoop.h"
#include "session/AppState.h"

namespace brindlet {

Shell::Shell(AppState& state, Updates& updates, SingleInstance& instance)
    : state_(state), instance_(instance), updater_(updates), main_(state, updater_), tray_(state) {
    // The schedule needs the process, not the window.
    QGuiApplication::setQuitOnLastWindowClosed(false);
    // Not by closing the window first, which would end what ends with a look at its screen.
    const auto quit = [] { QCoreApplication::exit(); };
    connect(&main_, &MainWindow::quitAsked, this, quit);
    connect(&tray_, &Tray::quitAsked, this, quit);
    connect(&tray_, &Tray::openAsked, this, [this] { main_.show(); });
    connect(&instance_, &SingleInstance::raiseAsked, this, &Shell::raise);
}

Shell::~Shell() = default;

bool Shell::start(const Watchdog::Seams& watch) {
    state_.mail().touchMailData();
    if (!main_.show()) return false;
    instance_.listen();
    state_.startTimer();
    watched_ = std::make_unique<WatchedLoop>(watch);
    state_.refreshInReach();
    return true;
}

void Shell::raise(const QByteArray& activationToken) {
    // The toolkit takes it from nowhere else.
    if (!activationToken.isEmpty() && QGuiApplication::platformName() == QLatin1String("wayland"))
        qputenv("XDG_ACTIVATION_TOKEN", activationToken);
    main_.show();
}

}  // namespace brindlet
