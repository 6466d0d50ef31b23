#include <gtest/gtest.h>
#include <libsecret/secret.h>

#include <chrono>
#include <cstdlib>
#include <memory>
#include <thread>

#include "base/Files.h"
#include "keyring/SafeWorld.h"
#include "platform/linux/SecretServiceKeyStore.h"

namespace brindlet {
namespace {

using std::chrono::milliseconds;

const std::string service = "app.brindlet.Brindlet.gmail";
const std::string ann = "ann@example.com";

/// Nobody is there to answer a prompt, so nobody is waited for long.
const KeyStorePatience brief{.look = milliseconds(20'000), .person = milliseconds(300)};
const KeyStorePatience hasty{.look = milliseconds(50), .person = milliseconds(50)};

/// The secret as text, or a word that none of the tests stores.
std::string textIn(KeyStore& store, const std::string& account = ann) {
    const auto secret = store.read(service, account);
    return secret ? std::string(secret->text()) : "(none)";
}

void expectNothing(KeyStore& store) {
    store.save(service, ann, Secret("abcd"));
    EXPECT_FALSE(store.has(service, ann));
    EXPECT_EQ(textIn(store), "(none)");
    store.forget(service, ann);
}

class UnlockedSafe : public testing::Test {
  protected:
    SafeWorld world;
    Keyring keyring{world, Keyring::State::unlocked};
    SecretServiceKeyStore store;
};

TEST_F(UnlockedSafe, IsTheUnpackedOne) {
    EXPECT_TRUE(keyring.answersOn(world));
}

TEST_F(UnlockedSafe, KeepsASecretUntilItIsForgotten) {
    EXPECT_FALSE(store.has(service, ann));
    EXPECT_EQ(textIn(store), "(none)");
    store.save(service, ann, Secret("abcdefghijklmnop"));
    EXPECT_TRUE(store.has(service, ann));
    EXPECT_EQ(textIn(store), "abcdefghijklmnop");
    store.forget(service, ann);
    EXPECT_FALSE(store.has(service, ann));
    EXPECT_EQ(textIn(store), "(none)");
    store.forget(service, ann);
}

TEST_F(UnlockedSafe, KnowsItsSecretsByServiceAndAccountExactly) {
    store.save(service, ann, Secret("one"));
    EXPECT_FALSE(store.has(service, "Ann@example.com"));
    EXPECT_FALSE(store.has(service, "ann@example.co"));
    EXPECT_FALSE(store.has(service, ""));
    EXPECT_FALSE(store.has("app.brindlet.Brindlet", ann));
    store.save(service, "bob@example.com", Secret("two"));
    store.forget(service, "bob@example.com");
    EXPECT_EQ(textIn(store), "one");
}

TEST_F(UnlockedSafe, ALaterSecretTakesTheEarlierOnesPlace) {
    store.save(service, ann, Secret("one"));
    store.save(service, ann, Secret("two"));
    EXPECT_EQ(textIn(store), "two");
    store.forget(service, ann);
    EXPECT_FALSE(store.has(service, ann));
}

TEST_F(UnlockedSafe, AnEmptySecretIsThere) {
    store.save(service, ann, Secret(""));
    EXPECT_TRUE(store.has(service, ann));
    EXPECT_EQ(textIn(store), "");
}

TEST_F(UnlockedSafe, BytesComeBackAsTheyWent) {
    const std::string odd = "p\xc3\xa4ss\n\xf0\x9f\x94\x91\"\\ ";
    store.save(service, "j\xc3\xb6rg@example.com", Secret(odd));
    EXPECT_EQ(textIn(store, "j\xc3\xb6rg@example.com"), odd);
}

/// Asked by a client that is none of ours.
TEST_F(UnlockedSafe, AnItemHasTheTwoAttributesAndTheSchemasName) {
    store.save(service, ann, Secret("abcd"));
    gchar* output = nullptr;
    const auto connection = world.connect();
    auto* reply = g_dbus_connection_call_sync(
        connection.get(), "org.freedesktop.secrets", "/org/freedesktop/secrets",
        "org.freedesktop.Secret.Service", "SearchItems",
        g_variant_new_parsed("({'service': %s, 'account': %s},)", service.c_str(), ann.c_str()),
        G_VARIANT_TYPE("(aoao)"), G_DBUS_CALL_FLAGS_NONE, -1, nullptr, nullptr);
    ASSERT_NE(reply, nullptr);
    GVariant* unlocked = g_variant_get_child_value(reply, 0);
    ASSERT_EQ(g_variant_n_children(unlocked), 1u);
    const gchar* path = nullptr;
    g_variant_get_child(unlocked, 0, "&o", &path);
    auto* attributes = g_dbus_connection_call_sync(
        connection.get(), "org.freedesktop.secrets", path, "org.freedesktop.DBus.Properties", "Get",
        g_variant_new("(ss)", "org.freedesktop.Secret.Item", "Attributes"), G_VARIANT_TYPE("(v)"),
        G_DBUS_CALL_FLAGS_NONE, -1, nullptr, nullptr);
    ASSERT_NE(attributes, nullptr);
    GVariant* value = nullptr;
    g_variant_get(attributes, "(v)", &value);
    EXPECT_EQ(g_variant_n_children(value), 3u);
    for (const auto& [name, wanted] :
         {std::pair{"service", service},
          {"account", ann},
          {"xdg:schema", std::string("app.brindlet.Brindlet.password")}}) {
        ASSERT_TRUE(g_variant_lookup(value, name, "s", &output)) << name;
        EXPECT_EQ(output, wanted);
        g_free(output);
    }
    for (auto* variant : {value, attributes, unlocked, reply}) g_variant_unref(variant);
}

TEST(LockedSafe, TellsThatItHasASecretButNotWhichAndKeepsIt) {
    const SafeWorld world;
    SecretServiceKeyStore store(brief);
    {
        const Keyring keyring(world, Keyring::State::unlocked);
        SecretServiceKeyStore().save(service, ann, Secret("abcd"));
    }
    {
        const Keyring keyring(world, Keyring::State::locked);
        EXPECT_TRUE(store.has(service, ann));
        EXPECT_FALSE(store.has(service, "bob@example.com"));
        EXPECT_EQ(textIn(store), "(none)");
        store.save(service, ann, Secret("other"));
        store.forget(service, ann);
        EXPECT_TRUE(store.has(service, ann));
    }
    const Keyring keyring(world, Keyring::State::unlocked);
    SecretServiceKeyStore patient;
    EXPECT_EQ(textIn(patient), "abcd");
}

TEST(LockedSafe, ALookNeverAsksToUnlockIt) {
    const SafeWorld world;
    {
        const Keyring keyring(world, Keyring::State::unlocked);
        SecretServiceKeyStore().save(service, ann, Secret("abcd"));
    }
    const Keyring keyring(world, Keyring::State::locked);
    Eavesdropper eavesdropper(world);
    SecretServiceKeyStore store(brief);
    EXPECT_TRUE(store.has(service, ann));
    store.has(service, "bob@example.com");
    EXPECT_TRUE(eavesdropper.heard("SearchItems"));
    EXPECT_FALSE(eavesdropper.heard("Unlock"));
    EXPECT_FALSE(eavesdropper.heard("Prompt"));
    textIn(store);
    EXPECT_TRUE(eavesdropper.heard("Unlock")) << "reading may ask";
}

TEST(LockedSafe, ForgettingAsksToUnlockIt) {
    const SafeWorld world;
    {
        const Keyring keyring(world, Keyring::State::unlocked);
        SecretServiceKeyStore().save(service, ann, Secret("abcd"));
    }
    const Keyring keyring(world, Keyring::State::locked);
    Eavesdropper eavesdropper(world);
    SecretServiceKeyStore store(brief);
    store.forget(service, "bob@example.com");
    EXPECT_FALSE(eavesdropper.heard("Unlock")) << "there is nothing to forget";
    store.forget(service, ann);
    EXPECT_TRUE(eavesdropper.heard("Unlock"));
}

TEST(SilentSafe, HoldsNobodyUp) {
    const SafeWorld world;
    const SilentSafe silent(world);
    SecretServiceKeyStore store(hasty);
    expectNothing(store);
    world.waitForOthersToLeave(1);
}

TEST(NoSafe, OnTheBusHoldsNothing) {
    const SafeWorld world;
    SecretServiceKeyStore store;
    expectNothing(store);
}

TEST(NoSafe, WithoutABusHoldsNothing) {
    ::setenv("DBUS_SESSION_BUS_ADDRESS", "unix:path=/nonexistent/bus", 1);
    SecretServiceKeyStore store;
    expectNothing(store);
    ::unsetenv("DBUS_SESSION_BUS_ADDRESS");
}

TEST(NoSafe, NoFileTakesItsPlace) {
    const SafeWorld world;
    ::setenv("SECRET_BACKEND", "file", 1);
    SecretServiceKeyStore store;
    expectNothing(store);
    ::unsetenv("SECRET_BACKEND");
    EXPECT_FALSE(files::exists(world.home() + "/keyrings"));
}

TEST(NoSafe, ABusThatGoesDuringACallTakesNobodyAlong) {
    auto world = std::make_unique<SafeWorld>();
    SilentSafe silent(*world);
    std::string text;
    std::thread reader([&] {
        SecretServiceKeyStore store;
        text = textIn(store);
    });
    silent.waitUntilCalled();
    world = nullptr;
    reader.join();
    EXPECT_EQ(text, "(none)");
}

}  // namespace
}  // namespace brindlet
