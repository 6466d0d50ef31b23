#include "platform/linux/SecretServiceCall.h"

#include <algorithm>
#include <limits>

namespace brindlet {

SecretServiceCall::SecretServiceCall(std::chrono::milliseconds patience)
    : context_(g_main_context_new()), cancellable_(g_cancellable_new()) {
    g_main_context_push_thread_default(context_.get());
    const auto most = std::chrono::milliseconds(std::numeric_limits<int>::max());
    patience_ = g_timeout_source_new(static_cast<guint>(std::min(patience, most).count()));
    const auto end = [](gpointer cancellable) -> gboolean {
        g_cancellable_cancel(static_cast<GCancellable*>(cancellable));
        return G_SOURCE_REMOVE;
    };
    g_source_set_callback(patience_, end, cancellable_.get(), nullptr);
    g_source_attach(patience_, context_.get());
}

SecretServiceCall::~SecretServiceCall() {
    service_.reset();
    bus_.reset();
    g_source_destroy(patience_);
    g_source_unref(patience_);
    // What the end of the above has left to do.
    while (g_main_context_iteration(context_.get(), FALSE)) {
    }
    g_main_context_pop_thread_default(context_.get());
}

HeldObject<GAsyncResult> SecretServiceCall::await(const Start& start) const {
    GAsyncResult* result = nullptr;
    const auto keep = [](GObject*, GAsyncResult* given, gpointer place) {
        *static_cast<GAsyncResult**>(place) = G_ASYNC_RESULT(g_object_ref(given));
    };
    start(keep, static_cast<gpointer>(&result));
    while (result == nullptr) g_main_context_iteration(context_.get(), TRUE);
    return HeldObject<GAsyncResult>(result);
}

SecretService* SecretServiceCall::open() {
    const auto bus = await([this](GAsyncReadyCallback whenDone, gpointer data) {
        g_bus_get(G_BUS_TYPE_SESSION, cancellable(), whenDone, data);
    });
    bus_.reset(g_bus_get_finish(bus.get(), nullptr));
    if (!bus_) return nullptr;
    g_dbus_connection_set_exit_on_close(bus_.get(), FALSE);  // or the bus would take us with it
    // Not the instance that libsecret shares: it belongs to the context that asked for it first.
    const auto opened = await([this](GAsyncReadyCallback whenDone, gpointer data) {
        secret_service_open(SECRET_TYPE_SERVICE, "org.freedesktop.secrets", SECRET_SERVICE_NONE,
                            cancellable(), whenDone, data);
    });
    service_.reset(secret_service_open_finish(opened.get(), nullptr));
    return service_.get();
}

}  // namespace brindlet
