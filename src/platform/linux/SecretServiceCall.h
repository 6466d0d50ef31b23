#pragma once

#include <libsecret/secret.h>

#include <chrono>
#include <functional>
#include <memory>

namespace brindlet {

struct Unref {
    void operator()(gpointer object) const { g_object_unref(object); }
    void operator()(GMainContext* context) const { g_main_context_unref(context); }
};
template <class T>
using HeldObject = std::unique_ptr<T, Unref>;

/// One conversation with the secret service.
///
/// It belongs to one thread, whose own main context it is. Everything that it starts is
/// asynchronous and comes back there, the end of the patience included. libsecret's blocking calls
/// would not do: a cancellation from another thread, while the person is being asked, would go on
/// in that thread's context, which for most is the main loop's.
class SecretServiceCall {
  public:
    explicit SecretServiceCall(std::chrono::milliseconds patience);
    ~SecretServiceCall();
    SecretServiceCall(const SecretServiceCall&) = delete;
    SecretServiceCall& operator=(const SecretServiceCall&) = delete;

    /// Null where none answers.
    SecretService* open();
    /// Ends whatever waits, once the patience has.
    GCancellable* cancellable() const { return cancellable_.get(); }

    using Start = std::function<void(GAsyncReadyCallback whenDone, gpointer data)>;
    /// Starts what is asynchronous and runs the context until its result is there.
    HeldObject<GAsyncResult> await(const Start& start) const;

  private:
    HeldObject<GMainContext> context_;
    HeldObject<GCancellable> cancellable_;
    GSource* patience_;
    HeldObject<GDBusConnection> bus_;
    HeldObject<SecretService> service_;
};

}  // namespace brindlet
