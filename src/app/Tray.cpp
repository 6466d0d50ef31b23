#include "app/Tray.h"

#include <QDBusConnection>
#include <QDBusMessage>
#include <QDBusPendingCallWatcher>
#include <QDBusPendingReply>
#include <QDBusVariant>

#include "app/TrayIcon.h"
#include "screens/QtText.h"
#include "session/AppState.h"

namespace brindlet {
namespace {

// The desktop's list of such items, by its name and its place on the bus.
constexpr const char* service = "org.kde.StatusNotifierWatcher";
constexpr const char* path = "/StatusNotifierWatcher";

}  // namespace

// The toolkit asks once in a process's life whether there is a host, and waits for the answer. So
// its icon is made only when there is one, and nobody waits at the start.
Tray::Tray(AppState& state) : state_(state), coalescer_(state, [this] { refresh(); }) {
    // Without an address the library would start a bus of its own.
    if (!qEnvironmentVariableIsSet("DBUS_SESSION_BUS_ADDRESS")) return;
    auto bus = QDBusConnection::sessionBus();
    if (!bus.isConnected()) return;
    watcher_.setConnection(bus);
    watcher_.setWatchMode(QDBusServiceWatcher::WatchForRegistration);
    watcher_.addWatchedService(QString::fromLatin1(service));
    connect(&watcher_, &QDBusServiceWatcher::serviceRegistered, this, &Tray::lookForHost);
    bus.connect(service, path, service, QStringLiteral("StatusNotifierHostRegistered"), this,
                SLOT(lookForHost()));
    lookForHost();
}

void Tray::lookForHost() {
    if (icon_) return;
    auto question = QDBusMessage::createMethodCall(
        service, path, QStringLiteral("org.freedesktop.DBus.Properties"), QStringLiteral("Get"));
    question << QString::fromLatin1(service) << QStringLiteral("IsStatusNotifierHostRegistered");
    question.setAutoStartService(false);
    auto* asked = new QDBusPendingCallWatcher(watcher_.connection().asyncCall(question), this);
    connect(asked, &QDBusPendingCallWatcher::finished, this, [this, asked] {
        const QDBusPendingReply<QDBusVariant> reply = *asked;
        asked->deleteLater();
        if (!reply.isError() && reply.value().variant().toBool()) appear();
    });
}

void Tray::appear() {
    if (icon_) return;
    menu_ = std::make_unique<TrayMenu>([this](MenuLine::Command command) { obey(command); });
    icon_ = std::make_unique<QSystemTrayIcon>();
    refresh();
    // What it says of the time may have grown stale.
    connect(&menu_->menu(), &QMenu::aboutToShow, this, &Tray::refresh);
    connect(icon_.get(), &QSystemTrayIcon::activated, this,
            [this](QSystemTrayIcon::ActivationReason reason) {
                if (reason == QSystemTrayIcon::Trigger) Q_EMIT openAsked();
            });
    icon_->setContextMenu(&menu_->menu());
    icon_->show();
}

void Tray::obey(MenuLine::Command command) {
    switch (command) {
        case MenuLine::Command::stop:
            state_.stopScan();
            break;
        case MenuLine::Command::open:
            Q_EMIT openAsked();
            break;
        case MenuLine::Command::quit:
            Q_EMIT quitAsked();
            break;
    }
}

void Tray::refresh() {
    if (!icon_) return;
    const auto words = menuWords(state_);
    menu_->show(words.lines);
    if (words.symbol == symbol_) return;
    symbol_ = words.symbol;
    icon_->setIcon(trayIcon(screens::qtText(symbol_)));
    icon_->setToolTip(screens::qtText(words.title));
}

}  // namespace brindlet
