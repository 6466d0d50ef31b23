#include "app/Appearance.h"

#include <QDBusMessage>
#include <QDBusPendingReply>

namespace brindlet {
namespace {

constexpr const char* service = "org.freedesktop.portal.Desktop";
constexpr const char* path = "/org/freedesktop/portal/desktop";
constexpr const char* interface = "org.freedesktop.portal.Settings";

struct Setting {
    const char* group;
    const char* key;

    bool is(const QString& otherGroup, const QString& otherKey) const {
        return otherGroup == QLatin1String(group) && otherKey == QLatin1String(key);
    }
};

constexpr Setting colourScheme{"org.freedesktop.appearance", "color-scheme"};
constexpr Setting reducedMotion{"org.freedesktop.appearance", "reduced-motion"};
/// Where portals older than the setting above keep the same wish.
constexpr Setting animations{"org.gnome.desktop.interface", "enable-animations"};

constexpr uint prefersLight = 2;
constexpr uint prefersStillness = 1;

}  // namespace

Appearance::Appearance() {
    // Without an address the library would start a bus of its own.
    if (!qEnvironmentVariableIsSet("DBUS_SESSION_BUS_ADDRESS")) return;
    auto bus = QDBusConnection::sessionBus();
    ask(bus);
}

Appearance::Appearance(QDBusConnection bus) {
    ask(bus);
}

void Appearance::ask(QDBusConnection& bus) {
    if (!bus.isConnected()) return;
    // The library looks the slot's types up by name, and would not find this one in time.
    qRegisterMetaType<QDBusVariant>();
    bus.connect(service, path, interface, QStringLiteral("SettingChanged"), this,
                SLOT(settingChanged(QString, QString, QDBusVariant)));
    for (const auto& setting : {colourScheme, reducedMotion, animations}) {
        const auto group = QString::fromLatin1(setting.group);
        const auto key = QString::fromLatin1(setting.key);
        auto question =
            QDBusMessage::createMethodCall(service, path, interface, QStringLiteral("Read"));
        question << group << key;
        auto& asked = asked_[group + key];
        asked = std::make_unique<QDBusPendingCallWatcher>(bus.asyncCall(question));
        connect(asked.get(), &QDBusPendingCallWatcher::finished, this,
                [this, group, key](const QDBusPendingCallWatcher* answered) {
                    const QDBusPendingReply<QDBusVariant> reply = *answered;
                    if (!reply.isError()) adopt(group, key, reply.value().variant());
                });
    }
}

void Appearance::settingChanged(const QString& group, const QString& key,
                                const QDBusVariant& value) {
    asked_.erase(group + key);
    adopt(group, key, value.variant());
}

void Appearance::adopt(const QString& group, const QString& key, const QVariant& value) {
    // The portal's older operation wraps its answer twice.
    const auto inner =
        value.canConvert<QDBusVariant>() ? value.value<QDBusVariant>().variant() : value;
    auto wishes = wishes_;
    if (colourScheme.is(group, key)) wishes.dark = inner.toUInt() != prefersLight;
    if (reducedMotion.is(group, key)) wishes.reducedMotion = inner.toUInt() == prefersStillness;
    if (animations.is(group, key)) wishes.animations = inner.toBool();
    if (wishes == wishes_) return;
    wishes_ = wishes;
    Q_EMIT changed();
}

}  // namespace brindlet
