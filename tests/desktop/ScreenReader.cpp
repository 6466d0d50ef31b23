#include "desktop/ScreenReader.h"

#include <gtest/gtest.h>

#include <QDBusArgument>
#include <QDBusMessage>
#include <QDBusObjectPath>
#include <QDBusPendingCall>
#include <QDBusPendingReply>
#include <QDBusVariant>
#include <QDeadlineTimer>
#include <QThread>
#include <algorithm>
#include <utility>

namespace brindlet::desktop {
namespace {

constexpr int patience = 15'000;
constexpr unsigned long pause = 10;

const QString root = QStringLiteral("/org/a11y/atspi/accessible/root");
const QString registry = QStringLiteral("org.a11y.atspi.Registry");
const QString accessible = QStringLiteral("org.a11y.atspi.Accessible");
const QString action = QStringLiteral("org.a11y.atspi.Action");
const QString properties = QStringLiteral("org.freedesktop.DBus.Properties");

QDBusMessage question(const QString& service, const QString& path, const QString& interface,
                      const QString& member, const QVariantList& arguments = {}) {
    auto message = QDBusMessage::createMethodCall(service, path, interface, member);
    message.setArguments(arguments);
    return message;
}

/// A list of objects, each given as the name of its program on the bus and its path.
QList<std::pair<QString, QString>> references(const QDBusMessage& answer) {
    QList<std::pair<QString, QString>> list;
    if (answer.type() != QDBusMessage::ReplyMessage) return list;
    const auto array = answer.arguments().value(0).value<QDBusArgument>();
    for (array.beginArray(); !array.atEnd();) {
        QString program;
        QDBusObjectPath path;
        array.beginStructure();
        array >> program >> path;
        array.endStructure();
        list << std::pair(program, path.path());
    }
    array.endArray();
    return list;
}

/// States come as two numbers of 32 bits.
quint64 states(const QDBusMessage& answer) {
    const QDBusPendingReply<QList<uint>> reply{QDBusPendingCall::fromCompletedCall(answer)};
    const auto words = reply.value();
    return words.value(0) | quint64{words.value(1)} << 32;
}

/// An action comes as name, description and key.
QStringList actionNames(const QDBusMessage& answer) {
    QStringList names;
    if (answer.type() != QDBusMessage::ReplyMessage) return names;
    const auto array = answer.arguments().value(0).value<QDBusArgument>();
    for (array.beginArray(); !array.atEnd();) {
        QString name;
        QString description;
        QString key;
        array.beginStructure();
        array >> name >> description >> key;
        array.endStructure();
        names << name;
    }
    array.endArray();
    return names;
}

QString text(const QDBusMessage& answer) {
    const auto value = answer.arguments().value(0);
    return value.canConvert<QDBusVariant>() ? value.value<QDBusVariant>().variant().toString()
                                            : value.toString();
}

/// Waits for all answers; a thing that has gone meanwhile gets no states.
void take(ScreenReader::Questions& questions, Thing& thing) {
    for (auto& question : questions) question.waitForFinished();
    thing.role = text(questions[0].reply());
    thing.name = text(questions[1].reply());
    thing.description = text(questions[2].reply());
    thing.states = states(questions[3].reply());
    thing.actions = actionNames(questions[4].reply());
    for (const auto& [program, path] : references(questions[5].reply())) {
        thing.children.emplace_back();
        thing.children.back().path = path;
    }
}

void dropHidden(Thing& thing) {
    std::erase_if(thing.children, [](const Thing& child) { return !child.is(Thing::showing); });
    for (auto& child : thing.children) dropHidden(child);
}

}  // namespace

QString Thing::printed(int depth) const {
    static const std::pair<State, const char*> words[] = {
        {checkable, "checkable"}, {checked, "checked"},   {indeterminate, "indeterminate"},
        {selected, "selected"},   {editable, "editable"}, {modal, "modal"},
        {focusable, "focusable"}, {focused, "focused"}};
    QStringList told;
    if (!is(enabled)) told << QStringLiteral("disabled");
    for (const auto& [state, word] : words)
        if (is(state)) told << QString::fromLatin1(word);
    auto line = QStringLiteral("%1%2 \"%3\"").arg(QString(2 * depth, QLatin1Char(' ')), role, name);
    if (!description.isEmpty()) line += QStringLiteral(" (%1)").arg(description);
    line += QStringLiteral(" [%1] {%2}\n")
                .arg(told.join(QLatin1Char(' ')), actions.join(QLatin1Char(' ')));
    for (const auto& child : children) line += child.printed(depth + 1);
    return line;
}

std::vector<const Thing*> Thing::all() const {
    std::vector<const Thing*> things{this};
    for (const auto& child : children) {
        const auto below = child.all();
        things.insert(things.end(), below.begin(), below.end());
    }
    return things;
}

ScreenReader::ScreenReader(const QDBusConnection& bus, qint64 pid) : bus_(bus) {
    for (const QDeadlineTimer deadline(patience); bus.isConnected() && !deadline.hasExpired();
         QThread::msleep(pause)) {
        const auto programs = references(
            bus_.call(question(registry, root, accessible, QStringLiteral("GetChildren"))));
        for (const auto& [program, path] : programs) {
            const auto answer = bus_.call(question(
                QStringLiteral("org.freedesktop.DBus"), QStringLiteral("/org/freedesktop/DBus"),
                QStringLiteral("org.freedesktop.DBus"),
                QStringLiteral("GetConnectionUnixProcessID"), {program}));
            if (answer.arguments().value(0).toLongLong() != pid) continue;
            application_ = program;
            return;
        }
    }
    ADD_FAILURE() << "no program with the id " << pid << " came to the accessibility bus";
}

Thing ScreenReader::everything() const {
    // Level by level, with all questions of a level at once: each answer alone would be waited for.
    Thing whole;
    whole.path = root;
    for (std::vector<Thing*> level{&whole}; !level.empty();) {
        std::vector<Questions> questions;
        for (const auto* thing : level) questions.push_back(ask(thing->path));
        std::vector<Thing*> below;
        for (std::size_t i = 0; i < level.size(); ++i) {
            auto& thing = *level[i];
            take(questions[i], thing);
            if (!thing.is(Thing::showing)) thing.children.clear();
            for (auto& child : thing.children) below.push_back(&child);
        }
        level = std::move(below);
    }
    dropHidden(whole);
    return whole;
}

ScreenReader::Questions ScreenReader::ask(const QString& path) const {
    const auto call = [&](const QString& interface, const QString& member,
                          const QVariantList& arguments = {}) {
        return bus_.asyncCall(question(application_, path, interface, member, arguments));
    };
    const auto get = QStringLiteral("Get");
    return {call(accessible, QStringLiteral("GetRoleName")),
            call(properties, get, {accessible, QStringLiteral("Name")}),
            call(properties, get, {accessible, QStringLiteral("Description")}),
            call(accessible, QStringLiteral("GetState")),
            call(action, QStringLiteral("GetActions")),
            call(accessible, QStringLiteral("GetChildren"))};
}

Thing ScreenReader::awaitAny(const QString& what, const Condition& condition) const {
    if (testing::Test::HasFailure()) return {};
    for (const QDeadlineTimer deadline(patience);; QThread::msleep(pause)) {
        const auto whole = everything();
        for (const auto* thing : whole.all())
            if (condition(*thing)) return *thing;
        if (!deadline.hasExpired()) continue;
        ADD_FAILURE() << what.toStdString() << " did not come; there is\n"
                      << whole.printed().toStdString();
        return {};
    }
}

Thing ScreenReader::await(const QString& role, const QString& name,
                          const Condition& condition) const {
    return awaitAny(
        QStringLiteral("%1 \"%2\"%3")
            .arg(role, name, condition ? QStringLiteral(" as it should be") : QString()),
        [&](const Thing& thing) {
            return thing.role == role && thing.name == name && (!condition || condition(thing));
        });
}

void ScreenReader::awaitNone(const QString& role, const QString& name) const {
    awaitAny(QStringLiteral("the end of %1 \"%2\"").arg(role, name), [&](const Thing& whole) {
        return whole.path == root && std::ranges::none_of(whole.all(), [&](const Thing* thing) {
                   return thing->role == role && (name.isEmpty() || thing->name == name);
               });
    });
}

void ScreenReader::press(const QString& role, const QString& name) const {
    press(await(role, name));
}

void ScreenReader::press(const Thing& thing) const {
    if (testing::Test::HasFailure()) return;
    const auto number = thing.actions.indexOf(QStringLiteral("Press"));
    ASSERT_GE(number, 0) << thing.printed().toStdString() << "cannot be pressed";
    const auto answer = bus_.call(question(application_, thing.path, action,
                                           QStringLiteral("DoAction"), {static_cast<int>(number)}));
    EXPECT_TRUE(answer.arguments().value(0).toBool()) << thing.printed().toStdString();
}

void ScreenReader::movePointer(int x, int y) const {
    if (testing::Test::HasFailure()) return;
    tellController(QStringLiteral("GenerateMouseEvent"), {x, y, QStringLiteral("abs")});
}

void ScreenReader::strike(int key) const {
    constexpr uint bySymbol = 3;
    strike(key, bySymbol);
}

void ScreenReader::strikeWithControl(int key) const {
    constexpr uint lock = 5;
    constexpr uint unlock = 6;
    constexpr int control = 4;
    strike(control, lock);
    strike(key);
    strike(control, unlock);
}

void ScreenReader::strike(int number, uint kind) const {
    if (testing::Test::HasFailure()) return;
    tellController(QStringLiteral("GenerateKeyboardEvent"), {number, QString(), kind});
}

/// What the mouse and the keyboard are worked by.
void ScreenReader::tellController(const QString& member, const QVariantList& arguments) const {
    const auto answer = bus_.call(
        question(registry, QStringLiteral("/org/a11y/atspi/registry/deviceeventcontroller"),
                 QStringLiteral("org.a11y.atspi.DeviceEventController"), member, arguments));
    EXPECT_EQ(answer.errorMessage().toStdString(), "");
}

}  // namespace brindlet::desktop
