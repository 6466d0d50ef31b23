#include "screens/FakePortal.h"

#include <signal.h>
#include <sys/prctl.h>

#include <QDBusMessage>
#include <QDBusVariant>
#include <QFile>

namespace brindlet::testing {
namespace {

constexpr const char* service = "org.freedesktop.portal.Desktop";
constexpr const char* path = "/org/freedesktop/portal/desktop";
constexpr const char* interface = "org.freedesktop.portal.Settings";

constexpr const char* configuration = R"(<!DOCTYPE busconfig PUBLIC
 "-//freedesktop//DTD D-Bus Bus Configuration 1.0//EN"
 "http://www.freedesktop.org/standards/dbus/1.0/busconfig.dtd">
<busconfig>
  <type>session</type>
  <listen>unix:dir=%1</listen>
  <auth>EXTERNAL</auth>
  <policy context="default">
    <allow send_destination="*"/>
    <allow receive_sender="*"/>
    <allow own="*"/>
  </policy>
</busconfig>
)";

}  // namespace

PrivateBus::PrivateBus() {
    QFile file(folder_.filePath(QStringLiteral("bus.conf")));
    if (!file.open(QIODevice::WriteOnly)) return;
    file.write(QString::fromLatin1(configuration).arg(folder_.path()).toUtf8());
    file.close();
    // It must not outlive a test that crashes.
    program_.setChildProcessModifier([] { ::prctl(PR_SET_PDEATHSIG, SIGKILL); });
    program_.start(QStringLiteral("dbus-daemon"),
                   {QStringLiteral("--nofork"), QStringLiteral("--print-address=1"),
                    QStringLiteral("--config-file=") + file.fileName()});
    while (!program_.canReadLine() && program_.waitForReadyRead()) {
    }
    address_ = QString::fromUtf8(program_.readLine()).trimmed();
}

PrivateBus::~PrivateBus() {
    for (const auto& client : clients_) QDBusConnection::disconnectFromBus(client);
    program_.kill();
    program_.waitForFinished();
}

QDBusConnection PrivateBus::connect() {
    clients_ << QStringLiteral("client %1 of %2").arg(clients_.size()).arg(address_);
    return QDBusConnection::connectToBus(address_, clients_.back());
}

FakePortal::FakePortal(QDBusConnection bus, Settings settings)
    : bus_(std::move(bus)), settings_(std::move(settings)) {
    bus_.registerVirtualObject(QString::fromLatin1(path), this);
    bus_.registerService(QString::fromLatin1(service));
}

void FakePortal::set(const QString& group, const QString& key, const QVariant& value) {
    settings_[{group, key}] = value;
    auto signal =
        QDBusMessage::createSignal(QString::fromLatin1(path), QString::fromLatin1(interface),
                                   QStringLiteral("SettingChanged"));
    signal << group << key << QVariant::fromValue(QDBusVariant(value));
    bus_.send(signal);
}

QString FakePortal::introspect(const QString&) const {
    return {};
}

bool FakePortal::handleMessage(const QDBusMessage& message, const QDBusConnection& connection) {
    if (message.interface() != QLatin1String(interface) ||
        message.member() != QLatin1String("Read"))
        return false;
    ++questions_;
    const auto found = settings_.find(
        {message.arguments().value(0).toString(), message.arguments().value(1).toString()});
    if (found == settings_.end())
        return connection.send(
            message.createErrorReply(QStringLiteral("org.freedesktop.portal.Error.NotFound"),
                                     QStringLiteral("Requested setting not found")));
    const auto inner = QVariant::fromValue(QDBusVariant(found->second));
    return connection.send(message.createReply(QVariant::fromValue(QDBusVariant(inner))));
}

}  // namespace brindlet::testing
