#pragma once

#include <QDBusConnection>
#include <QDBusPendingCall>
#include <QString>
#include <QStringList>
#include <array>
#include <functional>
#include <vector>

namespace brindlet::desktop {

/// What a screen reader is told of one thing on the screen, as it was when it was asked for.
struct Thing {
    /// The states that the tests look at, by their numbers on the bus.
    enum State : unsigned {
        checked = 4,
        editable = 7,
        enabled = 8,
        focusable = 11,
        focused = 12,
        modal = 16,
        selected = 23,
        showing = 25,
        indeterminate = 32,
        checkable = 41
    };

    QString path;
    QString role;
    QString name;
    QString description;
    quint64 states = 0;
    QStringList actions;
    std::vector<Thing> children;

    bool is(State state) const { return states >> state & 1; }
    /// One line each, itself and all below it.
    QString printed(int depth = 0) const;
    /// Itself and all below it, depth first.
    std::vector<const Thing*> all() const;
};

/// Reads and works one program over the accessibility bus, as a screen reader does: by what things
/// are called, with no other way in.
///
/// Whatever does not come in time fails the test, with all that there is instead. After a failure
/// nothing is waited for or pressed any more, so that a test need not ask after each step.
class ScreenReader {
  public:
    using Condition = std::function<bool(const Thing&)>;

    /// Waits until a program with this process id is on the bus.
    ScreenReader(const QDBusConnection& bus, qint64 pid);

    /// All that the program shows now. What is hidden, or scrolled out of its view, is left out.
    Thing everything() const;

    /// Waits for a thing of this role and name that fulfils the condition.
    Thing await(const QString& role, const QString& name, const Condition& condition = {}) const;
    /// Waits for the first thing at all that does; `what` is for the failure.
    Thing awaitAny(const QString& what, const Condition& condition) const;
    /// Waits until there is no such thing; without a name, of any.
    void awaitNone(const QString& role, const QString& name = {}) const;

    void press(const Thing& thing) const;
    /// Waits for it, and presses it.
    void press(const QString& role, const QString& name) const;
    /// Moves the pointer to a place of the display.
    void movePointer(int x, int y) const;
    /// Strikes a key, by its number among the X key symbols.
    void strike(int key) const;
    /// The same while Control is held.
    void strikeWithControl(int key) const;

    /// What is asked about one thing, on its way.
    using Questions = std::array<QDBusPendingCall, 6>;

  private:
    Questions ask(const QString& path) const;
    void strike(int number, uint kind) const;
    void tellController(const QString& member, const QVariantList& arguments) const;

    QDBusConnection bus_;
    QString application_;
};

}  // namespace brindlet::desktop
