#pragma once

#include <map>
#include <optional>
#include <string>
#include <utility>
#include <vector>

#include "base/ThreadSafety.h"
#include "platform/KeyStore.h"

namespace brindlet::doubles {

/// Secrets in memory, and a log of what was asked.
class MapKeyStore : public KeyStore {
  public:
    bool has(const std::string& service, const std::string& account) override;
    std::optional<Secret> read(const std::string& service, const std::string& account) override;
    void save(const std::string& service, const std::string& account,
              const Secret& secret) override;
    void forget(const std::string& service, const std::string& account) override;

    /// What is kept, past the log.
    std::optional<std::string> kept(const std::string& service, const std::string& account) const;
    void keep(const std::string& service, const std::string& account, const std::string& secret);
    /// From now on it behaves as one that is locked or not there, or no longer.
    void setRefuses(bool refuses);
    /// "read SERVICE ACCOUNT" and the like.
    std::vector<std::string> calls() const;

  private:
    using Key = std::pair<std::string, std::string>;
    mutable Mutex mutex_;
    std::map<Key, std::string> secrets_ BRINDLET_GUARDED_BY(mutex_);
    std::vector<std::string> calls_ BRINDLET_GUARDED_BY(mutex_);
    bool refuses_ BRINDLET_GUARDED_BY(mutex_) = false;
};

}  // namespace brindlet::doubles
