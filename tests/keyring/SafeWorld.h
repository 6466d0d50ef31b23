#pragma once

#include <gio/gio.h>

#include <memory>
#include <set>
#include <string>

#include "base/Gate.h"
#include "base/ThreadSafety.h"
#include "doubles/Doubles.h"

namespace brindlet {

struct UnrefObject {
    void operator()(gpointer object) const { g_object_unref(object); }
};
template <class T>
using Held = std::unique_ptr<T, UnrefObject>;

/// A session bus, on which nothing starts by itself, and a home without a safe: this process's, and
/// its children's, for as long as this lives.
class SafeWorld {
  public:
    /// Why the tests cannot run here, as a sentence; empty when they can.
    static std::string missing();

    SafeWorld();
    ~SafeWorld();

    std::string home() const { return directories_.home(); }
    /// A connection of its own.
    Held<GDBusConnection> connect() const;
    /// Until no more than so many others are on the bus: a call that was given up takes a moment to
    /// leave, and GLib waits half a minute in vain where the bus goes before it.
    void waitForOthersToLeave(int left) const;

  private:
    doubles::TemporaryDirectories directories_;
    Held<GTestDBus> bus_;
};

/// The safe of the GNOME desktop, as tools/unpack_servers lays it out, on the bus of a world, until
/// this goes. What it keeps outlives it, in the home of the world.
class Keyring {
  public:
    enum class State { unlocked, locked };
    Keyring(const SafeWorld& world, State state);
    ~Keyring();
    /// Whether it is this one's program, and no other, that has the safe's name there.
    bool answersOn(const SafeWorld& world) const;

  private:
    Held<GSubprocess> program_;
};

/// Owns the safe's name and answers nothing.
class SilentSafe {
  public:
    explicit SilentSafe(const SafeWorld& world);
    ~SilentSafe();
    void waitUntilCalled() { called_->waitFor(1); }

  private:
    Held<GDBusConnection> connection_;
    std::shared_ptr<Gate> called_ = std::make_shared<Gate>();
    guint filter_;
};

/// Hears every call that is made over the bus of a world.
class Eavesdropper {
  public:
    explicit Eavesdropper(const SafeWorld& world);
    ~Eavesdropper();
    /// Whether the operation of that name has been called before.
    bool heard(const std::string& operation);

  private:
    /// Written by the thread of the connection.
    struct Calls {
        Mutex mutex;
        Condition changed;
        std::set<std::string> names BRINDLET_GUARDED_BY(mutex);
    };

    Held<GDBusConnection> connection_;
    /// A monitor may not call anybody itself.
    Held<GDBusConnection> caller_;
    std::shared_ptr<Calls> calls_ = std::make_shared<Calls>();
    guint filter_;
    int markers_ = 0;
};

}  // namespace brindlet
