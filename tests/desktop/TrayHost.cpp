#include "desktop/TrayHost.h"

#include <gtest/gtest.h>

#include <QDBusArgument>
#include <QDBusMessage>
#include <QDBusObjectPath>
#include <QDBusVariant>
#include <QDeadlineTimer>
#include <QMutexLocker>
#include <QObject>
#include <QRegularExpression>
#include <algorithm>

namespace brindlet::desktop {
namespace {

constexpr int patience = 15'000;
constexpr unsigned long pause = 10;

const QString connectionName = QStringLiteral("tray host");
const QString listName = QStringLiteral("org.kde.StatusNotifierWatcher");
const QString itemName = QStringLiteral("org.kde.StatusNotifierItem");
const QString menuName = QStringLiteral("com.canonical.dbusmenu");

/// A line, its properties and the lines below it, which only the root has.
std::vector<TrayLine> readLines(const QDBusArgument& layout) {
    std::vector<TrayLine> lines;
    int root = 0;
    QVariantMap rootProperties;
    layout.beginStructure();
    layout >> root >> rootProperties;
    layout.beginArray();
    while (!layout.atEnd()) {
        QDBusVariant child;
        layout >> child;
        const auto line = child.variant().value<QDBusArgument>();
        TrayLine read;
        QVariantMap properties;
        line.beginStructure();
        line >> read.id >> properties;
        line.endStructure();
        if (properties.value(QStringLiteral("type")) != QStringLiteral("separator"))
            read.text = properties.value(QStringLiteral("label")).toString();
        read.enabled = properties.value(QStringLiteral("enabled"), true).toBool();
        if (properties.value(QStringLiteral("visible"), true).toBool()) lines.push_back(read);
    }
    layout.endArray();
    layout.endStructure();
    return lines;
}

}  // namespace

/// What programs enter themselves in.
class TrayHost::List : public QObject, protected QDBusContext {
    Q_OBJECT
    Q_CLASSINFO("D-Bus Interface", "org.kde.StatusNotifierWatcher")
    Q_PROPERTY(bool IsStatusNotifierHostRegistered READ isRegistered)
    Q_PROPERTY(QStringList RegisteredStatusNotifierItems READ items)
    Q_PROPERTY(int ProtocolVersion READ version)

  public:
    bool isRegistered() const { return true; }
    int version() const { return 0; }
    QStringList items() const {
        const QMutexLocker lock(&mutex_);
        return items_;
    }

  public Q_SLOTS:
    void RegisterStatusNotifierItem(const QString&) {
        const QMutexLocker lock(&mutex_);
        items_ << message().service();
    }

  private:
    mutable QMutex mutex_;
    QStringList items_;
};

TrayHost::TrayHost(const QString& busAddress)
    : bus_(QDBusConnection::connectToBus(busAddress, connectionName)),
      list_(std::make_unique<List>()) {
    list_->moveToThread(&thread_);
    thread_.start();
    EXPECT_TRUE(bus_.registerObject(
        QStringLiteral("/StatusNotifierWatcher"), list_.get(),
        QDBusConnection::ExportAllProperties | QDBusConnection::ExportAllSlots));
    EXPECT_TRUE(bus_.registerService(listName));
}

TrayHost::~TrayHost() {
    QDBusConnection::disconnectFromBus(connectionName);
    thread_.quit();
    thread_.wait();
}

QDBusMessage TrayHost::call(const QString& path, const QString& interface, const QString& member,
                            const QVariantList& arguments) const {
    auto message = QDBusMessage::createMethodCall(item(), path, interface, member);
    message.setArguments(arguments);
    return bus_.call(message);
}

QString TrayHost::item() const {
    for (const QDeadlineTimer deadline(patience); !deadline.hasExpired(); QThread::msleep(pause))
        if (const auto items = list_->items(); !items.isEmpty()) return items.last();
    ADD_FAILURE() << "no program came into the tray";
    return {};
}

QVariant TrayHost::property(const QString& name) const {
    const auto answer = call(QStringLiteral("/StatusNotifierItem"),
                             QStringLiteral("org.freedesktop.DBus.Properties"),
                             QStringLiteral("Get"), {itemName, name});
    return answer.arguments().value(0).value<QDBusVariant>().variant();
}

/// A picture comes as width, height and bytes.
QByteArray TrayHost::symbol() const {
    const auto pictures = property(QStringLiteral("IconPixmap")).value<QDBusArgument>();
    QByteArray all;
    pictures.beginArray();
    while (!pictures.atEnd()) {
        int width = 0;
        int height = 0;
        QByteArray bytes;
        pictures.beginStructure();
        pictures >> width >> height >> bytes;
        pictures.endStructure();
        all += bytes;
    }
    pictures.endArray();
    return all;
}

std::vector<TrayLine> TrayHost::menu() const {
    const auto path = property(QStringLiteral("Menu")).value<QDBusObjectPath>().path();
    const auto answer = call(path, menuName, QStringLiteral("GetLayout"), {0, -1, QStringList()});
    EXPECT_EQ(answer.errorMessage().toStdString(), "");
    if (answer.type() != QDBusMessage::ReplyMessage) return {};
    return readLines(answer.arguments().value(1).value<QDBusArgument>());
}

std::string TrayHost::text() const {
    QStringList texts;
    for (const auto& line : menu())
        texts << (line.text.isEmpty() ? QStringLiteral("---") : line.text);
    return texts.join(QLatin1Char('\n')).toStdString();
}

void TrayHost::await(const char* what, const std::function<bool(const QString&)>& condition) const {
    if (testing::Test::HasFailure()) return;
    for (const QDeadlineTimer deadline(patience);; QThread::msleep(pause)) {
        const auto now = text();
        if (condition(QString::fromStdString(now))) return;
        if (!deadline.hasExpired()) continue;
        ADD_FAILURE() << what << " did not come; there is\n" << now;
        return;
    }
}

void TrayHost::awaitText(const std::string& wanted) const {
    await(wanted.c_str(),
          [&](const QString& now) { return now == QString::fromStdString(wanted); });
}

void TrayHost::choose(const QString& words) const {
    if (testing::Test::HasFailure()) return;
    const auto lines = menu();
    const auto line = std::ranges::find(lines, words, &TrayLine::text);
    ASSERT_NE(line, lines.end()) << words.toStdString() << " is not among\n" << text();
    EXPECT_TRUE(line->enabled);
    const auto path = property(QStringLiteral("Menu")).value<QDBusObjectPath>().path();
    call(path, menuName, QStringLiteral("Event"),
         {line->id, QStringLiteral("clicked"), QVariant::fromValue(QDBusVariant(QString())), 0U});
}

void TrayHost::activate() const {
    call(QStringLiteral("/StatusNotifierItem"), itemName, QStringLiteral("Activate"), {0, 0});
}

}  // namespace brindlet::desktop

#include "TrayHost.moc"
