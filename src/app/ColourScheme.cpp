#include "app/ColourScheme.h"

#include <QDBusConnection>
#include <QDBusMessage>
#include <QDBusPendingReply>

namespace brindlet {
namespace {

constexpr const char* service = "org.freedesktop.portal.Desktop";
constexpr const char* path = "/org/freedesktop/portal/desktop";
constexpr const char* interface = "org.freedesktop.portal.Settings";
constexpr const char* appearance = "org.freedesktop.appearance";
constexpr const char* colourScheme = "color-scheme";
constexpr uint prefersLight = 2;

}  // namespace

ColourScheme::ColourScheme() {
    // Without an address the library would start a bus of its own.
    if (!qEnvironmentVariableIsSet("DBUS_SESSION_BUS_ADDRESS")) return;
    auto bus = QDBusConnection::sessionBus();
    if (!bus.isConnected()) return;
    bus.connect(service, path, interface, QStringLiteral("SettingChanged"), this,
                SLOT(settingChanged(QString, QString, QDBusVariant)));
    auto question =
        QDBusMessage::createMethodCall(service, path, interface, QStringLiteral("Read"));
    question << QString::fromLatin1(appearance) << QString::fromLatin1(colourScheme);
    asked_ = std::make_unique<QDBusPendingCallWatcher>(bus.asyncCall(question));
    connect(asked_.get(), &QDBusPendingCallWatcher::finished, this, [this] {
        const QDBusPendingReply<QDBusVariant> reply = *asked_;
        if (!reply.isError()) adopt(reply.value().variant());
    });
}

void ColourScheme::settingChanged(const QString& group, const QString& key,
                                  const QDBusVariant& value) {
    if (group == QLatin1String(appearance) && key == QLatin1String(colourScheme))
        adopt(value.variant());
}

void ColourScheme::adopt(const QVariant& scheme) {
    // The portal's older operation wraps its answer twice.
    const auto inner =
        scheme.canConvert<QDBusVariant>() ? scheme.value<QDBusVariant>().variant() : scheme;
    const bool dark = inner.toUInt() != prefersLight;
    if (dark == dark_) return;
    dark_ = dark;
    Q_EMIT changed();
}

}  // namespace brindlet
