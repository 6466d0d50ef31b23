#include "desktop/Desktop.h"

#include <QDBusMessage>
#include <QDeadlineTimer>
#include <QFile>
#include <QStandardPaths>
#include <QThread>

namespace brindlet::desktop {
namespace {

constexpr int patience = 10'000;
const QString sessionName = QStringLiteral("session");
const QString accessibilityName = QStringLiteral("accessibility");

/// Where the distributions keep programs that no person calls.
QString found(const QString& program) {
    const auto path = QStandardPaths::findExecutable(program);
    if (!path.isEmpty()) return path;
    return QStandardPaths::findExecutable(
        program, {QStringLiteral("/usr/libexec"), QStringLiteral("/usr/lib/at-spi2-core"),
                  QStringLiteral("/usr/lib")});
}

const QString displayProgram = QStringLiteral("Xvfb");
const QString busProgram = QStringLiteral("dbus-daemon");
const QString launcherProgram = QStringLiteral("at-spi-bus-launcher");

QStringList words(const char* line) {
    return QString::fromLatin1(line).split(u' ');
}

/// Asks until the launcher has taken its name on the bus.
QString accessibilityAddress(const QDBusConnection& session) {
    const auto question = QDBusMessage::createMethodCall(
        QStringLiteral("org.a11y.Bus"), QStringLiteral("/org/a11y/bus"),
        QStringLiteral("org.a11y.Bus"), QStringLiteral("GetAddress"));
    for (const QDeadlineTimer deadline(patience); !deadline.hasExpired(); QThread::msleep(5)) {
        const auto answer = session.call(question);
        if (answer.type() == QDBusMessage::ReplyMessage)
            return answer.arguments().value(0).toString();
    }
    return {};
}

}  // namespace

QStringList Desktop::missing() {
    QStringList programs{displayProgram, busProgram, launcherProgram};
    programs.removeIf([](const QString& program) { return !found(program).isEmpty(); });
    return programs;
}

Desktop::Desktop()
    : environment_(QProcessEnvironment::systemEnvironment()), accessibility_(QString()) {
    adoptDescendants();
    start();
}

Desktop::~Desktop() {
    QDBusConnection::disconnectFromBus(accessibilityName);
    QDBusConnection::disconnectFromBus(sessionName);
    accessibility_ = QDBusConnection(QString());
    launcher_.reset();
    bus_.reset();
    display_.reset();
    endChildren();
}

void Desktop::start() {
    for (const auto* name : {"HOME", "TMPDIR", "XDG_RUNTIME_DIR", "XDG_CONFIG_HOME",
                             "XDG_CACHE_HOME", "XDG_DATA_HOME", "XDG_STATE_HOME"})
        environment_.insert(QString::fromLatin1(name), folder_.path());
    for (const auto* name : {"AT_SPI_BUS_ADDRESS", "WAYLAND_DISPLAY", "XAUTHORITY",
                             "DBUS_SYSTEM_BUS_ADDRESS", "XDG_CURRENT_DESKTOP", "DESKTOP_SESSION"})
        environment_.remove(QString::fromLatin1(name));

    // Without a reset when its last client leaves: the next client may come during it.
    display_ =
        run(displayProgram, words("-displayfd 1 -screen 0 1280x900x24 -nolisten tcp -noreset"));
    const auto number = display_->line();
    if (number.isEmpty()) {
        problem_ = QStringLiteral("no display: ") + display_->errors();
        return;
    }
    environment_.insert(QStringLiteral("DISPLAY"), QLatin1Char(':') + number);

    bus_ = run(busProgram, {QStringLiteral("--nofork"), QStringLiteral("--print-address=1"),
                            QStringLiteral("--config-file=") + writeBusConfiguration()});
    const auto address = bus_->line();
    environment_.insert(QStringLiteral("DBUS_SESSION_BUS_ADDRESS"), address);
    const auto session = QDBusConnection::connectToBus(address, sessionName);
    if (!session.isConnected()) {
        problem_ = QStringLiteral("no session bus: ") + bus_->errors();
        return;
    }

    launcher_ = run(launcherProgram, {QStringLiteral("--launch-immediately")});
    accessibility_ =
        QDBusConnection::connectToBus(accessibilityAddress(session), accessibilityName);
    if (!accessibility_.isConnected())
        problem_ = QStringLiteral("no accessibility bus: ") + launcher_->errors();
}

std::unique_ptr<Child> Desktop::run(const QString& program, const QStringList& arguments) const {
    return std::make_unique<Child>(found(program), arguments, environment_,
                                   folder_.filePath(program + QStringLiteral(".log")));
}

/// A bus that starts nothing by itself: the machine's own services stay out.
QString Desktop::writeBusConfiguration() const {
    QFile file(folder_.filePath(QStringLiteral("bus.conf")));
    if (file.open(QIODevice::WriteOnly))
        file.write(QStringLiteral(R"(<!DOCTYPE busconfig PUBLIC
 "-//freedesktop//DTD D-Bus Bus Configuration 1.0//EN"
 "http://www.freedesktop.org/standards/dbus/1.0/busconfig.dtd">
<busconfig>
  <type>session</type>
  <listen>unix:dir=%1</listen>
  <auth>EXTERNAL</auth>
  <policy context="default">
    <allow send_destination="*" eavesdrop="true"/>
    <allow eavesdrop="true"/>
    <allow own="*"/>
  </policy>
</busconfig>
)")
                       .arg(folder_.path())
                       .toUtf8());
    return file.fileName();
}

}  // namespace brindlet::desktop
