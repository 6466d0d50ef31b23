#pragma once

#include <QDBusConnection>
#include <QDBusVirtualObject>
#include <QProcess>
#include <QString>
#include <QTemporaryDir>
#include <QVariant>
#include <map>
#include <utility>

namespace brindlet::testing {

/// A message bus of a test's own, which starts nothing by itself.
class PrivateBus {
  public:
    PrivateBus();
    ~PrivateBus();
    PrivateBus(const PrivateBus&) = delete;
    PrivateBus& operator=(const PrivateBus&) = delete;

    /// Another client each time; not connected where there is no bus.
    QDBusConnection connect();

  private:
    QTemporaryDir folder_;
    QProcess program_;
    QString address_;
    QStringList clients_;
};

/// A desktop's settings portal with the settings that a test gives it. It answers as real ones do:
/// wrapped twice, and with an error for what it does not know.
class FakePortal : public QDBusVirtualObject {
  public:
    using Settings = std::map<std::pair<QString, QString>, QVariant>;

    FakePortal(QDBusConnection bus, Settings settings);

    /// Changes a setting and tells everybody.
    void set(const QString& group, const QString& key, const QVariant& value);
    int questions() const { return questions_; }

    QString introspect(const QString& path) const override;
    bool handleMessage(const QDBusMessage& message, const QDBusConnection& connection) override;

  private:
    QDBusConnection bus_;
    Settings settings_;
    int questions_ = 0;
};

}  // namespace brindlet::testing
