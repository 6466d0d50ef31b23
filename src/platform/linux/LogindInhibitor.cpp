#include "platform/linux/LogindInhibitor.h"

#include <gio/gio.h>
#include <gio/gunixfdlist.h>

#include <memory>

namespace brindlet {
namespace {

struct Unref {
    void operator()(gpointer object) const { g_object_unref(object); }
    void operator()(GVariant* variant) const { g_variant_unref(variant); }
};
template <class T>
using Held = std::unique_ptr<T, Unref>;

}  // namespace

int inhibitSleep(const std::string& reason) {
    constexpr int patience = 5000;  // milliseconds
    const Held<GDBusConnection> bus(g_bus_get_sync(G_BUS_TYPE_SYSTEM, nullptr, nullptr));
    if (!bus) return -1;
    g_dbus_connection_set_exit_on_close(bus.get(), FALSE);  // or the bus would take us with it
    // Against falling asleep by itself alone: whoever closes the lid means it.
    GUnixFDList* list = nullptr;
    const Held<GVariant> reply(g_dbus_connection_call_with_unix_fd_list_sync(
        bus.get(), "org.freedesktop.login1", "/org/freedesktop/login1",
        "org.freedesktop.login1.Manager", "Inhibit",
        g_variant_new("(ssss)", "idle", "Brindlet", reason.c_str(), "block"),
        G_VARIANT_TYPE("(h)"), G_DBUS_CALL_FLAGS_NONE, patience, nullptr, &list, nullptr, nullptr));
    const Held<GUnixFDList> descriptors(list);
    if (!reply || !descriptors) return -1;
    gint32 index = -1;
    g_variant_get(reply.get(), "(h)", &index);
    if (index < 0 || index >= g_unix_fd_list_get_length(list)) return -1;
    return g_unix_fd_list_get(list, index, nullptr);
}

}  // namespace brindlet
