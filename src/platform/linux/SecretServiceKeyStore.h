#pragma once

#include <chrono>

#include "platform/KeyStore.h"

namespace brindlet {

/// How long an answer of the safe is waited for.
struct KeyStorePatience {
    /// A look, where nobody is asked for anything: long enough for the safe's program to start.
    std::chrono::milliseconds look{5'000};
    /// What may have to wait for the person, who is asked to unlock the safe.
    std::chrono::milliseconds person{60'000};
};

/// The secret service of the desktop, by way of libsecret: never a file of our own. An item has two
/// attributes, "service" and "account", by which alone it is found (libsecret adds the name of the
/// schema), and stands in the default collection. Without a session bus, without a service on it,
/// and when the time is up, there is nothing to be had and nothing is stored. An item in a locked
/// collection is there for `has`: its attributes can be searched, only the secret cannot be read.
class SecretServiceKeyStore : public KeyStore {
  public:
    explicit SecretServiceKeyStore(KeyStorePatience patience = {}) : patience_(patience) {}

    bool has(const std::string& service, const std::string& account) override;
    std::optional<Secret> read(const std::string& service, const std::string& account) override;
    void save(const std::string& service, const std::string& account,
              const Secret& secret) override;
    void forget(const std::string& service, const std::string& account) override;

  private:
    const KeyStorePatience patience_;
};

}  // namespace brindlet
