#pragma once

#include <cstdint>
#include <map>
#include <memory>
#include <optional>
#include <string>
#include <utility>

#include "base/ThreadSafety.h"
#include "platform/KeyStore.h"
#include "platform/linux/OpenSslStream.h"

namespace brindlet::demo {

/// A safe for passwords that lasts as long as the demo, and keeps out of the person's own.
class MemoryKeyStore : public KeyStore {
  public:
    bool has(const std::string& service, const std::string& account) override;
    std::optional<Secret> read(const std::string& service, const std::string& account) override;
    void save(const std::string& service, const std::string& account,
              const Secret& secret) override;
    void forget(const std::string& service, const std::string& account) override;

  private:
    Mutex mutex_;
    std::map<std::pair<std::string, std::string>, Secret> secrets_ BRINDLET_GUARDED_BY(mutex_);
};

/// Leads every connection to the simulated Gmail server on this machine, which shows a certificate
/// of an authority of its own; nothing is ever sent anywhere else.
class LocalGmail : public TlsConnector {
  public:
    LocalGmail(std::uint16_t port, const std::string& authority)
        : connector_({.text = authority}), port_(port) {}

    std::shared_ptr<TlsStream> make(const std::string&, std::uint16_t) override {
        return connector_.make("localhost", port_);
    }

  private:
    OpenSslConnector connector_;
    const std::uint16_t port_;
};

/// Where a person would make an app password on Google's page, the demo just tells it, on standard
/// output.
void tellAppPasswords(const std::string& home);

}  // namespace brindlet::demo
