#include "keyring/SafeWorld.h"

#include <cstdlib>
#include <functional>
#include <utility>
#include <vector>

#include "base/Files.h"

namespace brindlet {
namespace {

constexpr const char* safeName = "org.freedesktop.secrets";
/// Not those of the machine, should it have them.
constexpr const char* keyringProgram =
    BRINDLET_SERVERS "/gnome-keyring/usr/bin/gnome-keyring-daemon";
constexpr const char* keyringLibraries =
    BRINDLET_SERVERS "/gnome-keyring/usr/lib/" BRINDLET_ARCHITECTURE;

/// Calls the bus itself, and gives whether that went well.
bool callBus(GDBusConnection* connection, const char* interface, const char* operation,
             GVariant* arguments) {
    auto* reply = g_dbus_connection_call_sync(
        connection, "org.freedesktop.DBus", "/org/freedesktop/DBus", interface, operation,
        arguments, nullptr, G_DBUS_CALL_FLAGS_NONE, -1, nullptr, nullptr);
    if (reply) g_variant_unref(reply);
    return reply != nullptr;
}

/// Whether a message that comes in goes no further. Called on the connection's own thread, for
/// which it may still be at work when the filter has been removed.
using Filter = std::function<bool(GDBusMessage* message)>;

guint addFilter(GDBusConnection* connection, Filter filter) {
    const auto apply = [](GDBusConnection*, GDBusMessage* message, gboolean incoming,
                          gpointer held) -> GDBusMessage* {
        if (!incoming || !(*static_cast<Filter*>(held))(message)) return message;
        g_object_unref(message);
        return nullptr;
    };
    const auto drop = [](gpointer held) { delete static_cast<Filter*>(held); };
    return g_dbus_connection_add_filter(connection, apply, new Filter(std::move(filter)), drop);
}

/// Runs the default context until somebody owns the safe's name.
void waitForSafe(const SafeWorld& world) {
    const auto connection = world.connect();
    bool there = false;
    const auto note = [](GDBusConnection*, const gchar*, const gchar*, gpointer flag) {
        *static_cast<bool*>(flag) = true;
    };
    const auto watch = g_bus_watch_name_on_connection(
        connection.get(), safeName, G_BUS_NAME_WATCHER_FLAGS_NONE, note, nullptr, &there, nullptr);
    while (!there) g_main_context_iteration(nullptr, TRUE);
    g_bus_unwatch_name(watch);
}

}  // namespace

std::string SafeWorld::missing() {
    if (!files::exists(BRINDLET_SERVERS "/gnome-keyring/packages"))
        return "There is no GNOME keyring here: tools/unpack_servers fetches it.";
    gchar* path = g_find_program_in_path("dbus-daemon");
    if (path == nullptr)
        return "There is no dbus-daemon here: see test_packages in tools/packages.sh.";
    g_free(path);
    return {};
}

SafeWorld::SafeWorld() : bus_(g_test_dbus_new(G_TEST_DBUS_NONE)) {
    for (const char* name : {"HOME", "XDG_RUNTIME_DIR", "XDG_CONFIG_HOME", "XDG_CACHE_HOME",
                             "XDG_DATA_HOME", "XDG_STATE_HOME"})
        ::setenv(name, home().c_str(), 1);
    for (const char* name : {"GNOME_KEYRING_CONTROL", "SSH_AUTH_SOCK", "WAYLAND_DISPLAY"})
        ::unsetenv(name);
    g_test_dbus_up(bus_.get());
}

SafeWorld::~SafeWorld() {
    g_test_dbus_stop(bus_.get());
}

Held<GDBusConnection> SafeWorld::connect() const {
    const auto flags =
        static_cast<GDBusConnectionFlags>(G_DBUS_CONNECTION_FLAGS_AUTHENTICATION_CLIENT |
                                          G_DBUS_CONNECTION_FLAGS_MESSAGE_BUS_CONNECTION);
    return Held<GDBusConnection>(g_dbus_connection_new_for_address_sync(
        g_test_dbus_get_bus_address(bus_.get()), flags, nullptr, nullptr, nullptr));
}

void SafeWorld::waitForOthersToLeave(int left) const {
    const auto connection = connect();
    int others = left + 1;
    while (others > left) {
        auto* reply = g_dbus_connection_call_sync(connection.get(), "org.freedesktop.DBus",
                                                  "/org/freedesktop/DBus", "org.freedesktop.DBus",
                                                  "ListNames", nullptr, G_VARIANT_TYPE("(as)"),
                                                  G_DBUS_CALL_FLAGS_NONE, -1, nullptr, nullptr);
        if (reply == nullptr) return;
        GVariantIter* names = nullptr;
        g_variant_get(reply, "(as)", &names);
        others = -1;  // this one
        const gchar* name = nullptr;
        while (g_variant_iter_loop(names, "&s", &name) != FALSE) others += *name == ':';
        g_variant_iter_free(names);
        g_variant_unref(reply);
    }
}

Keyring::Keyring(const SafeWorld& world, State state) {
    const auto control = "--control-directory=" + world.home();
    std::vector<const gchar*> arguments{keyringProgram, "--foreground", "--components=secrets",
                                        control.c_str()};
    if (state == State::unlocked) arguments.push_back("--unlock");
    arguments.push_back(nullptr);
    const auto flags = static_cast<GSubprocessFlags>(G_SUBPROCESS_FLAGS_STDIN_PIPE |
                                                     G_SUBPROCESS_FLAGS_STDOUT_SILENCE |
                                                     G_SUBPROCESS_FLAGS_STDERR_SILENCE);
    const Held<GSubprocessLauncher> launcher(g_subprocess_launcher_new(flags));
    g_subprocess_launcher_setenv(launcher.get(), "LD_LIBRARY_PATH", keyringLibraries, TRUE);
    program_.reset(g_subprocess_launcher_spawnv(launcher.get(), arguments.data(), nullptr));
    auto* input = g_subprocess_get_stdin_pipe(program_.get());
    if (state == State::unlocked)
        g_output_stream_write_all(input, "master", 6, nullptr, nullptr, nullptr);
    g_output_stream_close(input, nullptr, nullptr);
    waitForSafe(world);
}

bool Keyring::answersOn(const SafeWorld& world) const {
    const auto connection = world.connect();
    auto* reply = g_dbus_connection_call_sync(
        connection.get(), "org.freedesktop.DBus", "/org/freedesktop/DBus", "org.freedesktop.DBus",
        "GetConnectionUnixProcessID", g_variant_new("(s)", safeName), G_VARIANT_TYPE("(u)"),
        G_DBUS_CALL_FLAGS_NONE, -1, nullptr, nullptr);
    if (reply == nullptr) return false;
    guint32 process = 0;
    g_variant_get(reply, "(u)", &process);
    g_variant_unref(reply);
    return std::to_string(process) == g_subprocess_get_identifier(program_.get());
}

Keyring::~Keyring() {
    g_subprocess_send_signal(program_.get(), SIGTERM);
    g_subprocess_wait(program_.get(), nullptr, nullptr);
}

SilentSafe::SilentSafe(const SafeWorld& world) : connection_(world.connect()) {
    filter_ = addFilter(connection_.get(), [called = called_](GDBusMessage* message) {
        if (g_dbus_message_get_message_type(message) != G_DBUS_MESSAGE_TYPE_METHOD_CALL)
            return false;
        called->raise();
        return true;
    });
    callBus(connection_.get(), "org.freedesktop.DBus", "RequestName",
            g_variant_new("(su)", safeName, 0));
}

SilentSafe::~SilentSafe() {
    g_dbus_connection_remove_filter(connection_.get(), filter_);
    g_dbus_connection_close_sync(connection_.get(), nullptr, nullptr);
}

Eavesdropper::Eavesdropper(const SafeWorld& world)
    : connection_(world.connect()), caller_(world.connect()) {
    filter_ = addFilter(connection_.get(), [calls = calls_](GDBusMessage* message) {
        const char* name = g_dbus_message_get_member(message);
        if (name == nullptr) return false;
        Lock lock(calls->mutex);
        calls->names.emplace(name);
        calls->changed.notifyAll();
        return true;
    });
    callBus(connection_.get(), "org.freedesktop.DBus.Monitoring", "BecomeMonitor",
            g_variant_new("(asu)", nullptr, 0));
}

Eavesdropper::~Eavesdropper() {
    g_dbus_connection_remove_filter(connection_.get(), filter_);
    g_dbus_connection_close_sync(connection_.get(), nullptr, nullptr);
}

bool Eavesdropper::heard(const std::string& operation) {
    // A call of our own, which the bus refuses: once it has come by, so has all that went before.
    const auto marker = "Marker" + std::to_string(++markers_);
    callBus(caller_.get(), "org.freedesktop.DBus", marker.c_str(), nullptr);
    Lock lock(calls_->mutex);
    while (!calls_->names.contains(marker)) calls_->changed.wait(calls_->mutex);
    return calls_->names.contains(operation);
}

}  // namespace brindlet
