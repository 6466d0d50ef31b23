#pragma once

#include <QDBusConnection>
#include <QDBusPendingCallWatcher>
#include <QDBusVariant>
#include <QObject>
#include <map>
#include <memory>

namespace brindlet {

/// How the desktop wants its windows, as its settings portal tells: dark or light, and whether
/// anything may move in them. Dark, our first look, and in motion where it has no wish or there is
/// no portal. Main thread.
class Appearance : public QObject {
    Q_OBJECT

  public:
    /// Asks the portal of the person's session; the answers come later, by the signal.
    Appearance();
    /// Asks the portal on that bus.
    explicit Appearance(QDBusConnection bus);

    bool dark() const { return wishes_.dark; }
    /// Whether nothing is to move.
    bool still() const { return wishes_.reducedMotion || !wishes_.animations; }

  Q_SIGNALS:
    void changed();

  private Q_SLOTS:
    void settingChanged(const QString& group, const QString& key, const QDBusVariant& value);

  private:
    struct Wishes {
        bool dark = true;
        bool reducedMotion = false;
        bool animations = true;

        friend bool operator==(const Wishes&, const Wishes&) = default;
    };

    void ask(QDBusConnection& bus);
    void adopt(const QString& group, const QString& key, const QVariant& value);

    Wishes wishes_;
    /// Questions by what they ask for, as long as nothing newer than their answer has come.
    std::map<QString, std::unique_ptr<QDBusPendingCallWatcher>> asked_;
};

}  // namespace brindlet
