#include "doubles/MapKeyStore.h"

namespace brindlet::doubles {

bool MapKeyStore::has(const std::string& service, const std::string& account) {
    Lock lock(mutex_);
    calls_.push_back("has " + service + ' ' + account);
    return !refuses_ && secrets_.contains({service, account});
}

std::optional<Secret> MapKeyStore::read(const std::string& service, const std::string& account) {
    Lock lock(mutex_);
    calls_.push_back("read " + service + ' ' + account);
    const auto found = secrets_.find({service, account});
    return refuses_ || found == secrets_.end() ? std::nullopt
                                               : std::optional<Secret>(found->second);
}

void MapKeyStore::save(const std::string& service, const std::string& account,
                       const Secret& secret) {
    Lock lock(mutex_);
    calls_.push_back("save " + service + ' ' + account);
    if (!refuses_) secrets_[{service, account}] = secret.text();
}

void MapKeyStore::forget(const std::string& service, const std::string& account) {
    Lock lock(mutex_);
    calls_.push_back("forget " + service + ' ' + account);
    if (!refuses_) secrets_.erase({service, account});
}

std::optional<std::string> MapKeyStore::kept(const std::string& service,
                                             const std::string& account) const {
    Lock lock(mutex_);
    const auto found = secrets_.find({service, account});
    return found == secrets_.end() ? std::nullopt : std::optional(found->second);
}

void MapKeyStore::keep(const std::string& service, const std::string& account,
                       const std::string& secret) {
    Lock lock(mutex_);
    secrets_[{service, account}] = secret;
}

void MapKeyStore::setRefuses(bool refuses) {
    Lock lock(mutex_);
    refuses_ = refuses;
}

std::vector<std::string> MapKeyStore::calls() const {
    Lock lock(mutex_);
    return calls_;
}

}  // namespace brindlet::doubles
