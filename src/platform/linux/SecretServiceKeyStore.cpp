#include "platform/linux/SecretServiceKeyStore.h"

#include <libsecret/secret.h>

#include <functional>
#include <memory>
#include <utility>

#include "base/Task.h"
#include "base/ThreadSafety.h"
#include "platform/linux/SecretServiceCall.h"

namespace brindlet {
namespace {

using std::chrono::milliseconds;

const SecretSchema* schema() {
    static const SecretSchema passwords = [] {
        SecretSchema made{};
        made.name = "app.brindlet.Brindlet.password";
        // The GNOME keyring does not find an item by its schema's name while it is locked.
        made.flags = SECRET_SCHEMA_DONT_MATCH_NAME;
        made.attributes[0] = {"service", SECRET_SCHEMA_ATTRIBUTE_STRING};
        made.attributes[1] = {"account", SECRET_SCHEMA_ATTRIBUTE_STRING};
        return made;
    }();
    return &passwords;
}

/// What an item is known by.
struct Key {
    std::string service;
    std::string account;

    std::unique_ptr<GHashTable, decltype(&g_hash_table_unref)> attributes() const {
        return {secret_attributes_build(schema(), "service", service.c_str(), "account",
                                        account.c_str(), nullptr),
                &g_hash_table_unref};
    }
};

/// A secret in libsecret's own memory, which it wipes.
using Value = std::shared_ptr<SecretValue>;

Value valueOf(const Secret& secret) {
    return {secret_value_new(secret.text().data(), static_cast<gssize>(secret.text().size()),
                             "text/plain"),
            &secret_value_unref};
}

/// Asks on a thread of its own, which is left to itself when the patience ends: whatever the safe's
/// program does, the caller goes on. A late answer is thrown away.
template <class Answer>
Answer ask(milliseconds patience,
           std::function<Answer(SecretServiceCall& call, SecretService* service)> question) {
    struct Shared {
        Mutex mutex;
        Condition answered;
        std::optional<Answer> answer BRINDLET_GUARDED_BY(mutex);
    };
    const auto shared = std::make_shared<Shared>();
    runDetached(TaskPriority::userInitiated, [shared, patience, question = std::move(question)] {
        Answer answer{};
        {
            SecretServiceCall call(patience);
            if (auto* service = call.open()) answer = question(call, service);
        }
        Lock lock(shared->mutex);
        shared->answer = std::move(answer);
        shared->answered.notifyAll();
    });
    const auto deadline = std::chrono::steady_clock::now() + patience;
    Lock lock(shared->mutex);
    while (!shared->answer) {
        const auto left = deadline - std::chrono::steady_clock::now();
        if (left <= left.zero() || !shared->answered.waitFor(shared->mutex, left)) break;
    }
    return shared->answer ? std::move(*shared->answer) : Answer{};
}

struct FreeItems {
    void operator()(GList* items) const { g_list_free_full(items, g_object_unref); }
};
using Items = std::unique_ptr<GList, FreeItems>;

/// Locked ones too; asks nobody.
Items search(SecretServiceCall& call, SecretService* service, const Key& key,
             SecretSearchFlags flags) {
    const auto result = call.await([&](GAsyncReadyCallback whenDone, gpointer data) {
        secret_service_search(service, schema(), key.attributes().get(), flags, call.cancellable(),
                              whenDone, data);
    });
    return Items(secret_service_search_finish(service, result.get(), nullptr));
}

/// Asks the person to unlock what is locked of the key's items: by itself, clearing would pass over
/// them. False when the person would not.
bool unlock(SecretServiceCall& call, SecretService* service, const Key& key) {
    const auto items = search(call, service, key, SECRET_SEARCH_ALL);
    std::unique_ptr<GList, decltype(&g_list_free)> locked(nullptr, &g_list_free);
    for (auto* item = items.get(); item != nullptr; item = item->next)
        if (secret_item_get_locked(SECRET_ITEM(item->data)))
            locked.reset(g_list_prepend(locked.release(), item->data));
    if (!locked) return true;
    const auto result = call.await([&](GAsyncReadyCallback whenDone, gpointer data) {
        secret_service_unlock(service, locked.get(), call.cancellable(), whenDone, data);
    });
    const auto unlocked = secret_service_unlock_finish(service, result.get(), nullptr, nullptr);
    return unlocked == static_cast<gint>(g_list_length(locked.get()));
}

bool clear(SecretServiceCall& call, SecretService* service, const Key& key) {
    const auto result = call.await([&](GAsyncReadyCallback whenDone, gpointer data) {
        secret_service_clear(service, schema(), key.attributes().get(), call.cancellable(),
                             whenDone, data);
    });
    return secret_service_clear_finish(service, result.get(), nullptr) != FALSE;
}

bool store(SecretServiceCall& call, SecretService* service, const Key& key, SecretValue* value) {
    const auto label = "Brindlet: " + key.account;
    const auto result = call.await([&](GAsyncReadyCallback whenDone, gpointer data) {
        secret_service_store(service, schema(), key.attributes().get(), SECRET_COLLECTION_DEFAULT,
                             label.c_str(), value, call.cancellable(), whenDone, data);
    });
    return secret_service_store_finish(service, result.get(), nullptr) != FALSE;
}

}  // namespace

bool SecretServiceKeyStore::has(const std::string& service, const std::string& account) {
    return ask<bool>(patience_.look,
                     [key = Key{service, account}](SecretServiceCall& call, SecretService* safe) {
                         return search(call, safe, key, SECRET_SEARCH_NONE) != nullptr;
                     });
}

std::optional<Secret> SecretServiceKeyStore::read(const std::string& service,
                                                  const std::string& account) {
    using Answer = std::optional<Secret>;
    return ask<Answer>(patience_.person, [key = Key{service, account}](SecretServiceCall& call,
                                                                       SecretService* safe) {
        const auto result = call.await([&](GAsyncReadyCallback whenDone, gpointer data) {
            secret_service_lookup(safe, schema(), key.attributes().get(), call.cancellable(),
                                  whenDone, data);
        });
        const std::unique_ptr<SecretValue, decltype(&secret_value_unref)> value(
            secret_service_lookup_finish(safe, result.get(), nullptr), &secret_value_unref);
        if (!value) return Answer{};
        gsize size = 0;
        const char* bytes = secret_value_get(value.get(), &size);
        return Answer(std::in_place, std::string_view(bytes, size));
    });
}

void SecretServiceKeyStore::save(const std::string& service, const std::string& account,
                                 const Secret& secret) {
    ask<bool>(patience_.person, [key = Key{service, account}, value = valueOf(secret)](
                                    SecretServiceCall& call, SecretService* safe) {
        // An item of the same key may stand in another collection than the default one.
        if (!unlock(call, safe, key)) return false;
        clear(call, safe, key);
        return store(call, safe, key, value.get());
    });
}

void SecretServiceKeyStore::forget(const std::string& service, const std::string& account) {
    ask<bool>(patience_.person,
              [key = Key{service, account}](SecretServiceCall& call, SecretService* safe) {
                  return unlock(call, safe, key) && clear(call, safe, key);
              });
}

}  // namespace brindlet
